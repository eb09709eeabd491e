#pragma once

#include "VKT/base/Date.h"
#include "VKT/base/Lists.h"

namespace VKT {

// Name, folder, size and time of a file.
class XFileInfo {
public:
    // Asks the platform about `path`. A file that can't be asked has the present time and
    // size 0. The name is what stands behind the last slash or backslash; the folder is
    // what stands before it, with slashes and without a last one, or "./".
    explicit XFileInfo(const XString& path);

    const XString& GetName() const { return m_FileName; }
    const XString& GetDirectory() const { return m_Directory; }
    // Bytes, cut to 32 bits.
    u32 GetSize() const { return m_Size; }
    // Local time of the last change.
    const XDate& GetTime() const { return m_Time; }

private:
    XString m_FileName;
    XString m_Directory;
    u32 m_Size = 0;
    XDate m_Time;
};

}  // namespace VKT
