#include "VKT/rigging/Constraint.h"

#include "VKT/base/Logger.h"
#include "VKT/document/Model.h"
#include "VKT/stream/BlockReader.h"
#include "VKT/stream/NodeName.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {
namespace {

constexpr const char* kSource = ".\\src\\VKT\\Constraint";

}  // namespace

XBase* XConstraint::GetConstrained() const
{
    return GetModel()->FindNode(m_Constrained);
}

void XConstraint::SetConstrained(const XBase* node)
{
    m_Constrained = node ? node->GetID() : 0;
}

bool XConstraint::AddTarget(const XBase* target, const XString& name, f32 weight)
{
    if (!target || target->GetModel() != GetModel())
        return false;
    m_Targets.push_back(target->GetID());
    m_TargetNames.push_back(name);
    m_Weights.push_back(weight);
    return true;
}

XBase* XConstraint::GetTarget(u32 i) const
{
    return i < GetNumTargets() ? GetModel()->FindNode(m_Targets[i]) : nullptr;
}

bool XConstraint::SetWeight(u32 i, f32 weight)
{
    if (i >= GetNumTargets())
        return false;
    m_Weights[i] = weight;
    return true;
}

// Names and weights stay at their places; those of further targets are empty and 1.
bool XConstraint::SetTargets(const XNodeList& targets)
{
    if (!ToIds(*this, targets, kFnBase, m_Targets))
        return false;
    m_TargetNames.resize(m_Targets.size());
    m_Weights.resize(m_Targets.size(), 1.0f);
    return true;
}

bool XConstraint::SetWeights(const XFloatArray& weights)
{
    if (weights.size() != m_Targets.size()) {
        GetLogger()->LogFormat(
            kError, "Number of target weights is not equal to the number of targets - %s.weights", GetName());
        return false;
    }
    m_Weights = weights;
    return true;
}

bool XConstraint::NodeDeath(u32 id)
{
    std::size_t kept = 0;
    for (std::size_t i = 0; i < m_Targets.size(); ++i) {
        if (m_Targets[i] == id)
            continue;
        m_Targets[kept] = m_Targets[i];
        std::swap(m_TargetNames[kept], m_TargetNames[i]);
        m_Weights[kept] = m_Weights[i];
        ++kept;
    }
    m_Targets.resize(kept);
    m_TargetNames.resize(kept);
    m_Weights.resize(kept);
    if (m_Constrained == id)
        m_Constrained = 0;
    return XBone::NodeDeath(id);
}

bool XConstraint::DoData(XFileIO& file)
{
    if (!XNodeClass::DoData(file) || !file.DoId(m_Constrained) || !file.DoIds(m_Targets) ||
        !file.DoData(m_Weights) || !file.DoData(m_TargetNames))
        return false;
    if (file.IsReading())
        MatchTargets();
    return true;
}

// The lists of a damaged file may differ in length.
void XConstraint::MatchTargets()
{
    const std::size_t count = m_Targets.size();
    if (m_Weights.size() == count && m_TargetNames.size() == count)
        return;
    GetLogger()->LogFormat(kWarning, "constraint \"%s\" has %d targets, but %d weights and %d names",
                           GetName(), static_cast<int>(count), static_cast<int>(m_Weights.size()),
                           static_cast<int>(m_TargetNames.size()));
    m_Weights.resize(count, 0.0f);
    m_TargetNames.resize(count);
}

void XConstraint::DoCopy(const XBase* source)
{
    const XConstraint* other = XCast<XConstraint>(source);
    if (!other)
        return;
    XNodeClass::DoCopy(source);
    m_Constrained = other->m_Constrained;
    m_Targets = other->m_Targets;
    m_TargetNames = other->m_TargetNames;
    m_Weights = other->m_Weights;
}

bool XConstraint::WriteChunk(XTextWriter& out) const
{
    if (!XNodeClass::WriteChunk(out))
        return false;
    out << "\taffected " << XNodeId{m_Constrained} << "\n\tnum_targets " << GetNumTargets() << '\n';
    for (std::size_t i = 0; i < m_Targets.size(); ++i)
        out << "\t\t" << XNodeId{m_Targets[i]} << ' ' << NameAsToken(m_TargetNames[i]) << ' ' << m_Weights[i]
            << '\n';
    return out.IsGood();
}

bool XConstraint::ReadFields(XTextReader& in)
{
    if (!XNodeClass::ReadFields(in))
        return false;
    XBlockReader block(in, kSource);
    u32 count = 0;
    if (!block.Read("affected", m_Constrained) || !block.Read("num_targets", count))
        return false;
    m_Targets.clear();
    m_TargetNames.clear();
    m_Weights.clear();
    for (u32 i = 0; i < count && in.IsGood(); ++i) {
        in.Read(m_Targets.emplace_back());
        in.ReadToken(m_TargetNames.emplace_back());
        in.Read(m_Weights.emplace_back());
    }
    return true;
}

XPropertyTable XConstraint::Properties()
{
    static constexpr auto getWeights = [](const XBase& node, XFloatArray& value) {
        value = As<XConstraint>(node).m_Weights;
        return true;
    };
    static constexpr auto setWeights = [](XBase& node, const XFloatArray& value) {
        return As<XConstraint>(node).SetWeights(value);
    };
    static constexpr auto getTargets = [](const XBase& node, XNodeList& value) {
        ListNodesOf(node, As<XConstraint>(node).m_Targets, kFnBase, value);
        return true;
    };
    static constexpr auto setTargets = [](XBase& node, const XNodeList& value) {
        return As<XConstraint>(node).SetTargets(value);
    };
    static constexpr auto getConstrained = [](const XBase& node, XBase*& value) {
        value = As<XConstraint>(node).GetConstrained();
        return true;
    };
    static constexpr auto setConstrained = [](XBase& node, XBase* const& value) {
        if (!AcceptsNode(node, value, kFnBase))
            return false;
        As<XConstraint>(node).SetConstrained(value);
        return true;
    };
    static constexpr XPropertyInfo rows[] = {
        Computed<XFloatArray>(56, "weights", kAnimatable, getWeights, setWeights),
        Computed<XNodeList>(57, "targets", kList, getTargets, setTargets, kFnBone),
        Computed<XBase*>(58, "constrained", 0, getConstrained, setConstrained, kFnBone),
    };
    return rows;
}

}  // namespace VKT
