#pragma once

// Stands in for the library's header of this name where a reader is wanted that parses
// every number by `from_chars` and is otherwise the same.

#define ParseShort ParseShortOfLibrary
#include "../../../src/VKT/NumberText.h"
#undef ParseShort

namespace VKT::NumberText {

#define BENCH_READS_BY_FROM_CHARS
inline bool s_IsFromCharsReader = false;  // set by the first number

// The short path never takes a number, so that all go on to `from_chars`.
template <class T>
bool ParseShort(const char*, const char*, T&)
{
    s_IsFromCharsReader = true;
    return false;
}

}  // namespace VKT::NumberText
