#pragma once

#include <string>

#include "VKT/base/Types.h"

// Binary files put together by hand.

namespace VKT::Test {

inline constexpr char kMark[] = "|VKT_004B#0000#00000000|";

// The low `bytes` bytes of a number, little-endian.
inline std::string Word(u64 value, int bytes)
{
    std::string text;
    for (int i = 0; i < bytes; ++i)
        text += static_cast<char>(value >> 8 * i);
    return text;
}

// Header and image table of a file without images.
inline std::string Start()
{
    return kMark + Word(0, 2);
}

inline constexpr u32 kTrueSize = 0xFFFFFFFE;

// A chunk with its header.
inline std::string Chunk(u16 type, const std::string& body, u32 size = kTrueSize, u8 hasExtraAttributes = 0)
{
    if (size == kTrueSize)
        size = static_cast<u32>(8 + body.size());
    return Word(type, 2) + Word(hasExtraAttributes, 1) + Word(0, 1) + Word(size, 4) + body;
}

}  // namespace VKT::Test
