#include "exporter/options/ExportConfig.h"

#include <bit>
#include <cstdio>
#include <memory>
#include <type_traits>

#include "exporter/options/OptionTable.h"
#include "max/Application.h"
#include "max/NativePath.h"

namespace VKTMax {
namespace {

using VKT::u32;
using VKT::u8;

constexpr i32 kOldestVersion = 4;
constexpr i32 kCurrentVersion = 12;

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

File OpenFile(std::string path, const char* mode)
{
    return File(std::fopen(NativePath(std::move(path)).c_str(), mode));
}

// A flag is one byte, everything else a word of four.
template <class T>
constexpr std::size_t kStoredSize = std::is_same_v<T, bool> ? 1 : 4;

template <class T>
T ReadValue(std::FILE* file)
{
    u8 bytes[4] = {};
    u32 word = 0xFFFFFFFF;
    if (std::fread(bytes, 1, kStoredSize<T>, file) == kStoredSize<T>)
        word = bytes[0] | u32{bytes[1]} << 8 | u32{bytes[2]} << 16 | u32{bytes[3]} << 24;
    if constexpr (std::is_same_v<T, bool>)
        return word != 0;
    else
        return std::bit_cast<T>(word);
}

template <class T>
void WriteValue(std::FILE* file, T value)
{
    u32 word;
    if constexpr (std::is_same_v<T, bool>)
        word = value;
    else
        word = std::bit_cast<u32>(value);
    const u8 bytes[4] = {static_cast<u8>(word), static_cast<u8>(word >> 8), static_cast<u8>(word >> 16),
                         static_cast<u8>(word >> 24)};
    std::fwrite(bytes, 1, kStoredSize<T>, file);
}

}  // namespace

std::string ExportConfigPath()
{
    return PluginConfigFolder() + "\\VKT_max_plugin.cfg";
}

bool ReadExportConfig(std::string path)
{
    const File file = OpenFile(std::move(path), "rb");
    if (!file)
        return false;
    const i32 version = ReadValue<i32>(file.get());
    if (version < kOldestVersion)
        return true;
    // `Yup` and `Zup` are set one after the other, so the second byte decides both.
    const auto read = [&file]<class T>(OptionAccess<T> access) {
        (GetExportOptions().*access.set)(ReadValue<T>(file.get()));
    };
    for (const ExportOption& option : ListExportOptions())
        if (option.since != kNotInFile && option.since <= version)
            std::visit(read, option.access);
    return true;
}

bool WriteExportConfig(std::string path)
{
    const File file = OpenFile(std::move(path), "wb");
    if (!file)
        return false;
    WriteValue(file.get(), kCurrentVersion);
    const auto write = [&file]<class T>(OptionAccess<T> access) {
        WriteValue(file.get(), (GetExportOptions().*access.get)());
    };
    for (const ExportOption& option : ListExportOptions())
        if (option.since != kNotInFile)
            std::visit(write, option.access);
    return true;
}

}  // namespace VKTMax
