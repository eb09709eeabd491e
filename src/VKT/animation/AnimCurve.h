#pragma once

#include <limits>

#include "VKT/base/Lists.h"

namespace VKT {

class XFileIO;
class XTextReader;
class XTextWriter;

// How a curve runs between its keys. The numbers stand in binary files; those without a
// word in text files have no other name.
enum XInterpolation : u32 {
    kStep = 0,
    kLinear = 1,
    kCatmullRom = 2,
    kCardinal = 3,
    kTCB = 4,  // tension, continuity, bias
    kBezier1D = 5,
    kBezier2D = 6,
    kHermite1D = 7,
    kHermite2D = 8,
    kTimedCatmullRom = 10,  // the time is solved for, as in 11 and 12
    kTimedCardinal = 11,
    kTimedTCB = 12,
    kSmoothedStep = 13,  // a held value with a smooth blend across each key
};

// How a curve runs before its first key and behind its last.
enum XInfinity : u32 {
    kInfinityConstant = 0,
    kInfinityLinear = 1,
    kInfinityOscillate = 2,
    kInfinityCycle = 3,
    kInfinityCycleWithOffset = 4,
};

// One function curve: the value of one element of an attribute over time.
//
// A key is `GetStride` floats: time, value, and what the interpolation adds:
//
//     cardinal, 11     tension
//     TCB, 12          tension, continuity, bias
//     Bezier, 1D       in and out: control points in the space of values
//     Hermite, 1D      in and out tangent
//     2D of both       in x, in y, out x, out y
//     13               half the width of the blend
class XAnimCurve {
public:
    // Which element of the attribute, -1 for a scalar; which entry of an array, else -1.
    i32 GetComponent() const { return m_Component; }
    void SetComponent(i32 component) { m_Component = component; }
    i32 GetIndex() const { return m_Index; }
    void SetIndex(i32 index) { m_Index = index; }
    u32 GetInterpolation() const { return m_Interpolation; }
    // Sets the floats of a key along with it; a number without meaning leaves those. Keys
    // that stand are not turned into the new layout.
    void SetInterpolation(u32 interpolation);
    u32 GetPreInfinity() const { return m_PreInfinity; }
    void SetPreInfinity(u32 infinity) { m_PreInfinity = infinity; }
    u32 GetPostInfinity() const { return m_PostInfinity; }
    void SetPostInfinity(u32 infinity) { m_PostInfinity = infinity; }

    u32 GetStride() const { return m_Stride; }
    u32 GetNumKeys() const { return m_Stride == 0 ? 0 : static_cast<u32>(m_Keys.size() / m_Stride); }
    const XFloatArray& GetKeys() const { return m_Keys; }
    // Float `part` of a key; 0 where the table has none.
    f32 GetKey(u32 key, u32 part) const
    {
        return key < GetNumKeys() && part < m_Stride ? m_Keys[std::size_t{key} * m_Stride + part] : 0.0f;
    }
    // Whether no key is earlier than the one before it. Nothing says so of those of a file.
    bool TimesAscend() const { return m_TimesAscend; }
    // Adds a key in front of the first later one, or else at the end, and answers its number.
    // Its other floats are 0.
    u32 AddKey(f32 time, f32 value);

    // Set floats 2 to 5 of a key of a two-dimensional Hermite curve. False for other
    // curves, and for a key that is not below the bound that `Evaluate` has too.
    //
    // Kept on purpose: that bound is 0, so they always refuse. Files depend on it: their
    // tangents are zeroes.
    bool SetInTangentLength(u32 key, f32 value) { return SetTangent(key, 2, value); }
    bool SetInTangent(u32 key, f32 value) { return SetTangent(key, 3, value); }
    bool SetOutTangentLength(u32 key, f32 value) { return SetTangent(key, 4, value); }
    bool SetOutTangent(u32 key, f32 value) { return SetTangent(key, 5, value); }

    // Adds the curve's value at `time` to `value`, or replaces it, as the infinities
    // say. False, and `value` as it was, for an interpolation or infinity without meaning.
    //
    // Kept on purpose: the bound of the keys that it sees is 0, so it computes on zeroes.
    // `XEvaluateCurve` takes the bound as an argument.
    bool Evaluate(f32 time, f32& value) const;

    // The `ANIM_CURVE` block, and the binary form.
    bool ReadChunk(XTextReader& in);
    bool WriteChunk(XTextWriter& out) const;
    bool DoData(XFileIO& file);

private:
    friend class XAnimCurveBound;  // tests raise m_KeyLimit

    bool SetTangent(u32 key, u32 part, f32 value);
    void LookAtTimes();

    i32 m_Component = -1;
    i32 m_Index = -1;
    u32 m_Interpolation = kStep;
    u32 m_PreInfinity = kInfinityConstant;
    u32 m_PostInfinity = kInfinityConstant;
    u32 m_KeyLimit = 0;  // keys at or beyond it read as zeroes and cannot be set
    u32 m_Stride = 0;
    XFloatArray m_Keys;
    // Known of the times, so that keys that come in order need no search to be added, and
    // none but a short one to be found.
    f32 m_LatestTime = -std::numeric_limits<f32>::infinity();
    bool m_TimesAscend = true;
};

}  // namespace VKT
