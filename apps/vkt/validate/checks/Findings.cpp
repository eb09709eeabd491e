#include "validate/checks/Findings.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "VKT/animation/AnimCycle.h"
#include "VKT/document/Model.h"

namespace tool {

void Findings::Warn(const VKT::XBase* node, std::string text)
{
    m_Findings.push_back({Severity::kWarning, node, std::move(text)});
}

void Findings::Fail(const VKT::XBase* node, std::string text)
{
    m_Findings.push_back({Severity::kError, node, std::move(text)});
}

std::vector<Finding> Findings::TakeByNode(const VKT::XModel& model)
{
    std::unordered_map<const VKT::XBase*, std::size_t> places{{nullptr, 0}};
    for (const auto& [name, node] : model.GetNodes())
        places.emplace(node, places.size());
    for (const auto& cycle : model.GetCycles())
        places.emplace(cycle.get(), places.size());
    std::stable_sort(m_Findings.begin(), m_Findings.end(), [&](const Finding& a, const Finding& b) {
        return places.at(a.node) < places.at(b.node);
    });
    return std::exchange(m_Findings, {});
}

std::string BadValues::Text() const
{
    return m_Count > 1 ? m_First + " (and " + std::to_string(m_Count - 1) + " more)" : m_First;
}

}  // namespace tool
