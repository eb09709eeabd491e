#pragma once

#include "VKT/hierarchy/Shape.h"

namespace VKT {

// The lens of a camera; the bone above it has its place and direction. Values are stored
// as they stand: a near plane behind the far one stands, and none follows from another.
class XCamera : public XNodeClass<XCamera, XShape, kFnCamera> {
public:
    using XNodeClass::XNodeClass;

    // Width by height of the picture.
    f32 GetAspect() const { return m_Aspect; }
    void SetAspect(f32 aspect) { m_Aspect = aspect; }
    // The clipping planes, as distances from the lens in scene units.
    f32 GetNear() const { return m_NearDistance; }
    void SetNear(f32 distance) { m_NearDistance = distance; }
    f32 GetFar() const { return m_FarDistance; }
    void SetFar(f32 distance) { m_FarDistance = distance; }
    // The film's width and height, stored as they stand, without a unit of the format.
    f32 GetHorizontalAspect() const { return m_HorizontalAspect; }
    void SetHorizontalAspect(f32 aspect) { m_HorizontalAspect = aspect; }
    f32 GetVerticalAspect() const { return m_VerticalAspect; }
    void SetVerticalAspect(f32 aspect) { m_VerticalAspect = aspect; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    f32 m_Aspect = 1.5f;
    f32 m_NearDistance = 0.1f;
    f32 m_FarDistance = 1000.0f;
    f32 m_HorizontalAspect = 0.95002198f;
    f32 m_VerticalAspect = 0.66059500f;
};

}  // namespace VKT
