#pragma once

#include <cstdio>
#include <filesystem>

namespace tool {

// What the tool asks of the operating system beyond the standard library.

bool IsStandardErrorTerminal();
// A number that no other running process has.
unsigned long ProcessNumber();
// The folder of the running program; empty when the system does not tell.
std::filesystem::path ProgramFolder();

// Points standard output at an open file, for all code of the process. Answers what
// brings it back, negative on failure.
int RedirectStandardOutput(std::FILE* to);
void RestoreStandardOutput(int saved);

}  // namespace tool
