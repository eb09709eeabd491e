#include "VKT/node/References.h"

#include <algorithm>

#include "VKT/document/Model.h"

namespace VKT {

XBase* FindNodeOfType(const XBase& node, u32 id, u32 type)
{
    XBase* const found = node.GetModel()->FindNode(id);
    return found ? found->HasFn(type) : nullptr;
}

bool AcceptsNode(const XBase& node, const XBase* value, u32 type)
{
    return !value || (value->GetModel() == node.GetModel() && IsOfType(*value, type));
}

void ListNodesOf(const XBase& node, const XIndexList& ids, u32 type, XNodeList& out)
{
    out.clear();
    for (const u32 id : ids)
        if (XBase* found = FindNodeOfType(node, id, type))
            out.push_back(found);
}

bool ToIds(const XBase& node, const XNodeList& nodes, u32 type, XIndexList& ids)
{
    if (std::any_of(nodes.begin(), nodes.end(),
                    [&](const XBase* value) { return !value || !AcceptsNode(node, value, type); }))
        return false;
    ids.resize(nodes.size());
    std::transform(nodes.begin(), nodes.end(), ids.begin(),
                   [](const XBase* value) { return value->GetID(); });
    return true;
}

}  // namespace VKT
