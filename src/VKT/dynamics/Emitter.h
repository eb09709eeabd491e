#pragma once

#include "VKT/hierarchy/Bone.h"

namespace VKT {

class XParticleShape;

// Where particles come from. The numbers stand in binary files.
enum XEmitterType : u32 {
    kEmitterOmni = 0,
    kEmitterDirectional = 1,
    kEmitterGeometry = 2,
    kEmitterVolume = 3,
};

// The volume that particles start in. The numbers are not those of a field's volume.
enum XEmitterVolume : u32 {
    kEmitterVolumeCube = 0,
    kEmitterVolumeSphere = 1,
    kEmitterVolumeCylinder = 2,
    kEmitterVolumeCone = 3,
    kEmitterVolumeTorus = 4,
    kEmitterVolumeDisc = 5,
    kEmitterVolumeGrid = 6,
};

// A source of particles, at the place of a transform. The library stores its settings and
// simulates nothing. Each value that has a `random` beside it varies by that much. Lengths
// are in scene units, angles in radians, colours red, green, blue and alpha.
class XEmitter : public XNodeClass<XEmitter, XBone, kFnEmitter> {
public:
    using XNodeClass::XNodeClass;

    // The particles that are fed; they list this emitter in turn. Null feeds none. False for
    // a node that is no particle shape, or of another document.
    XParticleShape* GetShape() const;
    bool SetShape(XBase* shape);
    // The geometry that particles start from, and the transform that it stands at. Null for
    // none; false for a node of another document.
    XBase* GetEmitterObject() const;
    bool SetEmitterObject(const XBase* object);
    XBase* GetEmitterTransform() const;
    bool SetEmitterTransform(const XBase* transform);

    // Particles per second.
    f32 GetRate() const { return m_Rate; }
    void SetRate(f32 rate) { m_Rate = rate; }
    f32 GetMaxDistance() const { return m_MaxDistance; }
    void SetMaxDistance(f32 distance) { m_MaxDistance = distance; }
    f32 GetMinDistance() const { return m_MinDistance; }
    void SetMinDistance(f32 distance) { m_MinDistance = distance; }
    const XVector3& GetDirection() const { return m_Direction; }
    void SetDirection(const XVector3& direction) { m_Direction = direction; }
    f32 GetSpread() const { return m_Spread; }
    void SetSpread(f32 spread) { m_Spread = spread; }
    // Text files hold no alpha; it is 1 when read from one.
    const XColour& GetParticleColour() const { return m_ParticleColour; }
    void SetParticleColour(const XColour& colour) { m_ParticleColour = colour; }
    // An `XEmitterType`; any other number is written as the first one in text.
    u32 GetEmitterType() const { return m_EmitterType; }
    void SetEmitterType(u32 type) { m_EmitterType = type; }
    // An `XEmitterVolume`, likewise.
    u32 GetVolumeShape() const { return m_VolumeShape; }
    void SetVolumeShape(u32 shape) { m_VolumeShape = shape; }
    const XVector3& GetVolumeOffset() const { return m_VolumeOffset; }
    void SetVolumeOffset(const XVector3& offset) { m_VolumeOffset = offset; }
    f32 GetVolumeSweep() const { return m_VolumeSweep; }
    void SetVolumeSweep(f32 radians) { m_VolumeSweep = radians; }
    // Of the solid part of a torus.
    f32 GetInnerRadius() const { return m_InnerRadius; }
    void SetInnerRadius(f32 radius) { m_InnerRadius = radius; }

    f32 GetSpeed() const { return m_Speed; }
    void SetSpeed(f32 speed) { m_Speed = speed; }
    f32 GetSpeedRandom() const { return m_SpeedRandom; }
    void SetSpeedRandom(f32 random) { m_SpeedRandom = random; }
    f32 GetSize() const { return m_Size; }
    void SetSize(f32 size) { m_Size = size; }
    f32 GetSizeRandom() const { return m_SizeRandom; }
    void SetSizeRandom(f32 random) { m_SizeRandom = random; }
    f32 GetMass() const { return m_Mass; }
    void SetMass(f32 mass) { m_Mass = mass; }
    f32 GetMassRandom() const { return m_MassRandom; }
    void SetMassRandom(f32 random) { m_MassRandom = random; }
    f32 GetAlpha() const { return m_Alpha; }
    void SetAlpha(f32 alpha) { m_Alpha = alpha; }
    f32 GetAlphaRandom() const { return m_AlphaRandom; }
    void SetAlphaRandom(f32 random) { m_AlphaRandom = random; }
    f32 GetHueOffset() const { return m_HueOffset; }
    void SetHueOffset(f32 offset) { m_HueOffset = offset; }
    f32 GetSaturationOffset() const { return m_SaturationOffset; }
    void SetSaturationOffset(f32 offset) { m_SaturationOffset = offset; }
    f32 GetLuminanceOffset() const { return m_LuminanceOffset; }
    void SetLuminanceOffset(f32 offset) { m_LuminanceOffset = offset; }

    // An emitter does not outlive its particle shape.
    bool NodeDeath(u32 id) override;
    // Feeds the source's particles where the copy flags ask for links.
    void DoCopy(const XBase* source) override;
    bool ReadFields(XTextReader& in) override;
    // Makes itself known to its particle shape, which so need not look for its emitters.
    void PostLoad() override;

    static XBodyTable TextBody();
    static XBodyTable BinaryBody();
    static XPropertyTable Properties();

private:
    void Feed(u32 shape);
    void Link();

    u32 m_Shape = 0;
    f32 m_Rate = 100.0f;
    f32 m_MaxDistance = 0.0f;
    f32 m_MinDistance = 0.0f;
    XVector3 m_Direction{0, 1, 0, 0};
    f32 m_Spread = 0.0f;
    XColour m_ParticleColour{0.3f, 0.3f, 0.6f, 1.0f};
    u32 m_EmitterType = kEmitterOmni;
    u32 m_EmitterObject = 0;
    u32 m_EmitterTransform = 0;
    u32 m_VolumeShape = kEmitterVolumeCube;
    XVector3 m_VolumeOffset{};
    f32 m_VolumeSweep = 6.2831855f;
    f32 m_BinaryOnly = 1.0f;  // no key, no known meaning: carried along
    f32 m_InnerRadius = 0.5f;
    f32 m_Speed = 1.0f;
    f32 m_SpeedRandom = 0.0f;
    f32 m_Size = 1.0f;
    f32 m_SizeRandom = 0.0f;
    f32 m_Mass = 1.0f;
    f32 m_MassRandom = 0.0f;
    f32 m_Alpha = 1.0f;
    f32 m_AlphaRandom = 0.0f;
    f32 m_HueOffset = 0.0f;
    f32 m_SaturationOffset = 0.0f;
    f32 m_LuminanceOffset = 0.0f;
};

}  // namespace VKT
