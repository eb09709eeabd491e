#pragma once

#include "VKT/dynamics/Field.h"

namespace VKT {

// Pushes from its place, or pulls towards it.
class XRadial final : public XNodeClass<XRadial, XField, kFnRadial> {
public:
    using XNodeClass::XNodeClass;

    // How the force falls off towards the largest distance; a float, in files as well.
    f32 GetRadialType() const { return m_RadialType; }
    void SetRadialType(f32 type) { m_RadialType = type; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    f32 m_RadialType = 0.0f;
};

}  // namespace VKT
