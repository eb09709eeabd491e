#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace VKT {

// The fixed-width types that stand in files. Everything in a binary file is
// little-endian and packed.
using u8 = std::uint8_t;
using u16 = std::uint16_t;
using u32 = std::uint32_t;
using u64 = std::uint64_t;
using i32 = std::int32_t;
using i64 = std::int64_t;
using f32 = float;

using XString = std::string;

}  // namespace VKT
