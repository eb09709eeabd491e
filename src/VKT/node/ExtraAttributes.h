#pragma once

#include <memory>

#include "VKT/node/Attribute.h"

namespace VKT {

// The attributes that users hung on a node, in the order of their creation.
class XExtraAttributes {
public:
    XExtraAttributes() = default;
    XExtraAttributes(const XExtraAttributes& other) { Copy(other); }
    XExtraAttributes& operator=(const XExtraAttributes&) = delete;

    // A new attribute at the end. Names are not compared here.
    XAttribute* Add(const XString& name);
    // The attribute of exactly this name, or null.
    XAttribute* Find(std::string_view name) const;
    void ListNames(XStringList& names) const;
    // Replaces the attributes by copies of those of `other`, connections included.
    void Copy(const XExtraAttributes& other);
    const XVector<std::unique_ptr<XAttribute>>& GetAttributes() const { return m_Attributes; }
    // Appends the ids of the nodes at the other ends of all connections.
    void ListConnected(XIndexList& ids) const;
    void NodeDeath(XModel& model, u32 id);

    // The blocks `EXTRA_ATTRIBUTES` and, when there is a connection anywhere,
    // `CONNECTIONS`.
    void Write(XTextWriter& out, const XModel& model) const;
    // Read the blocks behind their keys. A failure ends the block and leaves the input
    // where it is: the node's trailer passes over the rest.
    void ReadAttributes(XTextReader& in);
    void ReadConnections(XTextReader& in);
    // u32 count and the attributes, in both directions.
    bool DoData(XFileIO& file);

private:
    bool ReadConnection(XTextReader& in);

    XVector<std::unique_ptr<XAttribute>> m_Attributes;
};

}  // namespace VKT
