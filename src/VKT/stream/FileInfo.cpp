#include "VKT/stream/FileInfo.h"

#include <algorithm>

#include "VKT/stream/Platform.h"

namespace VKT {

XFileInfo::XFileInfo(const XString& path) : m_Directory(path), m_Time(LocalTime())
{
    u64 size = 0;
    GetFileTimeAndSize(path.c_str(), m_Time, size);
    m_Size = static_cast<u32>(size);
    std::replace(m_Directory.begin(), m_Directory.end(), '\\', '/');
    const std::size_t slash = m_Directory.rfind('/');
    if (slash == XString::npos) {
        m_FileName = path;
        m_Directory = "./";
    } else {
        m_FileName = m_Directory.substr(slash + 1);
        m_Directory.resize(slash);
    }
}

}  // namespace VKT
