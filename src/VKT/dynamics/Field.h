#pragma once

#include "VKT/hierarchy/Bone.h"

namespace VKT {

class XParticleShape;

// The volume that a field acts in. The numbers stand in binary files; those of an emitter
// are others.
enum XFieldVolume : u32 {
    kFieldVolumeNone = 0,
    kFieldVolumeCube = 1,
    kFieldVolumeCylinder = 2,
    kFieldVolumeCone = 3,
    kFieldVolumeSphere = 4,
    kFieldVolumeTorus = 5,
};

// The base of forces that act on particles. A field is a transform itself. The library
// stores its settings and simulates nothing. Lengths are in scene units, angles in radians,
// magnitudes and speeds are stored as they stand.
class XField : public XNodeClass<XField, XBone, kFnField> {
public:
    using XNodeClass::XNodeClass;

    f32 GetMagnitude() const { return m_Magnitude; }
    void SetMagnitude(f32 magnitude) { m_Magnitude = magnitude; }
    // The power with which the force falls off with the distance.
    f32 GetAttenuation() const { return m_Attenuation; }
    void SetAttenuation(f32 attenuation) { m_Attenuation = attenuation; }
    f32 GetMaxDistance() const { return m_MaxDistance; }
    void SetMaxDistance(f32 distance) { m_MaxDistance = distance; }
    bool GetUseMaxDistance() const { return m_UseMaxDistance; }
    void SetUseMaxDistance(bool use) { m_UseMaxDistance = use; }
    // Each point of an object that holds the field is a field of its own.
    bool GetPerVertex() const { return m_PerVertex; }
    void SetPerVertex(bool perVertex) { m_PerVertex = perVertex; }

    // An `XFieldVolume`; any other number is written as none in text.
    u32 GetVolumeShape() const { return m_VolumeShape; }
    void SetVolumeShape(u32 shape) { m_VolumeShape = shape; }
    // Acts outside of the volume instead.
    bool GetVolumeExclusion() const { return m_VolumeExclusion; }
    void SetVolumeExclusion(bool exclusion) { m_VolumeExclusion = exclusion; }
    const XVector3& GetVolumeOffset() const { return m_VolumeOffset; }
    void SetVolumeOffset(const XVector3& offset) { m_VolumeOffset = offset; }
    f32 GetVolumeSweep() const { return m_VolumeSweep; }
    void SetVolumeSweep(f32 radians) { m_VolumeSweep = radians; }
    // Of the solid part of a torus.
    f32 GetInnerRadius() const { return m_InnerRadius; }
    void SetInnerRadius(f32 radius) { m_InnerRadius = radius; }

    // The particle shapes that this field drives, as far as the document holds them. Files
    // have the relation on the other side (`XParticleShape::AddField`), which keeps this
    // list; a clone begins without any.
    u32 GetNumShapes() const { return static_cast<u32>(m_Shapes.size()); }
    bool GetShapes(XNodeList& out) const;

    bool NodeDeath(u32 id) override;
    bool DoData(XFileIO& file) override;

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    friend class XParticleShape;

    void AddShape(u32 id);
    void RemoveShape(u32 id);
    bool SetShapes(const XNodeList& shapes);

    f32 m_Magnitude = 1.0f;
    f32 m_Attenuation = 0.0f;
    f32 m_MaxDistance = 10.0f;
    bool m_UseMaxDistance = false;
    bool m_PerVertex = false;
    u32 m_VolumeShape = kFieldVolumeNone;
    bool m_VolumeExclusion = false;
    XVector3 m_VolumeOffset{};
    f32 m_VolumeSweep = 6.2831855f;
    f32 m_InnerRadius = 0.5f;
    XIndexList m_Shapes;
};

}  // namespace VKT
