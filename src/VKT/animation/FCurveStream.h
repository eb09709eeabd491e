#pragma once

#include <memory>

#include "VKT/animation/AnimCurve.h"
#include "VKT/animation/AnimationStream.h"

namespace VKT {

// Function curves, one for each element of the attribute that has one.
class XFCurveStream final : public XAnimationStream {
public:
    XFCurveStream(XAnimatedAttribute& attribute, XStreamKind kind)
        : XAnimationStream(kFCurveStream, kind, attribute)
    {
    }

    // The first curve of that element and array entry, or a new one, a Bezier curve in
    // two dimensions without keys.
    XAnimCurve* GetCurve(i32 component, i32 index = -1);
    // The same curve, or null when there is none.
    const XAnimCurve* FindCurve(i32 component, i32 index = -1) const;
    u32 GetNumCurves() const { return static_cast<u32>(m_Curves.size()); }
    const XVector<std::unique_ptr<XAnimCurve>>& GetCurves() const { return m_Curves; }

    // Each element by its own curve, and what has no curve stays. Quaternions are made of
    // three curves, Euler angles in radians in the order of the bone whose rotation they
    // are. A float array starts as the attribute's current one. False for matrices.
    //
    // Kept on purpose: see `XAnimCurve::Evaluate`.
    bool Evaluate(f32 time, f32* out) const override;
    bool DoData(XFileIO& file) override;
    bool ReadChunk(XTextReader& in) override;
    bool WriteChunk(XTextWriter& out) const override;

private:
    void EvaluateComponents(f32 time, i32 count, f32* out) const;
    void EvaluateRotation(f32 time, f32* out) const;
    void EvaluateArray(f32 time, f32* out) const;

    XVector<std::unique_ptr<XAnimCurve>> m_Curves;
};

}  // namespace VKT
