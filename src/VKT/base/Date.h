#pragma once

#include "VKT/base/Types.h"

namespace VKT {

// A calendar moment as files hold it: 24 bytes, the full year, months from 1.
struct XDate {
    u32 day, month, year, hour, minute, second;
    bool operator==(const XDate&) const = default;
};

}  // namespace VKT
