#include "VKT/rigging/NodeCollection.h"

#include <algorithm>

namespace VKT {

bool XNodeCollection::AddItem(const XBase* node)
{
    if (!node || node->GetModel() != GetModel())
        return false;
    m_Items.push_back(node->GetID());
    return true;
}

bool XNodeCollection::RemoveItem(const XBase* node)
{
    return node && EraseFirst(m_Items, node->GetID());
}

bool XNodeCollection::HasItem(const XBase* node) const
{
    return node && std::find(m_Items.begin(), m_Items.end(), node->GetID()) != m_Items.end();
}

bool XNodeCollection::GetItems(XNodeList& out) const
{
    ListNodesOf(*this, m_Items, kFnBase, out);
    return !out.empty();
}

bool XNodeCollection::NodeDeath(u32 id)
{
    EraseFirst(m_Items, id);
    return XBase::NodeDeath(id);
}

XBodyTable XNodeCollection::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tnum_items ", LinePerNumber(&XNodeCollection::m_Items)},
    };
    return {".\\src\\VKT\\NodeCollection", rows};
}

XPropertyTable XNodeCollection::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        NodeListField<&XNodeCollection::m_Items, kFnBone>(1, "items", kList),
    };
    return rows;
}

}  // namespace VKT
