#include "VKT/animation/AnimationTake.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "VKT/base/Logger.h"
#include "VKT/document/Model.h"
#include "VKT/stream/BlockReader.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {
namespace {

constexpr const char* kSource = ".\\src\\VKT\\AnimationTake";

}  // namespace

XBodyTable XAnimationTake::TextBody()
{
    // clang-format off
    static constexpr XBodyRow rows[] = {
        {"\tstart_time ",   &XAnimationTake::m_StartTime},
        {"\tend_time ",     &XAnimationTake::m_EndTime},
        {"\tfps ",          &XAnimationTake::m_FramesPerSecond},
        {"\tcurrent_time ", &XAnimationTake::m_CurrentTime},
    };
    // clang-format on
    return {kSource, rows};
}

// The frames from start to end, both included, as far as a u32 goes.
u32 XAnimationTake::CountFrames() const
{
    constexpr u32 most = std::numeric_limits<u32>::max();
    const f32 frames = std::ceil(m_EndTime - m_StartTime) + 1.0f;
    if (!(frames > 0.0f))
        return 0;
    return frames < static_cast<f32>(most) ? static_cast<u32>(frames) : most;
}

XAnimatedNode* XAnimationTake::GetAnimatedNode(u32 i) const
{
    return i < m_AnimatedNodes.size() ? m_AnimatedNodes[i].get() : nullptr;
}

XAnimatedNode* XAnimationTake::FindNodeAnimation(u32 nodeId) const
{
    const auto found = m_FirstEntries.find(nodeId);
    return found == m_FirstEntries.end() ? nullptr : found->second;
}

XAnimatedNode* XAnimationTake::CreateNodeAnimation(const XBase* node)
{
    if (!node)
        return nullptr;
    XAnimatedNode* const found = GetModel()->Holds(*node) ? FindNodeAnimation(node->GetID()) : nullptr;
    return found ? found : Append(std::make_unique<XAnimatedNode>(*this, node->GetID()));
}

bool XAnimationTake::RemoveNodeAnimation(const XAnimatedNode* entry)
{
    const auto found = std::find_if(m_AnimatedNodes.begin(), m_AnimatedNodes.end(),
                                    [=](const auto& own) { return own.get() == entry; });
    if (found == m_AnimatedNodes.end())
        return false;
    Erase(found);
    return true;
}

XAnimatedNode* XAnimationTake::Append(std::unique_ptr<XAnimatedNode> entry)
{
    XAnimatedNode* const added = m_AnimatedNodes.emplace_back(std::move(entry)).get();
    m_FirstEntries.try_emplace(added->GetNodeId(), added);
    return added;
}

void XAnimationTake::Erase(XEntries::const_iterator place)
{
    const XAnimatedNode* const entry = place->get();
    const u32 id = entry->GetNodeId();
    const bool isFirst = FindNodeAnimation(id) == entry;
    const auto behind = m_AnimatedNodes.erase(place);
    if (!isFirst)
        return;
    const auto next = std::find_if(behind, m_AnimatedNodes.end(),
                                   [=](const auto& other) { return other->GetNodeId() == id; });
    if (next == m_AnimatedNodes.end())
        m_FirstEntries.erase(id);
    else
        m_FirstEntries[id] = next->get();
}

void XAnimationTake::RemoveAll()
{
    m_AnimatedNodes.clear();
    m_FirstEntries.clear();
}

// Kept on purpose: the connections of the take itself stay, and so do further entries of
// the node.
bool XAnimationTake::NodeDeath(u32 id)
{
    if (const XAnimatedNode* entry = FindNodeAnimation(id))
        RemoveNodeAnimation(entry);
    return true;
}

bool XAnimationTake::DoData(XFileIO& file)
{
    if (!XBase::DoData(file))
        return false;
    // Number by number: one that comes short does not end the body.
    const XBodyTable body = BinaryBody();
    for (const XBodyRow& row : body.rows)
        DoBinaryBody(*this, {body.source, {&row, 1}}, file);
    u32 count = GetNumAnimatedNodes();
    u32 numEventTracks = 0;
    file.DoData(count);
    file.DoData(numEventTracks);
    if (file.IsReading()) {
        m_NumFrames = CountFrames();
        RemoveAll();
    }
    for (u32 i = 0; i < count && !file.IsAtEnd(); ++i) {
        if (file.IsWriting()) {
            if (!m_AnimatedNodes[i]->DoData(file))
                return false;
            continue;
        }
        auto entry = std::make_unique<XAnimatedNode>(*this, 0);
        if (!entry->DoData(file))
            return false;
        Append(std::move(entry));
    }
    return true;
}

bool XAnimationTake::WriteChunk(XTextWriter& out) const
{
    if (!XNodeClass::WriteChunk(out))
        return false;
    const auto isThere = [](const auto& entry) { return entry->GetNode() != nullptr; };
    const auto count = std::count_if(m_AnimatedNodes.begin(), m_AnimatedNodes.end(), isThere);
    if (const auto lost = std::ssize(m_AnimatedNodes) - count)
        GetLogger()->LogFormat(kWarning,
                               "take \"%s\": %d animated nodes are not in the document and are left out",
                               GetName(), static_cast<int>(lost));
    out << "\tnum_animated_nodes " << static_cast<u32>(count) << '\n';
    out << "\tnum_event_tracks 0\n";
    for (const auto& entry : m_AnimatedNodes)
        if (isThere(entry))
            entry->WriteChunk(out);
    return out.IsGood();
}

bool XAnimationTake::ReadFields(XTextReader& in)
{
    if (!XNodeClass::ReadFields(in))
        return false;
    XBlockReader block(in, kSource, TextBody().rows.size());
    u32 count = 0;
    u32 numEventTracks = 0;
    if (!block.Read("num_animated_nodes", count))
        return false;
    m_NumFrames = CountFrames();
    if (!block.Read("num_event_tracks", numEventTracks))
        return false;
    RemoveAll();
    for (u32 i = 0; i < count; ++i) {
        auto entry = std::make_unique<XAnimatedNode>(*this, 0);
        if (!entry->ReadChunk(block))
            return false;
        Append(std::move(entry));
    }
    CleanOwnName();
    return true;
}

}  // namespace VKT
