#include "Measure.h"

#include <time.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>

#include "VKT/node/FnRegistry.h"

namespace Bench {
namespace {

double Milliseconds(clockid_t clock)
{
    timespec now;
    clock_gettime(clock, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

// A line of /proc/self/status in bytes.
u64 StatusBytes(const char* key)
{
    std::FILE* const file = std::fopen("/proc/self/status", "r");
    if (!file)
        Fail("no /proc/self/status");
    char line[256];
    unsigned long long kibibytes = 0;
    while (std::fgets(line, sizeof line, file))
        if (std::strncmp(line, key, std::strlen(key)) == 0)
            std::sscanf(line + std::strlen(key), ": %llu", &kibibytes);
    std::fclose(file);
    return kibibytes * 1024;
}

// Makes the highest resident size what it is now.
void ResetPeak()
{
    std::FILE* const file = std::fopen("/proc/self/clear_refs", "w");
    if (!file || std::fputs("5", file) < 0 || std::fclose(file) != 0)
        Fail("cannot reset the peak of resident memory");
}

class StrictLogger final : public XLogger {
public:
    void LogString(XLogLevel level, const XString& message) override
    {
        if (level == kWarning || level == kError)
            Fail(message);
    }
};

}  // namespace

void Checksum::Add(const void* data, std::size_t bytes)
{
    const char* from = static_cast<const char*>(data);
    const auto mix = [this](u64 word) {
        m_Sum = (m_Sum ^ word) * 0xD6E8FEB86659FD93;
        m_Sum ^= m_Sum >> 32;
    };
    for (; bytes >= sizeof(u64); bytes -= sizeof(u64), from += sizeof(u64)) {
        u64 word;
        std::memcpy(&word, from, sizeof word);
        mix(word);
    }
    u64 rest = bytes;
    for (; bytes > 0; --bytes)
        rest = rest << 8 | static_cast<unsigned char>(*from++);
    mix(rest);
}

std::string Checksum::Text() const
{
    char text[17];
    std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(m_Sum));
    return text;
}

std::string FileChecksum(const char* path)
{
    constexpr std::size_t kBlock = 1 << 20;
    const auto block = std::make_unique_for_overwrite<char[]>(kBlock);
    std::FILE* const file = std::fopen(path, "rb");
    if (!file)
        Fail(std::string("cannot open ") + path);
    Checksum sum;
    while (const std::size_t bytes = std::fread(block.get(), 1, kBlock, file))
        sum.Add(block.get(), bytes);
    std::fclose(file);
    return sum.Text();
}

u64 FileSize(const char* path)
{
    return std::filesystem::file_size(path);
}

Measurement::Measurement()
    : m_Resident((ResetPeak(), StatusBytes("VmRSS"))),
      m_Start(Milliseconds(CLOCK_MONOTONIC)),
      m_CpuStart(Milliseconds(CLOCK_PROCESS_CPUTIME_ID))
{
}

Result Measurement::Stop() const
{
    const double cpuEnd = Milliseconds(CLOCK_PROCESS_CPUTIME_ID);
    const double end = Milliseconds(CLOCK_MONOTONIC);
    const u64 peak = StatusBytes("VmHWM");
    Result result;
    result.milliseconds = end - m_Start;
    result.cpuMilliseconds = cpuEnd - m_CpuStart;
    result.peakBytes = peak > m_Resident ? peak - m_Resident : 0;
    return result;
}

void Print(const Result& result)
{
    std::printf(
        "%.4f %.4f %llu %llu %llu %s %s\n", result.milliseconds, result.cpuMilliseconds,
        static_cast<unsigned long long>(result.peakBytes), static_cast<unsigned long long>(result.fileBytes),
        static_cast<unsigned long long>(result.resultBytes), result.document.c_str(), result.file.c_str());
}

void Fail(std::string_view message)
{
    std::fprintf(stderr, "bench: %.*s\n", static_cast<int>(message.size()), message.data());
    std::_Exit(1);
}

void StartLibrary()
{
    static StrictLogger logger;
    XRegisterTypes(&logger);
}

}  // namespace Bench
