#include "validate/checks/Rings.h"

#include <algorithm>
#include <unordered_map>

#include "VKT/node/Base.h"

namespace tool {
namespace {

constexpr std::size_t kShownNodes = 6;
constexpr std::size_t kLeft = static_cast<std::size_t>(-1);  // all edges of the node were walked

struct Step {
    const VKT::XBase* node;
    std::vector<const VKT::XBase*> next;
    std::size_t walked = 0;
};

class RingWalk {
public:
    explicit RingWalk(const EdgeLister& listEdges) : m_ListEdges(listEdges) {}

    void WalkFrom(const VKT::XBase* start)
    {
        if (m_Depths.contains(start))
            return;
        Enter(start);
        while (!m_Way.empty()) {
            Step& step = m_Way.back();
            if (step.walked == step.next.size()) {
                m_Depths[step.node] = kLeft;
                m_Way.pop_back();
                continue;
            }
            const VKT::XBase* next = step.next[step.walked++];
            const auto found = m_Depths.find(next);
            if (found == m_Depths.end())
                Enter(next);
            else if (found->second != kLeft)
                m_Rings.push_back(RingFrom(found->second));
        }
    }
    std::vector<Ring> TakeRings() { return std::move(m_Rings); }

private:
    void Enter(const VKT::XBase* node)
    {
        m_Depths[node] = m_Way.size();
        m_ListEdges(*node, m_Way.emplace_back(Step{node, {}}).next);
    }
    Ring RingFrom(std::size_t depth) const
    {
        Ring ring;
        ring.length = m_Way.size() - depth;
        for (std::size_t i = 0; i < std::min(ring.length, kShownNodes); ++i)
            ring.begin.push_back(m_Way[depth + i].node);
        return ring;
    }

    const EdgeLister& m_ListEdges;
    std::vector<Step> m_Way;
    std::unordered_map<const VKT::XBase*, std::size_t> m_Depths;  // on the way, or kLeft
    std::vector<Ring> m_Rings;
};

}  // namespace

std::string Ring::Text() const
{
    std::string text;
    for (const VKT::XBase* node : begin)
        text.append(node->GetName()).append(" > ");
    if (length > begin.size())
        text += "... > ";
    text += begin.front()->GetName();
    return length > begin.size() ? text + " (" + std::to_string(length) + " nodes)" : text;
}

std::vector<Ring> FindRings(const std::vector<const VKT::XBase*>& starts, const EdgeLister& listEdges)
{
    RingWalk walk(listEdges);
    for (const VKT::XBase* start : starts)
        walk.WalkFrom(start);
    return walk.TakeRings();
}

}  // namespace tool
