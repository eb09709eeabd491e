#pragma once

#include "maxtypes.h"

// Flags that say something about a mesh, or a part of one.
class CoreExport FlagUser {
public:
    void SetFlag(DWORD f, bool on = true) { m_Flags = on ? m_Flags | f : m_Flags & ~f; }
    void ClearFlag(DWORD f) { m_Flags &= ~f; }
    bool GetFlag(DWORD f) const { return (m_Flags & f) != 0; }

private:
    DWORD m_Flags = 0;
};
