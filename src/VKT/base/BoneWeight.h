#pragma once

#include "VKT/base/Vector.h"

namespace VKT {

// How strongly one bone moves a point: 8 bytes, in files too.
struct XBoneWeight {
    f32 m_Weight;
    u32 m_Influence;  // the bone's place in the list of influences
    bool operator==(const XBoneWeight&) const = default;
};

// The weights of one point.
using XWeightList = XVector<XBoneWeight>;

}  // namespace VKT
