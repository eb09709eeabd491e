#pragma once

#include "VKT/animation/AnimationStream.h"
#include "VKT/base/Lists.h"

namespace VKT {

// A value that does not change over the take.
class XPoseStream final : public XAnimationStream {
public:
    // Zeroes of that kind, for a matrix the identity. For a float array as
    // many as the animated node's array has entries now.
    XPoseStream(XAnimatedAttribute& attribute, XStreamKind kind);

    // The floats of the value; see `GetArrayLength` for float arrays.
    const XFloatArray& GetValues() const { return m_Values; }
    // Entries of a float array; 0 for other kinds, and for float arrays from a binary
    // file, which holds one float of them.
    u32 GetArrayLength() const { return m_ArrayLength; }
    // Replace the first 3 or 4 floats, as far as the kind has them.
    void SetValue(const XVector3& value);
    void SetValue(const XQuaternion& value);

    bool Evaluate(f32 time, f32* out) const override;
    bool DoData(XFileIO& file) override;
    bool ReadChunk(XTextReader& in) override;
    bool WriteChunk(XTextWriter& out) const override;

private:
    u32 m_ArrayLength = 0;
    XFloatArray m_Values;
};

}  // namespace VKT
