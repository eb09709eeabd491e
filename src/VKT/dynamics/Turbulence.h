#pragma once

#include "VKT/dynamics/Field.h"

namespace VKT {

// Shakes what moves.
class XTurbulence final : public XNodeClass<XTurbulence, XField, kFnTurbulence> {
public:
    using XNodeClass::XNodeClass;

    f32 GetFrequency() const { return m_Frequency; }
    void SetFrequency(f32 frequency) { m_Frequency = frequency; }
    const XVector3& GetPhase() const { return m_Phase; }
    void SetPhase(const XVector3& phase) { m_Phase = phase; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    f32 m_Frequency = 1.0f;
    XVector3 m_Phase{};
};

}  // namespace VKT
