#pragma once

#include "VKT/shading/Specular.h"

namespace VKT {

// A glossy material with a highlight of a size and a roughness.
// Both are stored as they stand, without a unit or range of the format.
class XPhongE : public XNodeClass<XPhongE, XSpecular, kFnPhongE> {
public:
    using XNodeClass::XNodeClass;

    f32 GetHighlightSize() const { return m_HighlightSize; }
    void SetHighlightSize(f32 size) { m_HighlightSize = size; }
    f32 GetRoughness() const { return m_Roughness; }
    void SetRoughness(f32 roughness) { m_Roughness = roughness; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    f32 m_HighlightSize = 0.0f;
    f32 m_Roughness = 0.0f;
};

}  // namespace VKT
