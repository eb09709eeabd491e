#pragma once

#include <string>
#include <vector>

#include "host/io/NeutralScene.h"
#include "max.h"

namespace maxhost::io {

struct BuildOptions {
    // The one animation to build. Empty: all of them, as far as no two drive the same
    // part of a node; the host has a single time line.
    std::string animation;
};

// What became of a scene.
struct BuildReport {
    std::vector<INode*> nodes;     // by number in the neutral scene
    std::vector<Object*> objects;  // by mesh; null where no node uses it
    std::vector<Mtl*> materials;   // by material; null where no built mesh uses it
    std::vector<std::string> warnings;
    // Between quaternion tracks and the Euler keys they became, in radians.
    double largestRotationError = 0.0;
    std::string worstRotation;  // the node it was found on
};

// Builds a scene file's content into the host's scene, which keeps what it has.
//
// A node becomes a node with a PRS controller: position XYZ, Euler XYZ, and a scale
// without keys or, where it is animated, of X, Y and Z. Nodes with a mesh get a
// triangle object, or a polygon object where a face has more than three corners; one
// object serves all nodes that share a mesh. Other nodes get a bone object when they
// are joints, else a dummy. Files that are not Z-up are turned at the top nodes. Units
// stay those of the file.
BuildReport BuildScene(const NeutralScene& scene, const BuildOptions& options = {});

}  // namespace maxhost::io
