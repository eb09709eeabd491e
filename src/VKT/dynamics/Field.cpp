#include "VKT/dynamics/Field.h"

#include "VKT/base/Logger.h"
#include "VKT/dynamics/ParticleShape.h"

namespace VKT {

bool XField::GetShapes(XNodeList& out) const
{
    ListNodesOf(*this, m_Shapes, kFnParticleShape, out);
    return !out.empty();
}

void XField::AddShape(u32 id)
{
    if (m_Shapes.empty() || m_Shapes.back() != id)  // a shape may list the field twice
        m_Shapes.push_back(id);
}

void XField::RemoveShape(u32 id)
{
    std::erase(m_Shapes, id);
}

bool XField::SetShapes(const XNodeList& shapes)
{
    XIndexList accepted;
    if (!ToIds(*this, shapes, kFnParticleShape, accepted))
        return false;
    XNodeList former;
    GetShapes(former);
    m_Shapes.clear();
    for (XBase* shape : former)
        XCast<XParticleShape>(shape)->RemoveField(this);
    for (XBase* shape : shapes)
        XCast<XParticleShape>(shape)->AddField(this);
    return true;
}

bool XField::NodeDeath(u32 id)
{
    RemoveShape(id);
    return XBone::NodeDeath(id);
}

bool XField::DoData(XFileIO& file)
{
    file.NoteIds(m_Shapes);
    return XNodeClass::DoData(file);
}

XBodyTable XField::TextBody()
{
    static constexpr const char* kVolumes[] = {"NONE", "CUBE", "CYLINDER", "CONE", "SPHERE", "TORUS"};
    static constexpr auto unknownVolume = [](XBase&, const XString& word) {
        GetLogger()->LogFormat(kWarning, "Unknown volume type for XField - \"%s\"", word.c_str());
    };
    // An empty line stands in front of each of the later keys.
    static constexpr XBodyRow rows[] = {
        {"\tmagnitude ", &XField::m_Magnitude},
        {"\tattenuation ", &XField::m_Attenuation},
        {"\tmax_distance ", &XField::m_MaxDistance},
        {"\tuse_max_distance ", &XField::m_UseMaxDistance},
        {"\tper_vertex ", &XField::m_PerVertex},
        Since(4, {"\n\tvolume_shape ", Word(&XField::m_VolumeShape, kVolumes, unknownVolume)}),
        Since(4, {"\n\tvolume_exclusion ", &XField::m_VolumeExclusion}),
        Since(4, {"\n\tvolume_offset ", &XField::m_VolumeOffset}),
        Since(4, {"\n\tvolume_sweep ", &XField::m_VolumeSweep}),
        Since(4, {"\n\tinner_radius ", &XField::m_InnerRadius}),
    };
    return {".\\src\\VKT\\Field", rows};
}

// Kept on purpose: the vocabulary has all that concerns the volume as bools, and calls some
// of it otherwise than files do. The accessors have the types of the fields.
XPropertyTable XField::Properties()
{
    static constexpr auto getShapes = [](const XBase& node, XNodeList& value) {
        As<XField>(node).GetShapes(value);
        return true;
    };
    static constexpr auto setShapes = [](XBase& node, const XNodeList& value) {
        return As<XField>(node).SetShapes(value);
    };
    static constexpr XPropertyInfo rows[] = {
        Field<&XField::m_Magnitude>(56, "magnitude", kAnimatable),
        Field<&XField::m_Attenuation>(57, "attenuation", kAnimatable),
        Field<&XField::m_MaxDistance>(58, "max_distance", kAnimatable),
        Field<&XField::m_UseMaxDistance>(59, "use_max_distance", kAnimatable),
        Field<&XField::m_PerVertex>(60, "per_vertex", kAnimatable),
        Computed<XNodeList>(61, "shapes", kList, getShapes, setShapes, kFnParticleShape),
        Field<&XField::m_VolumeExclusion>(62, "volume_exclusion"),
        ReportedAs(kPropertyBool, Field<&XField::m_VolumeOffset>(63, "volume_offset")),
        ReportedAs(kPropertyBool, Field<&XField::m_InnerRadius>(64, "section_radius")),
        ReportedAs(kPropertyBool, Field<&XField::m_VolumeSweep>(65, "sweep_angle")),
        ReportedAs(kPropertyBool, AsInteger<&XField::m_VolumeShape>(66, "volume_type")),
    };
    return rows;
}

}  // namespace VKT
