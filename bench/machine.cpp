// bench_machine read|read_memcpy|write FILE [TARGET]
// bench_machine first_touch BYTES
//
// What the machine itself takes for the bytes of a file or for fresh memory.

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>

#include "Measure.h"

namespace Bench {
namespace {

using Block = std::unique_ptr<char[]>;

Block Fresh(u64 bytes)
{
    return std::make_unique_for_overwrite<char[]>(bytes);
}

std::string SumOf(const Block& block, u64 bytes)
{
    // In the pieces of `FileChecksum`.
    Checksum sum;
    constexpr u64 kPiece = 1 << 20;
    for (u64 begin = 0; begin < bytes; begin += kPiece)
        sum.Add(block.get() + begin, std::min(kPiece, bytes - begin));
    return sum.Text();
}

void ReadAll(const char* path, char* to, u64 bytes)
{
    const int file = open(path, O_RDONLY);
    for (u64 done = 0; done < bytes;) {
        const ssize_t part = read(file, to + done, bytes - done);
        if (part <= 0)
            Fail("a read failed");
        done += static_cast<u64>(part);
    }
    close(file);
}

void WriteAll(const char* path, const char* from, u64 bytes)
{
    const int file = open(path, O_WRONLY | O_CREAT | O_EXCL, 0644);
    for (u64 done = 0; done < bytes;) {
        const ssize_t part = write(file, from + done, bytes - done);
        if (part <= 0)
            Fail("a write failed");
        done += static_cast<u64>(part);
    }
    close(file);
}

// read() of the whole file into fresh memory, and, with `copy`, from there to a second
// fresh block.
Result Read(const char* path, bool copy)
{
    const u64 bytes = FileSize(path);
    const Measurement measurement;
    Block block = Fresh(bytes);
    ReadAll(path, block.get(), bytes);
    if (copy) {
        Block second = Fresh(bytes);
        std::memcpy(second.get(), block.get(), bytes);
        Keep(second.get());
        Result result = measurement.Stop();
        result.file = SumOf(second, bytes);
        result.fileBytes = bytes;
        return result;
    }
    Result result = measurement.Stop();
    result.file = SumOf(block, bytes);
    result.fileBytes = bytes;
    return result;
}

// write() of the file's bytes, which lie in memory, to a new file.
Result Write(const char* path, const char* target)
{
    const u64 bytes = FileSize(path);
    const Block block = Fresh(bytes);
    ReadAll(path, block.get(), bytes);
    std::filesystem::remove(target);
    const Measurement measurement;
    WriteAll(target, block.get(), bytes);
    Result result = measurement.Stop();
    result.file = FileChecksum(target);
    result.fileBytes = bytes;
    return result;
}

// One byte written to every page of fresh memory.
Result FirstTouch(u64 bytes)
{
    constexpr u64 kPage = 4096;
    const Measurement measurement;
    const Block block = Fresh(bytes);
    for (u64 i = 0; i < bytes; i += kPage) {
        block[i] = 1;
        Keep(&block[i]);
    }
    Result result = measurement.Stop();
    if (result.peakBytes < bytes / 10 * 9)
        Fail("the memory was not touched");
    return result;
}

}  // namespace
}  // namespace Bench

int main(int argc, char** argv)
{
    using namespace Bench;
    const std::string_view what = argc > 2 ? argv[1] : "";
    if (what == "read" || what == "read_memcpy")
        Print(Read(argv[2], what == "read_memcpy"));
    else if (what == "write" && argc == 4)
        Print(Write(argv[2], argv[3]));
    else if (what == "first_touch")
        Print(FirstTouch(std::strtoull(argv[2], nullptr, 10)));
    else
        Fail("usage: bench_machine read|read_memcpy FILE, write FILE TARGET, or first_touch BYTES");
}
