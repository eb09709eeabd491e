#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/io/GltfFile.h"

namespace maxhost::io {

// The numbers of one accessor, element after element.
struct GltfNumbers {
    std::vector<float> values;
    std::uint32_t width = 1;  // numbers per element
    std::size_t Count() const { return values.size() / width; }
};

// Reads accessors with every offset, stride, count and index checked against what
// is there: tinygltf delivers them as the file claims them. Strides, integers,
// normalised integers and sparse accessors are resolved.
//
// A small file can claim much by naming one accessor many times over or one
// without data; so all that is read is counted against the size of the file, and
// what no honest file reaches is refused.
//
// All functions throw Refusal with the accessor's number.
class GltfAccessors {
public:
    explicit GltfAccessors(const GltfFile& file);

    // An accessor with elements of `width` numbers. Read once and kept.
    const GltfNumbers& Numbers(int accessor, std::uint32_t width);
    // The same with 3 or 4 numbers per element, as colours may come.
    const GltfNumbers& Colours(int accessor);
    // Single unsigned integers.
    std::vector<std::uint32_t> Indices(int accessor);

    // Counts `elements` that are about to be made out of what was read.
    void Charge(std::uint64_t elements);

private:
    struct Block;
    const tinygltf::Accessor& Get(int accessor) const;
    Block Locate(int accessor, int view, std::uint64_t offset, std::uint64_t count, std::uint64_t size,
                 bool strided) const;
    const GltfNumbers& Read(int accessor);
    void ReadSparse(int accessor, GltfNumbers& numbers);

    const tinygltf::Model& m_Model;
    std::uint64_t m_Left;
    std::map<int, GltfNumbers> m_Numbers;
};

}  // namespace maxhost::io
