#pragma once

#include "exporter/math/TransformDecomposition.h"
#include "max/HostTypes.h"

namespace VKT {
class XBone;
}  // namespace VKT

namespace VKTMax {

// The scale options of the store.
ScaleRules CurrentScaleRules();

// The transform of a node relative to its parent at a time in ticks; that in the world
// for a node without a parent.
TransformParts LocalTransform(INode* node, i32 ticks);

// Makes the transform both the current and the bind pose of the bone.
void SetPose(VKT::XBone& bone, const TransformParts& transform);

}  // namespace VKTMax
