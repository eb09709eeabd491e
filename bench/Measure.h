#pragma once

#include <string>
#include <string_view>

#include "VKT/base/Types.h"

// What every benchmark program shares: the clock, the memory meter, checksums and the
// one line that it prints.
namespace Bench {

using namespace VKT;

// Order-dependent checksum of memory, taken outside of the measured time. Two contestants
// that did the same work have the same one.
class Checksum {
public:
    void Add(const void* data, std::size_t bytes);
    template <class List>
    void AddList(const List& list)
    {
        Add(list.data(), list.size() * sizeof(list[0]));
    }
    std::string Text() const;  // 16 hexadecimal digits

private:
    u64 m_Sum = 0x9E3779B97F4A7C15;
};

// The checksum of a file's bytes.
std::string FileChecksum(const char* path);
u64 FileSize(const char* path);

// What one run found.
struct Result {
    double milliseconds = 0;
    double cpuMilliseconds = 0;  // of this process alone
    u64 peakBytes = 0;           // growth of resident memory at its highest
    u64 fileBytes = 0;           // 0 where there is no file
    u64 resultBytes = 0;         // held by the arrays of the document, 0 where unknown
    std::string document = "-";  // checksum of the document read or written
    std::string file = "-";      // checksum of the file read or written
};

// From construction to `Stop`: time, and the growth of resident memory at its highest.
class Measurement {
public:
    Measurement();
    Result Stop() const;

private:
    u64 m_Resident;
    double m_Start;
    double m_CpuStart;
};

// Prints the result as one line of numbers and words for the summary.
void Print(const Result& result);

// Ends the program with a message: a contestant that did not do its work.
[[noreturn]] void Fail(std::string_view message);

// Registers the library's types under a logger that fails the run at the first warning.
void StartLibrary();

// Makes the compiler keep what is stored at `data`.
inline void Keep(const void* data)
{
    asm volatile("" : : "r"(data) : "memory");
}

}  // namespace Bench
