#include "VKT/document/Image.h"

#include <algorithm>
#include <bit>

#include "VKT/base/Logger.h"

namespace VKT {
namespace {

// log2 of a size that a nibble can hold, 0 for any other.
u8 SizeNibble(u32 size)
{
    return size >= 2 && size <= 32768 && std::has_single_bit(size) ? static_cast<u8>(std::countr_zero(size))
                                                                   : 0;
}

// How many bytes of pixels stand behind a record with these two bytes in its header.
u64 NumPixelBytes(u8 sizes, u8 channels)
{
    const u32 width = sizes & 15, height = sizes >> 4, more = channels & 3;
    return width && height && more ? (u64{1} << (width + height)) * (more + 1) : 0;
}

}  // namespace

bool XImage::DoData(XFileIO& file)
{
    u8 sizes = static_cast<u8>(SizeNibble(m_Width) | SizeNibble(m_Height) << 4);
    u8 channels = static_cast<u8>((m_Channels - 1) & 3);
    if (file.IsWriting() && m_Pixels.size() < NumPixelBytes(sizes, channels)) {
        GetLogger()->LogFormat(kWarning, "image \"%s\" lacks pixels: it is written without any",
                               m_Name.c_str());
        channels = 0;
    }
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
    const u64 bytes = NumPixelBytes(sizes, channels);
    if (file.IsWriting())
        return bytes == 0 || file.DoData(m_Pixels.data(), bytes);
    // The header may claim 4 GiB: the pixels grow with what the file really holds.
    constexpr u64 kStep = 1 << 20;
    m_Pixels.clear();
    while (m_Pixels.size() < bytes) {
        const std::size_t begin = m_Pixels.size();
        m_Pixels.resize(std::min(bytes, begin + kStep));
        if (!file.DoData(m_Pixels.data() + begin, m_Pixels.size() - begin)) {
            m_Pixels.resize(begin);
            return false;
        }
    }
    return true;
}

}  // namespace VKT
