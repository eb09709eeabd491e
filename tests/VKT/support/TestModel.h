#pragma once

#include <atomic>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>

#include "VKT/document/Model.h"
#include "VKT/node/FnRegistry.h"
#include "VKT/stream/TextReader.h"
#include "VKT/stream/TextWriter.h"

// What tests of the scene library share: a registry that ends with the test, files
// that vanish, and documents and nodes as text and as bytes.

namespace VKT::Test {

// The type registry, for as long as the test runs. Keeps the logger in use, so that it
// may stand in front of or behind a `LogCatcher`.
class RegistryScope {
public:
    RegistryScope() { XRegisterTypes(GetLogger()); }
    ~RegistryScope() { XFnShutdown(); }
    RegistryScope(const RegistryScope&) = delete;
    RegistryScope& operator=(const RegistryScope&) = delete;
};

// A path of its own in the folder for temporary files; whatever stands there in the
// end is deleted.
class TempFile {
public:
    explicit TempFile(std::string_view extension = ".vkt")
    {
        static std::atomic<unsigned> s_Next = 0;
        const std::string name = "vkt-test-" + std::to_string(s_ProcessMark) + "-" + std::to_string(s_Next++);
        m_Path = (std::filesystem::temp_directory_path() / name).string() + std::string(extension);
    }
    TempFile(std::string_view extension, std::string_view bytes) : TempFile(extension) { SetBytes(bytes); }
    ~TempFile()
    {
        std::error_code ignored;
        std::filesystem::remove(m_Path, ignored);
    }
    TempFile(const TempFile&) = delete;
    TempFile& operator=(const TempFile&) = delete;

    const char* Path() const { return m_Path.c_str(); }
    std::string Bytes() const
    {
        std::ifstream file(m_Path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }
    void SetBytes(std::string_view bytes) const
    {
        std::ofstream file(m_Path, std::ios::binary);
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }

private:
    // Tells apart the processes that run tests at the same time.
    static inline const unsigned long long s_ProcessMark = static_cast<unsigned long long>(
        std::filesystem::file_time_type::clock::now().time_since_epoch().count());
    std::string m_Path;
};

// The streams below are of the version of the node's document, as those of a load are.

// The class's own lines of a node's text chunk.
inline std::string TextOf(const XBase& node)
{
    XTextWriter out;
    out.SetVersion(node.GetModel()->GetVersion());
    node.WriteChunk(out);
    return out.TakeText();
}

// The whole text chunk of a node.
inline std::string ChunkOf(const XBase& node)
{
    XTextWriter out;
    node.Write(out);
    return out.TakeText();
}

// Reads what `TextOf` gives; the node's answer.
inline bool ReadText(XBase& node, std::string_view text)
{
    XTextReader in(text);
    in.SetVersion(node.GetModel()->GetVersion());
    return node.ReadChunk(in);
}

// The document as a text file.
inline std::string SaveText(XModel& model)
{
    std::ostringstream out;
    model.Save(out);
    return out.str();
}

// The document as a binary file.
inline std::string SaveBinaryBytes(XModel& model)
{
    const TempFile file;
    const bool wasAscii = model.GetSaveFlags().Test(SaveAscii);
    model.GetSaveFlags().Clear(SaveAscii);
    model.Save(file.Path());
    if (wasAscii)
        model.GetSaveFlags().Set(SaveAscii);
    return file.Bytes();
}

// Loads a text file that stands in memory.
inline XFileResult LoadText(XModel& model, std::string_view text)
{
    std::istringstream in{std::string(text)};
    return model.Load(in, "memory.vkt");
}

// Loads a file of either form from its bytes, by way of a file on disk.
inline XFileResult LoadBytes(XModel& model, std::string_view bytes)
{
    const TempFile file(".vkt", bytes);
    return model.Load(file.Path());
}

// The body of a node's binary chunk, without its header.
inline std::string BodyOf(XBase& node)
{
    const TempFile file(".bin");
    {
        XFileIO out(file.Path(), false);
        out.SetVersion(node.GetModel()->GetVersion());
        node.DoData(out);
    }
    return file.Bytes();
}

// Reads what `BodyOf` gives; the node's answer.
inline bool ReadBody(XBase& node, std::string_view bytes)
{
    const TempFile file(".bin", bytes);
    XFileIO in(file.Path(), true);
    in.SetVersion(node.GetModel()->GetVersion());
    return node.DoData(in);
}

// Bytes as pairs of lower-case digits, a blank between two of them.
inline std::string Hex(std::string_view bytes)
{
    static constexpr char digits[] = "0123456789abcdef";
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (!text.empty())
            text += ' ';
        text += digits[byte >> 4];
        text += digits[byte & 15];
    }
    return text;
}

// The mirror of `Hex`: pairs of digits, with any white space between the pairs.
inline std::string Bytes(std::string_view hex)
{
    const auto value = [](char c) { return c <= '9' ? c - '0' : c - 'a' + 10; };
    std::string bytes;
    for (std::size_t i = 0; i + 1 < hex.size();) {
        if (hex[i] == ' ' || hex[i] == '\n') {
            ++i;
            continue;
        }
        bytes += static_cast<char>(value(hex[i]) << 4 | value(hex[i + 1]));
        i += 2;
    }
    return bytes;
}

}  // namespace VKT::Test
