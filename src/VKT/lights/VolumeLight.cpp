#include "VKT/lights/VolumeLight.h"

#include "VKT/stream/BlockReader.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {
namespace {

constexpr const char* kSource = ".\\src\\VKT\\VolumeLight";

}  // namespace

XVolumeLight::XVolumeLight(XModel* model) : XNodeClass(model)
{
    m_ColourRamp.AddColourKey(0, {0, 0, 0, 1}, kRampNone);
    m_ColourRamp.AddColourKey(1, {1, 1, 1, 1}, kRampNone);
    m_PenumbraRamp.AddFloatKey(0, 0, kRampNone);
    m_PenumbraRamp.AddFloatKey(1, 1, kRampNone);
}

bool XVolumeLight::DoData(XFileIO& file)
{
    return XNodeClass::DoData(file) && m_ColourRamp.DoData(file) && m_PenumbraRamp.DoData(file);
}

void XVolumeLight::DoCopy(const XBase* source)
{
    const XVolumeLight* other = XCast<XVolumeLight>(source);
    if (!other)
        return;
    XNodeClass::DoCopy(source);
    m_ColourRamp = other->m_ColourRamp;
    m_PenumbraRamp = other->m_PenumbraRamp;
}

bool XVolumeLight::WriteChunk(XTextWriter& out) const
{
    if (!XNodeClass::WriteChunk(out))
        return false;
    out << "\tcolor_ramp ";
    m_ColourRamp.Write(out);
    out << "\tpenumbra_ramp ";
    m_PenumbraRamp.Write(out);
    return out.IsGood();
}

bool XVolumeLight::ReadFields(XTextReader& in)
{
    XBlockReader block(in, kSource, TextBody().rows.size());
    return XNodeClass::ReadFields(in) &&                           //
           block.Expect("color_ramp") && m_ColourRamp.Read(in) &&  //
           block.Expect("penumbra_ramp") && m_PenumbraRamp.Read(in);
}

XBodyTable XVolumeLight::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tarc\t", &XVolumeLight::m_Arc},
        {"\tcone_end_radius\t", &XVolumeLight::m_ConeEndRadius},
    };
    return {kSource, rows};
}

XPropertyTable XVolumeLight::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XVolumeLight::m_Arc>(14, "arc", kAnimatable),
        Field<&XVolumeLight::m_ConeEndRadius>(15, "cone_end_radius", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
