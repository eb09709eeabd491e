#pragma once

#include <cstdio>

#include "VKT/base/Date.h"
#include "VKT/base/Lists.h"

namespace VKT {

// The few things the library asks of the operating system. Everything else is
// standard C++.

// Moves the position of `file`; `origin` as in fseek. False on failure.
bool SeekFile(std::FILE* file, i64 offset, int origin);
// The position of `file`, -1 on failure.
i64 TellFile(std::FILE* file);

// The present local time.
XDate LocalTime();
// The local time of the last change of the file, and its size in bytes. False, and both
// untouched, when the file cannot be asked.
bool GetFileTimeAndSize(const char* path, XDate& time, u64& size);
// Names of the login and of the machine; empty when the system has none to give.
XString LoginName();
XString ComputerName();

}  // namespace VKT
