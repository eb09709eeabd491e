#include "VKT/Image.h"

#include <algorithm>
#include <bit>

namespace VKT {
namespace {

// log2 of a size that a nibble can hold, 0 for any other.
u8 SizeNibble(u32 size)
{
    return size >= 2 && size <= 32768 && std::has_single_bit(size) ? static_cast<u8>(std::countr_zero(size)) : 0;
}

}  // namespace

bool XImage::DoData(XFileIO& file)
{
    u8 sizes = static_cast<u8>(SizeNibble(m_Width) | SizeNibble(m_Height) << 4);
    u8 channels = static_cast<u8>((m_Channels - 1) & 3);
    if (!file.DoData(m_ID) || !file.DoData(sizes) || !file.DoData(channels))
        return false;
    if (file.IsReading()) {
        m_Width = 1u << (sizes & 15);
        m_Height = 1u << (sizes >> 4);
        m_Channels = (channels & 3u) + 1;
    }
    if (!file.DoData(m_Name))
        return false;
    if (m_Name.empty())
        return true;
    if (!file.DoData(m_Path))
        return false;
    if ((sizes & 15) == 0 || sizes >> 4 == 0 || (channels & 3) == 0)
        return true;

    const std::size_t bytes = std::size_t{1} * m_Width * m_Height * m_Channels;
    if (file.IsWriting()) {
        m_Pixels.resize(bytes, 0);
        return file.DoData(m_Pixels.data(), bytes) != 0;
    }
    // The header may claim 4 GiB: the pixels grow with what the file really holds.
    constexpr std::size_t kStep = 1 << 20;
    m_Pixels.clear();
    while (m_Pixels.size() < bytes) {
        const std::size_t begin = m_Pixels.size();
        m_Pixels.resize(std::min(bytes, begin + kStep));
        if (!file.DoData(m_Pixels.data() + begin, m_Pixels.size() - begin))
            return false;
    }
    return true;
}

}  // namespace VKT
