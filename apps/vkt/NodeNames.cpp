#include "NodeNames.h"

#include "TerminalText.h"
#include "VKT/FnRegistry.h"
#include "VKT/InheritedNode.h"
#include "VKT/NewNode.h"
#include "VKT/UserNode.h"

namespace tool {

std::string TypeNameOf(const VKT::XBase& node)
{
    if (const VKT::XInheritedNode* definition = node.GetInheritedFrom())
        return definition->GetHeader();
    if (const VKT::XNewNode* definition = VKT::GetUserDefinition(node))
        return definition->GetHeader();
    return VKT::XFnTypeName(node.GetApiType());
}

std::string NameAndType(const VKT::XBase& node)
{
    return CleanText(node.GetName()) + " (" + CleanText(TypeNameOf(node)) + ")";
}

}  // namespace tool
