#pragma once

#include <max.h>

#include <functional>
#include <string>
#include <vector>

#include "VKT/document/Model.h"

// Compares where the vertices of a document stand with where the host shows them.
namespace world_positions {

// What the document was exported under.
struct Rules {
    double factor = 1.0;       // ScaleFactor
    bool removeScale = true;   // RemoveScale
    bool currentPose = false;  // UseCurrentPoseAsBindpose
    // The matrix that bones were posed by; the node's at time 0 when nothing is set.
    std::function<Matrix3(INode*)> bindMatrix;
};

// What became of the nodes of a scene. Distances are parts of `size`.
struct Report {
    // Nodes whose vertices must stand exactly where the host shows them, as nothing on the
    // way from the root is beyond what bones hold. With scale removed: no world matrix on
    // the way is sheared, and no node above is mirrored. With scale kept: each transform
    // relative to its parent is a scale and a rotation without a mirror, and no joint is
    // below a scaled bone. Nodes posed by another matrix than that of time 0 are not among
    // them.
    std::size_t exactNodes = 0;
    double exactError = 0.0;
    std::string exactWorst;  // the node with the largest error

    // All others follow the exporter's rules, which keep no shear and no inherited
    // mirror: they are compared with a model of those rules.
    std::size_t ruleNodes = 0;
    double ruleError = 0.0;
    std::string ruleWorst;

    // Nodes below a transform that leaves no rotation to find. Not compared.
    std::size_t degenerateNodes = 0;
    // Nodes without geometry because another node shows the same object.
    std::size_t sharedNodes = 0;

    std::size_t points = 0;
    double size = 0.0;  // the larger of the scene's extent and its largest coordinate
    // What does not fit at all: bones or points that are missing.
    std::vector<std::string> problems;
};

// Compares the whole scene below `root` with the document that it was exported to, in
// memory or read again from a file. Updates the document's world matrices.
Report Compare(INode* root, VKT::XModel& model, const Rules& rules);

}  // namespace world_positions
