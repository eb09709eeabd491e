#pragma once

#include "VKT/base/FlagStack.h"

namespace VKT {

// What is changed of an option word while this lives is undone when it ends, whichever way.
class XFlagScope {
public:
    explicit XFlagScope(XFlagStack& flags) : m_Flags(flags), m_Kept(flags) {}
    ~XFlagScope() { m_Flags = m_Kept; }
    XFlagScope(const XFlagScope&) = delete;
    XFlagScope& operator=(const XFlagScope&) = delete;

private:
    XFlagStack& m_Flags;
    const XFlagStack m_Kept;
};

}  // namespace VKT
