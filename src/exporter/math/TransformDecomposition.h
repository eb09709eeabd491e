#pragma once

#include "VKT/base/Quaternion.h"
#include "max/RowMatrix.h"

namespace VKTMax {

// What the options say about lengths and scale.
struct ScaleRules {
    double factor = 1.0;      // multiplies translations and vertices
    bool removeScale = true;  // no bone carries scale: it goes into offsets and vertices
};

// A transform relative to its parent, as a bone holds it.
struct TransformParts {
    VKT::XQuaternion rotation;
    VKT::XVector3 translation;
    VKT::XVector3 scale;
};

// Splits the world matrix `child` relative to that of its parent.
//
// A bone has neither shear nor mirror: the rotation is what Gram-Schmidt leaves of the
// axes, and the scale is always positive. A mirror lives on in the vertices alone (see
// `VertexScale`). Of a NaN, x, y and z of the rotation, translation and scale come out
// as 0; w passes as it is.
TransformParts DecomposeTransform(const RowMatrix& child, const RowMatrix& parent, const ScaleRules& rules);

// What multiplies the vertices of a node with that world matrix, each axis by its own:
// the factor, and when bones carry no scale that of the node, x negative for a mirror.
Vector3d VertexScale(const RowMatrix& node, const ScaleRules& rules);

}  // namespace VKTMax
