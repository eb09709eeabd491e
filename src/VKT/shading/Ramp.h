#pragma once

#include "VKT/stream/FileIO.h"

namespace VKT {

class XTextReader;
class XTextWriter;

// How a ramp goes from a key to the next one. Binary files may hold other numbers, which
// are carried along.
enum XRampInterpolation : u32 { kRampNone = 0, kRampLinear = 1, kRampSmooth = 2, kRampSpline = 3 };

struct XRampKey {
    f32 position = 0;  // stored as it stands; those of a new light are 0 and 1
    u32 interpolation = kRampNone;
    XColour value{};  // of a ramp of floats, r alone
};

// A table of floats or colours by position, as volume lights have it. The library stores
// ramps and never evaluates them.
//
// Keys stand by ascending position, those of equal positions in the order of their
// arrival. The keys of a binary file are taken in the order in which they stand there.
class XRamp {
public:
    // What a ramp holds. Any other number of a binary file is carried along and means
    // colours.
    enum Kind : u32 { kFloats = 0, kColours = 1 };

    explicit XRamp(Kind kind) : m_Kind(kind) {}

    u32 GetKind() const { return m_Kind; }
    bool HoldsColours() const { return m_Kind != kFloats; }
    const XVector<XRampKey>& GetKeys() const { return m_Keys; }
    void Clear() { m_Keys.clear(); }
    // Adds a key in front of the first one that stands behind `position`. False, and
    // nothing changed, for a ramp of the other kind.
    bool AddFloatKey(f32 position, f32 value, u32 interpolation);
    bool AddColourKey(f32 position, const XColour& value, u32 interpolation);

    // The block in braces of the text form, from behind its key on. A read replaces kind
    // and keys and sorts what comes; after a failure, which has been logged, the keys
    // that came are there.
    void Write(XTextWriter& out) const;
    bool Read(XTextReader& in);
    // The binary form, in both directions.
    bool DoData(XFileIO& file);

private:
    void Insert(const XRampKey& key);
    bool ReadKeys(XTextReader& in, u32 count);

    u32 m_Kind;
    XVector<XRampKey> m_Keys;
};

}  // namespace VKT
