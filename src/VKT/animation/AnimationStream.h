#pragma once

#include "VKT/base/Types.h"

namespace VKT {

class XAnimatedAttribute;
class XFCurveStream;
class XFileIO;
class XPoseStream;
class XSampledStream;
class XTextReader;
class XTextWriter;

// What an animated value is made of. The numbers stand in binary files, so that a damaged
// one can hold any other.
enum XStreamKind : u32 {
    kScalar = 0,
    kVector2 = 1,
    kVector3 = 2,
    kVector4 = 3,
    kQuaternion = 4,  // x, y, z, w
    kMatrix = 5,      // as `XMatrix`
    kFloatArray = 6,
};

// Floats of one value of a kind; 1 for each entry of a float array, 0 for other numbers.
u32 GetElementCount(XStreamKind kind);

// The forms of a stream. The numbers stand in binary files.
enum XStreamType : u32 { kPoseStream = 0, kSampledStream = 1, kFCurveStream = 2 };

// The values of one animated attribute: a single pose, a table of samples, or curves.
// All values are plain floats.
//
// The order of the operations is relied on by callers that were built apart from the
// library.
class XAnimationStream {
public:
    // The value at a time. `out` has room for `GetElementCount(GetKind())` floats, for
    // the curves of a float array for as many as the attribute's array has entries.
    // False, and `out` as it was, where the stream has nothing to say. Curves add to
    // `out`, so the caller clears it.
    virtual bool Evaluate(f32 time, f32* out) const = 0;
    // Kept on purpose: no stream tells its range here; all answer 0.
    virtual f32 GetStartTime() const { return 0.0f; }
    virtual f32 GetEndTime() const { return 0.0f; }
    virtual ~XAnimationStream() = default;
    XAnimationStream(const XAnimationStream&) = delete;
    XAnimationStream& operator=(const XAnimationStream&) = delete;
    // Bytes in a binary file: the 8 of type and kind, and those of `DoData`.
    virtual u32 GetDataSize() const;
    // The stream's own data, in both directions. False after a logged failure.
    virtual bool DoData(XFileIO& file) = 0;
    // The text between the braces of the stream's block.
    virtual bool ReadChunk(XTextReader& in) = 0;
    // The whole block.
    virtual bool WriteChunk(XTextWriter& out) const = 0;

    XStreamType GetStreamType() const { return m_StreamType; }
    XStreamKind GetKind() const { return m_Kind; }
    XAnimatedAttribute& GetAttribute() const { return *m_Attribute; }
    // The stream itself, or null when it has another form.
    XPoseStream* AsPose();
    XSampledStream* AsSampled();
    XFCurveStream* AsFCurve();
    const XPoseStream* AsPose() const { return const_cast<XAnimationStream*>(this)->AsPose(); }
    const XSampledStream* AsSampled() const { return const_cast<XAnimationStream*>(this)->AsSampled(); }
    const XFCurveStream* AsFCurve() const { return const_cast<XAnimationStream*>(this)->AsFCurve(); }

protected:
    XAnimationStream(XStreamType type, XStreamKind kind, XAnimatedAttribute& attribute)
        : m_StreamType(type), m_Kind(kind), m_Attribute(&attribute)
    {
    }

private:
    XStreamType m_StreamType;
    XStreamKind m_Kind;
    XAnimatedAttribute* m_Attribute;
};

}  // namespace VKT
