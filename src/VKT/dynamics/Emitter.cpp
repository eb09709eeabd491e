#include "VKT/dynamics/Emitter.h"

#include "VKT/base/Logger.h"
#include "VKT/document/Model.h"
#include "VKT/dynamics/ParticleShape.h"

namespace VKT {
namespace {

constexpr const char* kSource = ".\\src\\VKT\\Emitter";

}  // namespace

XParticleShape* XEmitter::GetShape() const
{
    return XCast<XParticleShape>(GetModel()->FindNode(m_Shape));
}

bool XEmitter::SetShape(XBase* shape)
{
    if (!AcceptsNode(*this, shape, kFnParticleShape))
        return false;
    Feed(shape ? shape->GetID() : 0);
    return true;
}

void XEmitter::Feed(u32 shape)
{
    if (XParticleShape* former = GetShape())
        std::erase(former->m_Emitters, GetID());
    m_Shape = shape;
    Link();
}

void XEmitter::PostLoad()
{
    XBone::PostLoad();
    Link();
}

void XEmitter::Link()
{
    if (XParticleShape* shape = GetShape())
        shape->m_Emitters.push_back(GetID());
}

XBase* XEmitter::GetEmitterObject() const
{
    return GetModel()->FindNode(m_EmitterObject);
}

bool XEmitter::SetEmitterObject(const XBase* object)
{
    if (!AcceptsNode(*this, object, kFnBase))
        return false;
    m_EmitterObject = object ? object->GetID() : 0;
    return true;
}

XBase* XEmitter::GetEmitterTransform() const
{
    return GetModel()->FindNode(m_EmitterTransform);
}

bool XEmitter::SetEmitterTransform(const XBase* transform)
{
    if (!AcceptsNode(*this, transform, kFnBase))
        return false;
    m_EmitterTransform = transform ? transform->GetID() : 0;
    return true;
}

bool XEmitter::NodeDeath(u32 id)
{
    return id != m_Shape && XBone::NodeDeath(id);
}

void XEmitter::DoCopy(const XBase* source)
{
    const XEmitter* other = XCast<XEmitter>(source);
    if (!other || other == this)
        return;
    const u32 shape = m_Shape;
    XNodeClass::DoCopy(source);
    m_Shape = shape;
    if (GetModel()->GetCopyFlags().Test(CopyParticleLinks))
        Feed(other->m_Shape);
}

bool XEmitter::ReadFields(XTextReader& in)
{
    m_ParticleColour.a = 1.0f;
    return XNodeClass::ReadFields(in);
}

XBodyTable XEmitter::TextBody()
{
    static constexpr const char* kTypes[] = {"OMNI", "DIRECTIONAL", "GEOMETRY", "VOLUME"};
    static constexpr const char* kVolumes[] = {"CUBE", "SPHERE", "CYLINDER", "CONE", "TORUS", "DISC", "GRID"};
    static constexpr auto unknownType = [](XBase& node, const XString& word) {
        GetLogger()->LogFormat(kWarning, "Unknown emitter type, \"%s\" when reading chunk \"%s\"",
                               word.c_str(), As<XEmitter>(node).ChunkKey().c_str());
    };
    static constexpr auto unknownVolume = [](XBase& node, const XString& word) {
        GetLogger()->LogFormat(kWarning, "Unknown volume type, \"%s\" when reading chunk \"%s\"",
                               word.c_str(), As<XEmitter>(node).ChunkKey().c_str());
    };
    // clang-format off
    static constexpr XBodyRow rows[] = {
        { "\tshape ",           NodeId(&XEmitter::m_Shape) },
        { "\trate ",            &XEmitter::m_Rate },
        { "\tmax_distance ",    &XEmitter::m_MaxDistance },
        { "\tmin_distance ",    &XEmitter::m_MinDistance },
        { "\tdirection ",       &XEmitter::m_Direction },
        { "\tspread ",          &XEmitter::m_Spread },
        { "\tparticle_colour ", FirstThree(&XEmitter::m_ParticleColour) },
        Since(4, { "\temitter_type ",      Word(&XEmitter::m_EmitterType, kTypes, unknownType) }),
        Since(4, { "\temitter_object ",    NodeId(&XEmitter::m_EmitterObject) }),
        Since(4, { "\temitter_transform ", NodeId(&XEmitter::m_EmitterTransform) }),
        Since(4, { "\tvolume_shape ",      Word(&XEmitter::m_VolumeShape, kVolumes, unknownVolume) }),
        Since(4, { "\tvolume_offset ",     &XEmitter::m_VolumeOffset }),
        Since(4, { "\tvolume_sweep ",      &XEmitter::m_VolumeSweep }),
        Since(4, { "\tinner_radius ",      &XEmitter::m_InnerRadius }),
        Since(4, { "\tspeed ",             &XEmitter::m_Speed }),
        Since(4, { "\tspeed_random ",      &XEmitter::m_SpeedRandom }),
        Since(4, { "\tsize ",              &XEmitter::m_Size }),
        Since(4, { "\tsize_random ",       &XEmitter::m_SizeRandom }),
        Since(4, { "\tmass ",              &XEmitter::m_Mass }),
        Since(4, { "\tmass_random ",       &XEmitter::m_MassRandom }),
        Since(4, { "\talpha ",             &XEmitter::m_Alpha }),
        Since(4, { "\talpha_random ",      &XEmitter::m_AlphaRandom }),
        Since(4, { "\thue_offset ",        &XEmitter::m_HueOffset }),
        Since(4, { "\tsaturation_offset ", &XEmitter::m_SaturationOffset }),
        Since(4, { "\tluminance_offset ",  &XEmitter::m_LuminanceOffset }),
    };
    // clang-format on
    return {kSource, rows};
}

// Not the text order: all four floats of the colour, a nameless float behind the sweep, and
// mass, size, speed.
XBodyTable XEmitter::BinaryBody()
{
    // clang-format off
    static constexpr XBodyRow rows[] = {
        NodeId(&XEmitter::m_Shape),
        &XEmitter::m_Rate,
        &XEmitter::m_MaxDistance,
        &XEmitter::m_MinDistance,
        &XEmitter::m_Direction,
        &XEmitter::m_Spread,
        &XEmitter::m_ParticleColour,
        Since(4, &XEmitter::m_EmitterType),
        Since(4, NodeId(&XEmitter::m_EmitterObject)),
        Since(4, NodeId(&XEmitter::m_EmitterTransform)),
        Since(4, &XEmitter::m_VolumeShape),
        Since(4, &XEmitter::m_VolumeOffset),
        Since(4, &XEmitter::m_VolumeSweep),
        Since(4, &XEmitter::m_BinaryOnly),
        Since(4, &XEmitter::m_InnerRadius),
        Since(4, &XEmitter::m_Mass),
        Since(4, &XEmitter::m_MassRandom),
        Since(4, &XEmitter::m_Size),
        Since(4, &XEmitter::m_SizeRandom),
        Since(4, &XEmitter::m_Speed),
        Since(4, &XEmitter::m_SpeedRandom),
        Since(4, &XEmitter::m_Alpha),
        Since(4, &XEmitter::m_AlphaRandom),
        Since(4, &XEmitter::m_HueOffset),
        Since(4, &XEmitter::m_SaturationOffset),
        Since(4, &XEmitter::m_LuminanceOffset),
    };
    // clang-format on
    return {kSource, rows};
}

XPropertyTable XEmitter::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XEmitter::m_Rate>(56, "rate"),
        Field<&XEmitter::m_MaxDistance>(57, "max_distance", kAnimatable),
        Field<&XEmitter::m_MinDistance>(58, "min_distance", kAnimatable),
        Field<&XEmitter::m_Direction>(59, "direction", kAnimatable),
        Field<&XEmitter::m_Spread>(60, "spread", kAnimatable),
        Field<&XEmitter::m_ParticleColour>(61, "particle_colour", kAnimatable),
        AsInteger<&XEmitter::m_EmitterType>(62, "emitter_type", kAnimatable),
        NodeField<&XEmitter::m_EmitterObject, kFnBase>(63, "emitter_object", kAnimatable),
        NodeField<&XEmitter::m_EmitterTransform, kFnBase>(64, "emitter_transform", kAnimatable),
        AsInteger<&XEmitter::m_VolumeShape>(65, "volume_shape", kAnimatable),
        Field<&XEmitter::m_VolumeOffset>(66, "volume_offset", kAnimatable),
        Field<&XEmitter::m_VolumeSweep>(67, "volume_sweep", kAnimatable),
        Field<&XEmitter::m_InnerRadius>(68, "inner_radius", kAnimatable),
        Field<&XEmitter::m_Speed>(69, "speed", kAnimatable),
        Field<&XEmitter::m_SpeedRandom>(70, "speed_random", kAnimatable),
        Field<&XEmitter::m_Size>(71, "size", kAnimatable),
        Field<&XEmitter::m_SizeRandom>(72, "size_random", kAnimatable),
        Field<&XEmitter::m_Mass>(73, "mass", kAnimatable),
        Field<&XEmitter::m_MassRandom>(74, "mass_random", kAnimatable),
        Field<&XEmitter::m_Alpha>(75, "alpha", kAnimatable),
        Field<&XEmitter::m_AlphaRandom>(76, "alpha_random", kAnimatable),
        Field<&XEmitter::m_HueOffset>(77, "hue_offset", kAnimatable),
        Field<&XEmitter::m_SaturationOffset>(78, "saturation_offset", kAnimatable),
        Field<&XEmitter::m_LuminanceOffset>(79, "luminance_offset", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
