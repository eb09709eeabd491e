#pragma once

#include "VKT/animation/AnimationStream.h"
#include "VKT/base/Lists.h"

namespace VKT {

// A value for each frame of the take, or for as many frames as the stream has: a flat
// table, element after element, frame after frame.
class XSampledStream final : public XAnimationStream {
public:
    // A table of that many floats each frame and frames, all zero.
    XSampledStream(XAnimatedAttribute& attribute, XStreamKind kind, u32 elementsPerSample, u32 numFrames = 0);

    u32 GetElementsPerSample() const { return m_ElementsPerSample; }
    u32 GetNumSamples() const;
    const XFloatArray& GetSamples() const { return m_Samples; }
    // False when a sample has not 3 or 4 floats, or there is no such frame.
    bool SetSample(u32 frame, const XVector3& value);
    bool SetSample(u32 frame, const XQuaternion& value);
    // One float of the table; false when there is none of that index.
    bool SetSample(u32 index, f32 value);

    // `time` is in frames, the first one at the take's start; times outside of the take
    // count as its ends. Linear between two samples, spherical for quaternions; of
    // matrices the nearer one.
    bool Evaluate(f32 time, f32* out) const override;
    bool DoData(XFileIO& file) override;
    bool ReadChunk(XTextReader& in) override;
    bool WriteChunk(XTextWriter& out) const override;

private:
    f32 PositionOf(f32 time) const;
    std::size_t ReadSamples(XTextReader& in);

    u32 m_ElementsPerSample;
    XFloatArray m_Samples;
};

// The rotation at `fraction` of the way from `a` to `b`.
//
// Kept on purpose: where the two stand more than a half turn apart in their four
// dimensions, `b` is negated and the angle is still that to `b` itself, so that the
// results on the way are not of length 1.
XQuaternion XSlerp(const XQuaternion& a, const XQuaternion& b, f32 fraction);

}  // namespace VKT
