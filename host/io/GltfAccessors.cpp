#include "host/io/GltfAccessors.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "host/io/Refusal.h"

namespace maxhost::io {

namespace {

// Elements that a file may yield per byte of it. Triangle strips make three
// corners out of one index byte; nothing honest comes near this.
constexpr std::uint64_t kElementsPerByte = 16;
// What even the smallest file may yield: an accessor without data is all zeros.
constexpr std::uint64_t kFreeElements = 1u << 16;

[[noreturn]] void Refuse(int accessor, const std::string& reason)
{
    throw Refusal("accessor " + std::to_string(accessor) + " " + reason);
}

template <class T>
T Load(const unsigned char* bytes)
{
    T value;
    std::memcpy(&value, bytes, sizeof(T));
    return value;
}

template <class T>
float LoadInteger(const unsigned char* bytes, bool normalized)
{
    const T value = Load<T>(bytes);
    if (!normalized)
        return static_cast<float>(value);
    return std::max(-1.0f, static_cast<float>(value) / static_cast<float>(std::numeric_limits<T>::max()));
}

// A number of one of glTF's component types; normalised ones come out as -1..1 or 0..1.
float LoadNumber(const unsigned char* bytes, int type, bool normalized)
{
    switch (type) {
        case TINYGLTF_COMPONENT_TYPE_BYTE:
            return LoadInteger<std::int8_t>(bytes, normalized);
        case TINYGLTF_COMPONENT_TYPE_UNSIGNED_BYTE:
            return LoadInteger<std::uint8_t>(bytes, normalized);
        case TINYGLTF_COMPONENT_TYPE_SHORT:
            return LoadInteger<std::int16_t>(bytes, normalized);
        case TINYGLTF_COMPONENT_TYPE_UNSIGNED_SHORT:
            return LoadInteger<std::uint16_t>(bytes, normalized);
        case TINYGLTF_COMPONENT_TYPE_UNSIGNED_INT:
            return static_cast<float>(Load<std::uint32_t>(bytes));
        default:
            return Load<float>(bytes);
    }
}

std::uint32_t LoadIndex(const unsigned char* bytes, int type)
{
    switch (type) {
        case TINYGLTF_COMPONENT_TYPE_UNSIGNED_BYTE:
            return *bytes;
        case TINYGLTF_COMPONENT_TYPE_UNSIGNED_SHORT:
            return Load<std::uint16_t>(bytes);
        default:
            return Load<std::uint32_t>(bytes);
    }
}

bool IsIndexType(int type)
{
    return type == TINYGLTF_COMPONENT_TYPE_UNSIGNED_BYTE || type == TINYGLTF_COMPONENT_TYPE_UNSIGNED_SHORT ||
           type == TINYGLTF_COMPONENT_TYPE_UNSIGNED_INT;
}

std::uint64_t SizeOf(int accessor, int type)
{
    const int size = tinygltf::GetComponentSizeInBytes(static_cast<std::uint32_t>(type));
    if (size <= 0 || type == TINYGLTF_COMPONENT_TYPE_INT || type == TINYGLTF_COMPONENT_TYPE_DOUBLE)
        Refuse(accessor, "has a component type that glTF does not know");
    return static_cast<std::uint64_t>(size);
}

}  // namespace

// Elements that are known to lie within a buffer.
struct GltfAccessors::Block {
    const unsigned char* first = nullptr;
    std::uint64_t stride = 0;
    const unsigned char* At(std::uint64_t index) const { return first + index * stride; }
};

GltfAccessors::GltfAccessors(const GltfFile& file)
    : m_Model(file.model), m_Left(file.byteCount * kElementsPerByte + kFreeElements)
{
}

void GltfAccessors::Charge(std::uint64_t elements)
{
    if (elements > m_Left)
        throw Refusal("the file claims far more data than its size can hold");
    m_Left -= elements;
}

const tinygltf::Accessor& GltfAccessors::Get(int accessor) const
{
    if (accessor < 0 || static_cast<std::size_t>(accessor) >= m_Model.accessors.size())
        Refuse(accessor, "does not exist");
    return m_Model.accessors[static_cast<std::size_t>(accessor)];
}

// Checks that `count` elements of `size` bytes lie within a view and the view
// within its buffer. Nothing here is multiplied before it is bounded.
GltfAccessors::Block GltfAccessors::Locate(int accessor, int viewIndex, std::uint64_t offset,
                                           std::uint64_t count, std::uint64_t size, bool strided) const
{
    if (viewIndex < 0 || static_cast<std::size_t>(viewIndex) >= m_Model.bufferViews.size())
        Refuse(accessor, "names a buffer view that does not exist");
    const tinygltf::BufferView& view = m_Model.bufferViews[static_cast<std::size_t>(viewIndex)];
    if (view.buffer < 0 || static_cast<std::size_t>(view.buffer) >= m_Model.buffers.size())
        Refuse(accessor, "lies in a buffer that does not exist");
    const auto& data = m_Model.buffers[static_cast<std::size_t>(view.buffer)].data;
    if (view.byteOffset > data.size() || view.byteLength > data.size() - view.byteOffset)
        Refuse(accessor, "lies in a buffer view that reaches beyond its buffer");
    if (strided && view.byteStride != 0 && view.byteStride < size)
        Refuse(accessor, "has elements larger than their stride");
    const std::uint64_t stride = strided && view.byteStride != 0 ? view.byteStride : size;
    const std::uint64_t room = view.byteLength;
    if (count > 0 && (offset > room || size > room - offset || (count - 1) > (room - offset - size) / stride))
        Refuse(accessor, "reaches beyond its buffer view");
    return {count > 0 ? data.data() + view.byteOffset + offset : nullptr, stride};
}

const GltfNumbers& GltfAccessors::Read(int index)
{
    const tinygltf::Accessor& accessor = Get(index);
    const auto [entry, isNew] = m_Numbers.try_emplace(index);
    GltfNumbers& numbers = entry->second;
    if (!isNew)
        return numbers;
    numbers.width = static_cast<std::uint32_t>(
        tinygltf::GetNumComponentsInType(static_cast<std::uint32_t>(accessor.type)));
    const std::uint64_t componentSize = SizeOf(index, accessor.componentType);
    // Columns of small integers are padded to four bytes; no matrix of a scene is stored so.
    if (numbers.width > 4 && componentSize != 4)
        Refuse(index, "is a matrix of integers");

    Charge(accessor.count);
    Charge(accessor.count * numbers.width);
    if (accessor.bufferView < 0) {
        numbers.values.assign(accessor.count * numbers.width, 0.0f);
    } else {
        const Block block = Locate(index, accessor.bufferView, accessor.byteOffset, accessor.count,
                                   numbers.width * componentSize, true);
        numbers.values.reserve(accessor.count * numbers.width);
        for (std::uint64_t element = 0; element < accessor.count; ++element)
            for (std::uint32_t i = 0; i < numbers.width; ++i)
                numbers.values.push_back(LoadNumber(block.At(element) + i * componentSize,
                                                    accessor.componentType, accessor.normalized));
    }
    if (accessor.sparse.isSparse)
        ReadSparse(index, numbers);
    return numbers;
}

void GltfAccessors::ReadSparse(int index, GltfNumbers& numbers)
{
    const tinygltf::Accessor& accessor = Get(index);
    const auto& sparse = accessor.sparse;
    if (sparse.count < 0 || sparse.indices.byteOffset < 0 || sparse.values.byteOffset < 0 ||
        !IsIndexType(sparse.indices.componentType))
        Refuse(index, "has a malformed sparse part");
    const auto count = static_cast<std::uint64_t>(sparse.count);
    const std::uint64_t componentSize = SizeOf(index, accessor.componentType);
    const Block indices =
        Locate(index, sparse.indices.bufferView, static_cast<std::uint64_t>(sparse.indices.byteOffset), count,
               SizeOf(index, sparse.indices.componentType), false);
    const Block values =
        Locate(index, sparse.values.bufferView, static_cast<std::uint64_t>(sparse.values.byteOffset), count,
               numbers.width * componentSize, false);
    for (std::uint64_t i = 0; i < count; ++i) {
        const std::uint32_t target = LoadIndex(indices.At(i), sparse.indices.componentType);
        if (target >= accessor.count)
            Refuse(index, "has a sparse index beyond its elements");
        for (std::uint32_t k = 0; k < numbers.width; ++k)
            numbers.values[std::size_t{target} * numbers.width + k] =
                LoadNumber(values.At(i) + k * componentSize, accessor.componentType, accessor.normalized);
    }
}

const GltfNumbers& GltfAccessors::Numbers(int accessor, std::uint32_t width)
{
    const GltfNumbers& numbers = Read(accessor);
    if (numbers.width != width)
        Refuse(accessor, "has " + std::to_string(numbers.width) + " numbers per element where " +
                             std::to_string(width) + " are needed");
    return numbers;
}

const GltfNumbers& GltfAccessors::Colours(int accessor)
{
    const GltfNumbers& numbers = Read(accessor);
    if (numbers.width != 3 && numbers.width != 4)
        Refuse(accessor, "holds no colours");
    return numbers;
}

std::vector<std::uint32_t> GltfAccessors::Indices(int index)
{
    const tinygltf::Accessor& accessor = Get(index);
    if (accessor.type != TINYGLTF_TYPE_SCALAR || !IsIndexType(accessor.componentType) ||
        accessor.bufferView < 0 || accessor.sparse.isSparse)
        Refuse(index, "holds no indices");
    Charge(accessor.count);
    const Block block = Locate(index, accessor.bufferView, accessor.byteOffset, accessor.count,
                               SizeOf(index, accessor.componentType), true);
    std::vector<std::uint32_t> indices;
    indices.reserve(accessor.count);
    for (std::uint64_t i = 0; i < accessor.count; ++i)
        indices.push_back(LoadIndex(block.At(i), accessor.componentType));
    return indices;
}

}  // namespace maxhost::io
