#pragma once

#include "VKT/geometry/Deformer.h"

namespace VKT {

// One wire of a wire deformer: 16 bytes, in files too.
struct XWireRecord {
    u32 m_BaseWire = 0;       // id of the curve at rest
    u32 m_Wire = 0;           // id of the curve that pulls
    f32 m_WireParam1 = 1.0f;  // `wire_scale` of the vocabulary
    f32 m_WireParam2 = 1.0f;  // `wire_dropoff_distance`, in scene units
};

// Pulls points along curves, the wires. The library stores the values as they stand, the
// rotation among them, and never applies them.
class XWireDeformer : public XNodeClass<XWireDeformer, XDeformer, kFnWireDeformer> {
public:
    using XNodeClass::XNodeClass;

    u32 GetNumWires() const { return static_cast<u32>(m_Wires.size()); }
    // New wires have the defaults of their record; surplus ones go.
    void SetNumWires(u32 count) { m_Wires.resize(count); }
    // Null out of range.
    XWireRecord* GetWire(u32 i) { return i < m_Wires.size() ? &m_Wires[i] : nullptr; }
    const XWireRecord* GetWire(u32 i) const { return i < m_Wires.size() ? &m_Wires[i] : nullptr; }

    f32 GetCrossingEffect() const { return m_CrossingEffect; }
    void SetCrossingEffect(f32 effect) { m_CrossingEffect = effect; }
    f32 GetLocalIntensity() const { return m_LocalIntensity; }
    void SetLocalIntensity(f32 intensity) { m_LocalIntensity = intensity; }
    f32 GetRotation() const { return m_Rotation; }
    void SetRotation(f32 rotation) { m_Rotation = rotation; }

    void PreDelete(std::set<u32>& ids) override;
    bool DoData(XFileIO& file) override;
    void DoCopy(const XBase* source) override;
    bool WriteChunk(XTextWriter& out) const override;
    bool ReadFields(XTextReader& in) override;

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    bool DoWires(XFileIO& file);
    bool DoOldWires(XFileIO& file);

    XVector<XWireRecord> m_Wires;
    f32 m_CrossingEffect = 0.0f;
    f32 m_LocalIntensity = 0.0f;
    f32 m_Rotation = 0.0f;
};

}  // namespace VKT
