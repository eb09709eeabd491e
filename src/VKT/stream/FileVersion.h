#pragma once

#include "VKT/base/Types.h"

namespace VKT {

// The version of the format that the library writes.
inline constexpr u32 kCurrentVersion = 4;

// The version of the format that a stream carries: that of the file for one that reads, which
// the loader takes from the file's header, and else the current one. Bodies ask their stream
// alone, and for the version they mean: what is older than the current version is another
// question with each new version.
class XVersioned {
public:
    u32 GetVersion() const { return m_Version; }
    void SetVersion(u32 version) { m_Version = version; }
    bool IsBelow(u32 version) const { return m_Version < version; }

private:
    u32 m_Version = kCurrentVersion;
};

}  // namespace VKT
