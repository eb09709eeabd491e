#pragma once

#include <memory>

#include "VKT/animation/AnimatedAttribute.h"

namespace VKT {

// The animation of one node in a take.
class XAnimatedNode {
public:
    XAnimatedNode(XAnimationTake& take, u32 nodeId) : m_NodeId(nodeId), m_Take(&take) {}
    XAnimatedNode(const XAnimatedNode&) = delete;
    XAnimatedNode& operator=(const XAnimatedNode&) = delete;

    u32 GetNodeId() const { return m_NodeId; }
    // The animated node, null when the document has none of that id.
    XBase* GetNode() const;
    XAnimationTake& GetTake() const { return *m_Take; }

    u32 GetNumAttributes() const { return static_cast<u32>(m_Attributes.size()); }
    // Null beyond the last one.
    XAnimatedAttribute* GetAttribute(u32 i) const;
    // Animates an attribute, by its number in the vocabulary of the node's class. Null
    // when the node is gone, or the attribute cannot be animated. A second call for one
    // number adds a second entry.
    XAnimatedAttribute* CreateAttribute(u32 attributeId);

    // The `ANIM_NODE` block. Attributes whose names the node does not know are left out,
    // with a warning.
    bool ReadChunk(XBlockReader block);
    bool WriteChunk(XTextWriter& out) const;
    // In both directions; see `XAnimatedAttribute::DoData`.
    bool DoData(XFileIO& file);

private:
    u32 m_NodeId;
    XVector<std::unique_ptr<XAnimatedAttribute>> m_Attributes;
    u32 m_NumUserAttributes = 0;  // a count without content, carried along
    XAnimationTake* m_Take;
};

}  // namespace VKT
