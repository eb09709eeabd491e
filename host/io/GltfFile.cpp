#include "host/io/GltfFile.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <fstream>
#include <limits>
#include <nlohmann/json.hpp>
#include <string_view>

#include "host/io/Refusal.h"

namespace maxhost::io {

namespace {

using Json = nlohmann::json;

// tinygltf walks `extras` by recursion; deeper nesting would end on its stack.
constexpr int kDeepestJson = 128;
constexpr std::uint32_t kGlbHeader = 12;
constexpr std::uint32_t kChunkHeader = 8;

// Extensions that change nothing about what is read here, or that are understood.
constexpr std::array<std::string_view, 6> kHarmlessExtensions{
    "KHR_lights_punctual", "KHR_mesh_quantization", "KHR_texture_transform",
    "KHR_materials_unlit", "KHR_texture_basisu",    "EXT_texture_webp",
};

std::string ReadBytes(const std::filesystem::path& path)
{
    if (!std::filesystem::is_regular_file(path))
        throw Refusal("no such file");
    std::ifstream in(path, std::ios::binary);
    std::string bytes(static_cast<std::size_t>(std::filesystem::file_size(path)), '\0');
    if (!in.read(bytes.data(), static_cast<std::streamsize>(bytes.size())))
        throw Refusal("the file can't be read");
    if (bytes.size() > std::numeric_limits<std::uint32_t>::max())
        throw Refusal("the file is larger than 4 GiB");
    return bytes;
}

std::uint32_t WordAt(std::string_view bytes, std::size_t offset)
{
    std::uint32_t word = 0;
    for (std::size_t i = 0; i < 4; ++i)
        word |= std::uint32_t{static_cast<unsigned char>(bytes[offset + i])} << (8 * i);
    return word;
}

bool IsBinary(std::string_view bytes)
{
    return bytes.starts_with("glTF");
}

// The JSON inside a binary file, after a look at every size that its headers claim.
std::string_view JsonOfBinary(std::string_view bytes)
{
    if (bytes.size() < kGlbHeader + kChunkHeader)
        throw Refusal("the binary glTF ends inside its header");
    const std::uint32_t version = WordAt(bytes, 4);
    if (version != 2)
        throw Refusal("glTF " + std::to_string(version) + " can't be read, only glTF 2.0");
    const std::uint64_t length = WordAt(bytes, 8);
    if (length > bytes.size())
        throw Refusal("the binary glTF claims " + std::to_string(length) + " bytes and holds " +
                      std::to_string(bytes.size()));
    const std::uint64_t jsonEnd = kGlbHeader + kChunkHeader + std::uint64_t{WordAt(bytes, 12)};
    if (jsonEnd > length)
        throw Refusal("the JSON of the binary glTF reaches beyond its end");
    if (jsonEnd != length) {
        if (jsonEnd + kChunkHeader > length)
            throw Refusal("the binary glTF ends inside a chunk header");
        if (jsonEnd + kChunkHeader + WordAt(bytes, static_cast<std::size_t>(jsonEnd)) > length)
            throw Refusal("the data of the binary glTF reach beyond its end");
    }
    constexpr std::size_t kStart = kGlbHeader + kChunkHeader;
    return bytes.substr(kStart, static_cast<std::size_t>(jsonEnd) - kStart);
}

// Looks at brackets outside of strings; whether the text is valid is not asked here.
bool NestsTooDeep(std::string_view text)
{
    int depth = 0;
    bool inString = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (inString && c == '\\')
            ++i;
        else if (c == '"')
            inString = !inString;
        else if (!inString && (c == '{' || c == '['))
            depth += 1;
        else if (!inString && (c == '}' || c == ']'))
            depth -= 1;
        if (depth > kDeepestJson)
            return true;
    }
    return false;
}

Json ParseJson(std::string_view text)
{
    if (NestsTooDeep(text))
        throw Refusal("the JSON nests deeper than " + std::to_string(kDeepestJson) + " levels");
    Json json = Json::parse(text, nullptr, false);
    if (json.is_discarded())
        throw Refusal("the file holds no valid JSON");
    return json;
}

const Json* Member(const Json& object, const char* name)
{
    if (!object.is_object())
        return nullptr;
    const auto found = object.find(name);
    return found == object.end() ? nullptr : &*found;
}

void CheckVersion(const Json& json)
{
    const Json* asset = Member(json, "asset");
    const Json* version = asset ? Member(*asset, "version") : nullptr;
    if (!version || !version->is_string())
        throw Refusal("no glTF 2.0: asset.version is missing");
    const std::string& text = version->get_ref<const std::string&>();
    if (!text.starts_with("2."))
        throw Refusal("glTF " + text + " can't be read, only glTF 2.0");
}

void CheckExtensions(const Json& json)
{
    const Json* required = Member(json, "extensionsRequired");
    if (!required || !required->is_array())
        return;
    for (const Json& name : *required) {
        if (!name.is_string())
            throw Refusal("extensionsRequired holds something that is no name");
        const std::string& text = name.get_ref<const std::string&>();
        if (!text.starts_with("KHR_materials_") &&
            std::ranges::find(kHarmlessExtensions, text) == kHarmlessExtensions.end())
            throw Refusal("the file can't be read without the extension " + text);
    }
}

// tinygltf copies a buffer of the binary chunk by its first byte.
void CheckBuffers(const Json& json)
{
    const Json* buffers = Member(json, "buffers");
    if (!buffers || !buffers->is_array())
        return;
    for (const Json& buffer : *buffers) {
        const Json* length = Member(buffer, "byteLength");
        if (!length || !length->is_number_unsigned() || length->get<std::uint64_t>() == 0)
            throw Refusal("a buffer has no byteLength above 0");
    }
}

std::vector<std::size_t> CountChannels(const Json& json)
{
    std::vector<std::size_t> counts;
    const Json* animations = Member(json, "animations");
    if (!animations || !animations->is_array())
        return counts;
    for (const Json& animation : *animations) {
        const Json* channels = Member(animation, "channels");
        counts.push_back(channels && channels->is_array() ? channels->size() : 0);
    }
    return counts;
}

bool IgnoreImage(tinygltf::Image*, int, std::string*, std::string*, int, int, const unsigned char*, int,
                 void*)
{
    return true;
}

// Devices and pipes named as a buffer would never end.
bool IsRegularFile(const std::string& path, void*)
{
    std::error_code ignored;
    return std::filesystem::is_regular_file(path, ignored);
}

std::string FirstLine(const std::string& text)
{
    return text.substr(0, text.find('\n'));
}

}  // namespace

GltfFile LoadGltfFile(const std::filesystem::path& path)
{
    const std::string bytes = ReadBytes(path);
    GltfFile file;
    {
        const Json json = ParseJson(IsBinary(bytes) ? JsonOfBinary(bytes) : std::string_view(bytes));
        CheckVersion(json);
        CheckExtensions(json);
        CheckBuffers(json);
        file.channelCounts = CountChannels(json);
    }

    tinygltf::TinyGLTF loader;
    loader.SetImageLoader(IgnoreImage, nullptr);
    loader.SetFsCallbacks({IsRegularFile, tinygltf::ExpandFilePath, tinygltf::ReadWholeFile,
                           tinygltf::WriteWholeFile, nullptr});
    std::string error, warning;
    const std::string folder = path.parent_path().string();
    const auto size = static_cast<unsigned int>(bytes.size());
    const bool loaded =
        IsBinary(bytes)
            ? loader.LoadBinaryFromMemory(&file.model, &error, &warning,
                                          reinterpret_cast<const unsigned char*>(bytes.data()), size, folder)
            : loader.LoadASCIIFromString(&file.model, &error, &warning, bytes.data(), size, folder);
    if (!loaded)
        throw Refusal(error.empty() ? "the glTF is malformed" : FirstLine(error));
    file.byteCount = bytes.size();
    for (const tinygltf::Buffer& buffer : file.model.buffers)
        file.byteCount += buffer.data.size();
    return file;
}

}  // namespace maxhost::io
