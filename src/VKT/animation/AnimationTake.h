#pragma once

#include <unordered_map>

#include "VKT/animation/AnimatedNode.h"
#include "VKT/base/IdMap.h"
#include "VKT/node/NodeClass.h"

namespace VKT {

// One named clip: for each animated node its animated attributes, and for each of those
// its values as a pose, samples or curves. Event tracks have a place in the file and no
// content: their count is 0.
//
// Start, end and current time are in frames of the take's own rate.
class XAnimationTake final : public XNodeClass<XAnimationTake, XBase, kFnAnimationTake> {
public:
    using XNodeClass::XNodeClass;

    f32 GetStartTime() const { return m_StartTime; }
    void SetStartTime(f32 time) { m_StartTime = time; }
    f32 GetEndTime() const { return m_EndTime; }
    void SetEndTime(f32 time) { m_EndTime = time; }
    f32 GetFramesPerSecond() const { return m_FramesPerSecond; }
    void SetFramesPerSecond(f32 rate) { m_FramesPerSecond = rate; }
    f32 GetCurrentTime() const { return m_CurrentTime; }
    void SetCurrentTime(f32 time) { m_CurrentTime = time; }
    // Frames of a new table of samples. A read derives it from the times, and each table
    // that is read sets it to its own number.
    u32 GetNumFrames() const { return m_NumFrames; }
    void SetNumFrames(u32 frames) { m_NumFrames = frames; }

    u32 GetNumAnimatedNodes() const { return static_cast<u32>(m_AnimatedNodes.size()); }
    // Null beyond the last one.
    XAnimatedNode* GetAnimatedNode(u32 i) const;
    // The first entry of the node of that id, or null.
    XAnimatedNode* FindNodeAnimation(u32 nodeId) const;
    // The entry of the node, made when it has none. A node of another document gets a new
    // one each time. Null for null.
    XAnimatedNode* CreateNodeAnimation(const XBase* node);
    // Removes an entry with all it holds; false when it is none of this take's.
    bool RemoveNodeAnimation(const XAnimatedNode* entry);

    // Drops the first entry of the node. Always true.
    bool NodeDeath(u32 id) override;
    // Each number that comes short is logged, and the read goes on; behind the end of the
    // file it looks for no more nodes, attributes or streams. A stream that comes short
    // fails it.
    bool DoData(XFileIO& file) override;
    // Animated nodes that the document does not hold are left out, with a warning.
    bool WriteChunk(XTextWriter& out) const override;
    bool ReadFields(XTextReader& in) override;

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }

private:
    using XEntries = XVector<std::unique_ptr<XAnimatedNode>>;

    XAnimatedNode* Append(std::unique_ptr<XAnimatedNode> entry);
    void Erase(XEntries::const_iterator place);
    void RemoveAll();
    u32 CountFrames() const;

    f32 m_StartTime = 0.0f;
    f32 m_EndTime = 0.0f;
    f32 m_FramesPerSecond = 0.0f;
    f32 m_CurrentTime = 0.0f;
    u32 m_NumFrames = 0;
    XEntries m_AnimatedNodes;
    // The first entry of each node id, so that no node is looked for along the list.
    std::unordered_map<u32, XAnimatedNode*, XIdHash> m_FirstEntries;
};

}  // namespace VKT
