#pragma once

#include "VKT/dynamics/Field.h"

namespace VKT {

// Pulls towards its place, less the farther away.
class XNewton final : public XNodeClass<XNewton, XField, kFnNewton> {
public:
    using XNodeClass::XNodeClass;

    // Nothing nearer than this is pulled; in scene units.
    f32 GetMinDistance() const { return m_MinDistance; }
    void SetMinDistance(f32 distance) { m_MinDistance = distance; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    f32 m_MinDistance = 0.0f;
};

}  // namespace VKT
