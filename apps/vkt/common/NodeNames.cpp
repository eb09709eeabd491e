#include "common/NodeNames.h"

#include "VKT/document/InheritedNode.h"
#include "VKT/document/NewNode.h"
#include "VKT/node/FnRegistry.h"
#include "common/TerminalText.h"

namespace tool {

std::string TypeNameOf(const VKT::XBase& node)
{
    if (const VKT::XInheritedNode* definition = node.GetInheritedFrom())
        return definition->GetHeader();
    if (const VKT::XNewNode* definition = node.GetUserDefinition())
        return definition->GetHeader();
    return VKT::XFnTypeName(node.GetApiType());
}

std::string NameAndType(const VKT::XBase& node)
{
    return CleanText(node.GetName()) + " (" + CleanText(TypeNameOf(node)) + ")";
}

}  // namespace tool
