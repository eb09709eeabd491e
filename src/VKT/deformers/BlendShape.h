#pragma once

#include <memory>

#include "VKT/geometry/Deformer.h"

namespace VKT {

class XGeometry;

// One target of a blend shape. It carries its points, so that it outlives the geometry
// that they came from.
struct XBlendTarget {
    u32 m_TargetId = 0;      // of that geometry, 0 for none
    XVector3Array m_Points;  // one for each of the base, in the base's object space
    XString m_Name;
    f32 m_Weight = 0.0f;  // 0 for the base, 1 for the target
};

// The morph deformer: a base geometry, the first one affected, and the targets between
// which it blends.
class XBlendShape : public XNodeClass<XBlendShape, XDeformer, kFnBlendShape> {
public:
    using XNodeClass::XNodeClass;

    // Makes the geometry the only one affected. False for null, for a node that is no
    // geometry and for one of another document.
    bool SetBase(XBase* geometry);
    // Null when there is none or the document lost it.
    XGeometry* GetBase() const;

    u32 GetNumTargets() const { return static_cast<u32>(m_Targets.size()); }
    // Appends a target of weight 0. False when there is one of that name.
    bool AddTarget(const XVector3Array& points, const XString& name);
    // Replaces the targets by copies of these geometries, of weight 0 and with their names.
    // False, and nothing is changed, when one is null, no geometry or of another document.
    bool SetTargets(const XNodeList& geometries);
    // The geometry that a target came from, by its id or else by the target's name; null
    // out of range and when the document holds neither.
    XGeometry* GetTarget(u32 i) const;
    // False out of range.
    bool GetTargetName(u32 i, XString& out) const;
    // 0 out of range; there nothing is set.
    f32 GetWeight(u32 i) const { return i < m_Targets.size() ? m_Targets[i]->m_Weight : 0.0f; }
    void SetWeight(u32 i, f32 weight);
    // Null out of range.
    XBlendTarget* GetTargetRecord(u32 i) { return i < m_Targets.size() ? m_Targets[i].get() : nullptr; }
    const XBlendTarget* GetTargetRecord(u32 i) const
    {
        return i < m_Targets.size() ? m_Targets[i].get() : nullptr;
    }

    bool DoData(XFileIO& file) override;
    void DoCopy(const XBase* source) override;
    bool WriteChunk(XTextWriter& out) const override;
    bool ReadFields(XTextReader& in) override;

    static XPropertyTable Properties();

private:
    bool DoTargets(XFileIO& file, bool isOld);
    bool DoNames(XFileIO& file, XStringList& names) const;

    XVector<std::unique_ptr<XBlendTarget>> m_Targets;
};

}  // namespace VKT
