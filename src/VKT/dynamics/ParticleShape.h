#pragma once

#include "VKT/geometry/Geometry.h"

namespace VKT {

class XEmitter;
class XField;

// How long a particle lives. The numbers stand in binary files.
enum XLifespanType : u32 {
    kLiveForever = 0,
    kLifespanConstant = 1,
    kLifespanRandom = 2,
};

// What a particle looks like. The numbers stand in binary files.
enum XParticleType : u32 {
    kParticlePoint = 0,
    kParticlePointSprites = 1,
    kParticleStreak = 2,
    kParticleSphere = 3,
    kParticleMultiPoint = 4,
    kParticleMultiStreak = 5,
    kParticleSprites = 6,
    kParticleNumeric = 7,
};

// The particles that emitters feed and fields act on. Their positions are the points of the
// geometry. The library stores settings and simulates nothing. Times are in seconds.
class XParticleShape final : public XNodeClass<XParticleShape, XGeometry, kFnParticleShape> {
public:
    using XNodeClass::XNodeClass;

    // The fields that act on the particles; each lists this shape in turn. False for null
    // and for a node of another document. Removing a field drops all its entries.
    u32 GetNumFields() const { return static_cast<u32>(m_Fields.size()); }
    // Null out of range and when the document lost the field.
    XField* GetField(u32 i) const;
    bool AddField(XField* field);
    void RemoveField(XField* field);

    // The emitters that feed this shape. Files have the relation on the other side
    // (`XEmitter::SetShape`), which keeps this list.
    u32 GetNumEmitters() const { return static_cast<u32>(m_Emitters.size()); }
    XEmitter* GetEmitter(u32 i) const;
    bool AddEmitter(XEmitter* emitter);

    // Sorts the particles by their distance for drawing.
    bool GetDepthSort() const { return m_DepthSort; }
    void SetDepthSort(bool sort) { m_DepthSort = sort; }
    // An `XLifespanType`; any other number is written as the first one in text.
    u32 GetLifespanType() const { return m_LifespanType; }
    void SetLifespanType(u32 type) { m_LifespanType = type; }
    f32 GetLifespan() const { return m_Lifespan; }
    void SetLifespan(f32 seconds) { m_Lifespan = seconds; }
    f32 GetLifespanRandom() const { return m_LifespanRandom; }
    void SetLifespanRandom(f32 seconds) { m_LifespanRandom = seconds; }
    // An `XParticleType`, likewise.
    u32 GetParticleType() const { return m_ParticleType; }
    void SetParticleType(u32 type) { m_ParticleType = type; }

    // Kept on purpose: binary files do not hold the material yet.
    XBase* GetMaterial() const;
    bool SetMaterial(const XBase* material);

    bool NodeDeath(u32 id) override;
    bool DoData(XFileIO& file) override;
    // Takes fields and emitters over where the copy flags ask for links. The emitters name
    // the source alone: a saved copy comes back without them.
    void DoCopy(const XBase* source) override;
    // Makes itself known to its fields, which so need not look for their shapes.
    void PostLoad() override;

    static XBodyTable TextBody();
    static XBodyTable BinaryBody();
    static XPropertyTable Properties();

private:
    friend class XEmitter;

    void LinkFields();
    void UnlinkFields();
    bool SetFields(const XNodeList& fields);
    bool SetEmitters(const XNodeList& emitters);

    XIndexList m_Fields;
    XIndexList m_Emitters;
    bool m_DepthSort = false;
    u32 m_LifespanType = kLiveForever;
    f32 m_Lifespan = 1.0f;
    f32 m_LifespanRandom = 0.0f;
    u32 m_ParticleType = kParticlePoint;
    u32 m_Material = 0;
};

}  // namespace VKT
