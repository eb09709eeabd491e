#include "VKT/document/Model.h"
#include "VKT/node/FnRegistry.h"
#include "common/NodeNames.h"
#include "validate/checks/Checks.h"

namespace tool {

void CheckIds(const VKT::XModel& model, Findings& findings)
{
    for (const auto& [name, node] : model.GetNodes()) {
        const VKT::u32 id = node->GetID();
        const VKT::XBase* owner = model.FindNode(id);
        if (id == 0)
            findings.Fail(node, "its id is 0; no node can refer to it, and text saves leave it out");
        else if (owner != node)
            findings.Fail(node, "its id " + std::to_string(id) + " is that of " + NameAndType(*owner) +
                                    " too; readers take references to it for that node");
    }
}

void CheckNames(const VKT::XModel& model, Findings& findings)
{
    const auto& nodes = model.GetNodes();
    for (auto next = nodes.begin(); next != nodes.end();) {
        const auto [name, first] = *next;
        std::size_t count = 0;
        for (; next != nodes.end() && (*next).first == name; ++next)
            ++count;
        if (count > 1)
            findings.Warn(first, std::to_string(count) +
                                     " nodes have this name; readers that look for it find this one");
    }
}

void CheckDeclaredTypes(const VKT::XModel& model, Findings& findings)
{
    for (const auto& definition : model.GetInheritedNodes()) {
        const std::string type = "type " + definition->GetHeader() + ": ";
        if (model.FindBuiltInType(definition->GetFileType()) == VKT::kFnBase)
            findings.Fail(nullptr, type + "its base leads to no class; readers skip its nodes");
        else if (VKT::XFnChunkName(definition->GetBaseType()).empty())
            findings.Fail(nullptr, type +
                                       "its base is a declared type, which text saves cannot say; readers of "
                                       "the text form skip its nodes");
    }
}

}  // namespace tool
