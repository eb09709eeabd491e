#pragma once

#include "VKT/node/NodeClass.h"

namespace VKT {

// The base of named lists of nodes. What membership means is the consumer's.
class XNodeCollection : public XNodeClass<XNodeCollection, XBase, kFnNodeCollection> {
public:
    using XNodeClass::XNodeClass;

    u32 GetNumItems() const { return static_cast<u32>(m_Items.size()); }
    // A node may be listed more than once. False for null and for a node of another document.
    bool AddItem(const XBase* node);
    // Removes the first entry of the node. False when there is none.
    bool RemoveItem(const XBase* node);
    bool HasItem(const XBase* node) const;
    // Fills `out` with the nodes that the document still holds. Answers whether there are any.
    bool GetItems(XNodeList& out) const;

    bool NodeDeath(u32 id) override;

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    XIndexList m_Items;
};

}  // namespace VKT
