#pragma once

#include "VKT/geometry/Deformer.h"

namespace VKT {

class XShape;

// Pushes points aside with another shape. The library stores the values and never applies
// them; positions and distances are in scene units.
class XSculptDeformer : public XNodeClass<XSculptDeformer, XDeformer, kFnSculptDeformer> {
public:
    using XNodeClass::XNodeClass;

    // How points are moved, and where points inside the shape go; numbers of the modeller.
    u32 GetMode() const { return m_Mode; }
    void SetMode(u32 mode) { m_Mode = mode; }
    u32 GetInsideMode() const { return m_InsideMode; }
    void SetInsideMode(u32 mode) { m_InsideMode = mode; }
    f32 GetMaximumDisplacement() const { return m_MaximumDisplacement; }
    void SetMaximumDisplacement(f32 distance) { m_MaximumDisplacement = distance; }
    u32 GetDropoffType() const { return m_DropoffType; }
    void SetDropoffType(u32 type) { m_DropoffType = type; }
    f32 GetDropoffDistance() const { return m_DropoffDistance; }
    void SetDropoffDistance(f32 distance) { m_DropoffDistance = distance; }
    const XVector3& GetStartPosition() const { return m_StartPosition; }
    void SetStartPosition(const XVector3& position) { m_StartPosition = position; }
    // The shape that pushes, and where it starts; null for none.
    XShape* GetSculptObject() const;
    void SetSculptObject(const XShape* shape);
    XShape* GetStartObject() const;
    void SetStartObject(const XShape* shape);

    void PreDelete(std::set<u32>& ids) override;

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    u32 m_Mode = 0;
    u32 m_InsideMode = 0;
    f32 m_MaximumDisplacement = 0.0f;
    u32 m_DropoffType = 0;
    f32 m_DropoffDistance = 0.0f;
    XVector3 m_StartPosition{};
    u32 m_SculptObject = 0;
    u32 m_StartObject = 0;
};

}  // namespace VKT
