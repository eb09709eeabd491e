#include "VKT/deformers/BlendShape.h"

#include <algorithm>

#include "VKT/document/Model.h"
#include "VKT/geometry/Geometry.h"
#include "VKT/stream/BlockReader.h"
#include "VKT/stream/NodeName.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {
namespace {

constexpr const char* kSource = ".\\src\\VKT\\BlendShape";

}  // namespace

bool XBlendShape::SetBase(XBase* geometry)
{
    if (!XCast<XGeometry>(geometry) || geometry->GetModel() != GetModel())
        return false;
    m_Affected.assign(1, geometry->GetID());
    return true;
}

XGeometry* XBlendShape::GetBase() const
{
    return XCast<XGeometry>(GetAffected(0));
}

bool XBlendShape::AddTarget(const XVector3Array& points, const XString& name)
{
    if (std::any_of(m_Targets.begin(), m_Targets.end(),
                    [&](const auto& target) { return target->m_Name == name; }))
        return false;
    XBlendTarget& target = *m_Targets.emplace_back(std::make_unique<XBlendTarget>());
    target.m_Points = points;
    target.m_Name = name;
    return true;
}

bool XBlendShape::SetTargets(const XNodeList& geometries)
{
    XVector<std::unique_ptr<XBlendTarget>> targets;
    for (const XBase* node : geometries) {
        const XGeometry* const geometry = XCast<XGeometry>(node);
        if (!geometry || geometry->GetModel() != GetModel())
            return false;
        XBlendTarget& target = *targets.emplace_back(std::make_unique<XBlendTarget>());
        target.m_TargetId = geometry->GetID();
        target.m_Points = geometry->GetPoints();
        target.m_Name = geometry->GetName();
    }
    m_Targets = std::move(targets);
    return true;
}

XGeometry* XBlendShape::GetTarget(u32 i) const
{
    if (i >= m_Targets.size())
        return nullptr;
    XBase* const byId = GetModel()->FindNode(m_Targets[i]->m_TargetId);
    return XCast<XGeometry>(byId ? byId : GetModel()->FindNode(m_Targets[i]->m_Name));
}

bool XBlendShape::GetTargetName(u32 i, XString& out) const
{
    if (i >= m_Targets.size())
        return false;
    out = m_Targets[i]->m_Name;
    return true;
}

void XBlendShape::SetWeight(u32 i, f32 weight)
{
    if (i < m_Targets.size())
        m_Targets[i]->m_Weight = weight;
}

void XBlendShape::DoCopy(const XBase* source)
{
    const XBlendShape* other = XCast<XBlendShape>(source);
    if (!other || other == this)
        return;
    XNodeClass::DoCopy(source);
    m_Targets.clear();
    for (const auto& target : other->m_Targets)
        m_Targets.push_back(std::make_unique<XBlendTarget>(*target));
}

bool XBlendShape::DoData(XFileIO& file)
{
    const bool isOld = file.IsBelow(4);
    return XNodeClass::DoData(file) && DoTargets(file, isOld);
}

// Files below version 4 have all names in front of the number of targets, and neither ids
// nor weights.
bool XBlendShape::DoTargets(XFileIO& file, bool isOld)
{
    XStringList oldNames;
    if (isOld && !DoNames(file, oldNames))
        return false;
    const auto makeTarget = [&] {
        auto target = std::make_unique<XBlendTarget>();
        if (m_Targets.size() < oldNames.size())
            target->m_Name = oldNames[m_Targets.size()];
        return target;
    };
    const auto doTarget = [&](XBlendTarget& target) {
        return (isOld || (file.DoData(target.m_Name) && file.DoId(target.m_TargetId) &&
                          file.DoData(target.m_Weight))) &&
               file.DoData(target.m_Points);
    };
    const u64 leastBytes = isOld ? 4 : 14;  // of a target without name and points
    return file.DoEach(m_Targets, leastBytes, makeTarget, doTarget);
}

bool XBlendShape::DoNames(XFileIO& file, XStringList& names) const
{
    for (const auto& target : m_Targets)
        names.push_back(target->m_Name);
    return file.DoData(names) != 0;
}

bool XBlendShape::WriteChunk(XTextWriter& out) const
{
    if (!XNodeClass::WriteChunk(out))
        return false;
    out << "\tnum_shapes " << GetNumTargets() << '\n';
    for (const auto& target : m_Targets) {
        out << '\t' << NameAsToken(target->m_Name) << ' ' << XNodeId{target->m_TargetId} << ' '
            << target->m_Weight << "\n\t\tpoints " << static_cast<u32>(target->m_Points.size()) << '\n';
        out.WriteRows(target->m_Points, {"\t\t"});
    }
    return out.IsGood();
}

bool XBlendShape::ReadFields(XTextReader& in)
{
    if (!XNodeClass::ReadFields(in))
        return false;
    XBlockReader block(in, kSource);
    u32 count = 0;
    if (!block.Read("num_shapes", count))
        return false;
    const bool isOld = in.IsBelow(4);
    m_Targets.clear();
    for (u32 i = 0; i < count; ++i) {
        XBlendTarget& target = *m_Targets.emplace_back(std::make_unique<XBlendTarget>());
        in.ReadToken(target.m_Name);
        if (!isOld) {
            in.Read(target.m_TargetId);
            in.Read(target.m_Weight);
        }
        u32 numPoints = 0;
        if (!XBlockReader(block).Read("points", numPoints))
            return false;
        in.ReadNumbers(target.m_Points, numPoints);
    }
    return true;
}

// Kept on purpose: the vocabulary calls the targets and the base float arrays.
XPropertyTable XBlendShape::Properties()
{
    static constexpr auto getWeights = [](const XBase& node, XFloatArray& value) {
        value.clear();
        for (const auto& target : As<XBlendShape>(node).m_Targets)
            value.push_back(target->m_Weight);
        return true;
    };
    static constexpr auto setWeights = [](XBase& node, const XFloatArray& value) {
        auto& targets = As<XBlendShape>(node).m_Targets;
        if (value.size() != targets.size())
            return false;
        for (std::size_t i = 0; i < targets.size(); ++i)
            targets[i]->m_Weight = value[i];
        return true;
    };
    static constexpr auto getTargets = [](const XBase& node, XNodeList& value) {
        const XBlendShape& shape = As<XBlendShape>(node);
        value.clear();
        for (u32 i = 0; i < shape.GetNumTargets(); ++i)
            value.push_back(shape.GetTarget(i));
        return true;
    };
    static constexpr auto setTargets = [](XBase& node, const XNodeList& value) {
        return As<XBlendShape>(node).SetTargets(value);
    };
    static constexpr auto getBase = [](const XBase& node, XBase*& value) {
        value = As<XBlendShape>(node).GetBase();
        return true;
    };
    static constexpr auto setBase = [](XBase& node, XBase* const& value) {
        return As<XBlendShape>(node).SetBase(value);
    };
    static constexpr XPropertyInfo rows[] = {
        Computed<XFloatArray>(3, "weights", kAnimatable, getWeights, setWeights),
        ReportedAs(kPropertyFloatArray, Computed<XNodeList>(4, "targets", kList, getTargets, setTargets)),
        ReportedAs(kPropertyFloatArray, Computed<XBase*>(5, "base_shape", 0, getBase, setBase)),
    };
    return rows;
}

}  // namespace VKT
