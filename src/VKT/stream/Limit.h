#pragma once

#include <bit>

#include "VKT/stream/TextReader.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {

// Limits of a range. A range that is open below or above holds one of two sentinels in
// the place of the float. They are words, not the infinities that their texts name: as
// floats they are NaN patterns, which compare with nothing.
inline constexpr u32 kNoLowerLimit = 0xFFFFFFFF;  // "-INF"
inline constexpr u32 kNoUpperLimit = 0x7FFFFFFF;  // "+INF"

inline f32 NoLowerLimit()
{
    return std::bit_cast<f32>(kNoLowerLimit);
}
inline f32 NoUpperLimit()
{
    return std::bit_cast<f32>(kNoUpperLimit);
}
inline bool IsNoLowerLimit(f32 limit)
{
    return std::bit_cast<u32>(limit) == kNoLowerLimit;
}
inline bool IsNoUpperLimit(f32 limit)
{
    return std::bit_cast<u32>(limit) == kNoUpperLimit;
}

// Read one token: the float that it begins with, a decimal number. The sentinel when the
// token names it, and when it begins with no number; the other sentinel's name is none.
f32 XReadLowerLimit(XTextReader& in);
f32 XReadUpperLimit(XTextReader& in);

// Writes "-INF", "+INF" or the float.
void XWriteLimit(XTextWriter& out, f32 limit);

}  // namespace VKT
