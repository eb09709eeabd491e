#pragma once

// Stands in for the library's header of this name where a reader is wanted that parses
// every number by `from_chars` and is otherwise the same.

#include <charconv>

#define ParseShort ParseShortOfLibrary
#define ScanShort ScanShortOfLibrary
#include "../../../src/VKT/NumberText.h"
#undef ParseShort
#undef ScanShort

namespace VKT::NumberText {

#define BENCH_READS_BY_FROM_CHARS
inline bool s_IsFromCharsReader = false;  // set by the first number

// The short path of whole tokens never takes a number, so that all go on to `from_chars`.
template <class T>
bool ParseShort(const char*, const char*, T&)
{
    s_IsFromCharsReader = true;
    return false;
}

// Behind the window stands a zero, at which every number ends.
template <class T>
const char* ScanShort(const char* begin, T& value)
{
    constexpr std::ptrdiff_t kLongest = 32;  // of the numbers in the files that are measured
    s_IsFromCharsReader = true;
    const auto [end, error] = std::from_chars(begin, begin + kLongest, value);
    return error == std::errc() ? end : nullptr;
}

}  // namespace VKT::NumberText
