#pragma once

#include "VKT/hierarchy/Bone.h"
#include "exporter/math/TransformDecomposition.h"

namespace VKTMax {

// Makes the transform both the current and the bind pose of the bone.
inline void SetPose(VKT::XBone& bone, const TransformParts& transform)
{
    bone.SetRotation(transform.rotation);
    bone.SetScale(transform.scale);
    bone.SetTranslate(transform.translation);
    bone.SetBindFromCurrent();
}

}  // namespace VKTMax
