#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace maxhost::io {

// Puts numbers into the buffer of a small glTF file, one view and accessor per list,
// and writes the file with the JSON of the test around them.
class GltfFixture {
public:
    // Numbers of the accessors, in the order of the calls.
    int AddFloats(const std::vector<float>& values, const char* type, int width)
    {
        return Add(values, 5126, type, width, "");
    }
    int AddShorts(const std::vector<std::uint16_t>& values, const char* type = "SCALAR", int width = 1,
                  const char* more = "")
    {
        return Add(values, 5123, type, width, more);
    }
    int AddBytes(const std::vector<std::uint8_t>& values, const char* type, int width, const char* more = "")
    {
        return Add(values, 5121, type, width, more);
    }
    // A view without an accessor, and an accessor as it stands in JSON.
    int AddView(const void* data, std::size_t size, int stride = 0)
    {
        const std::size_t offset = Append(data, size);
        m_Views += Comma(m_Views) + "{\"buffer\":0,\"byteOffset\":" + std::to_string(offset) +
                   ",\"byteLength\":" + std::to_string(size) +
                   (stride > 0 ? ",\"byteStride\":" + std::to_string(stride) : "") + "}";
        return m_ViewCount++;
    }
    int AddAccessor(const std::string& json)
    {
        m_Accessors += Comma(m_Accessors) + json;
        return m_AccessorCount++;
    }

    // `rest` is the inside of the document: "nodes", "meshes" and so on.
    std::string Text(const std::string& rest) const
    {
        return Document(rest, ",\"uri\":\"data:application/octet-stream;base64," + Base64() + "\"");
    }
    std::string Binary(const std::string& rest) const
    {
        std::string json = Document(rest, "");
        json.resize((json.size() + 3) / 4 * 4, ' ');
        std::string data(m_Data.begin(), m_Data.end());
        data.resize((data.size() + 3) / 4 * 4, '\0');
        return "glTF" + Word(2) + Word(28 + json.size() + data.size()) + Word(json.size()) + "JSON" + json +
               Word(data.size()) + std::string("BIN\0", 4) + data;
    }

private:
    template <class T>
    int Add(const std::vector<T>& values, int componentType, const char* type, int width, const char* more)
    {
        const int view = AddView(values.data(), values.size() * sizeof(T));
        return AddAccessor("{\"bufferView\":" + std::to_string(view) +
                           ",\"componentType\":" + std::to_string(componentType) +
                           ",\"count\":" + std::to_string(values.size() / static_cast<std::size_t>(width)) +
                           ",\"type\":\"" + type + "\"" + more + "}");
    }

    std::size_t Append(const void* data, std::size_t size)
    {
        m_Data.resize((m_Data.size() + 3) / 4 * 4);
        const std::size_t offset = m_Data.size();
        m_Data.resize(offset + size);
        std::memcpy(m_Data.data() + offset, data, size);
        return offset;
    }

    std::string Document(const std::string& rest, const std::string& uri) const
    {
        return "{\"asset\":{\"version\":\"2.0\"}," + rest + ",\"accessors\":[" + m_Accessors +
               "],\"bufferViews\":[" + m_Views +
               "],\"buffers\":[{\"byteLength\":" + std::to_string(m_Data.size()) + uri + "}]}";
    }

    std::string Base64() const
    {
        constexpr std::string_view kDigits =
            "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
        std::string text;
        for (std::size_t i = 0; i < m_Data.size(); i += 3) {
            std::uint32_t block = 0;
            for (std::size_t k = 0; k < 3; ++k)
                block = block << 8 | (i + k < m_Data.size() ? m_Data[i + k] : 0u);
            for (std::size_t k = 0; k < 4; ++k)
                text += i + k <= m_Data.size() ? kDigits[block >> (18 - 6 * k) & 63] : '=';
        }
        return text;
    }

    static std::string Word(std::size_t value)
    {
        std::string word;
        for (int i = 0; i < 4; ++i)
            word += static_cast<char>(value >> (8 * i) & 255);
        return word;
    }
    static std::string Comma(const std::string& list) { return list.empty() ? "" : ","; }

    std::vector<std::uint8_t> m_Data;
    std::string m_Views, m_Accessors;
    int m_ViewCount = 0;
    int m_AccessorCount = 0;
};

}  // namespace maxhost::io
