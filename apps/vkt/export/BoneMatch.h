#pragma once

#include <string>
#include <vector>

class INode;

namespace VKT {
class XBone;
class XModel;
}  // namespace VKT

namespace tool {

// A node of the host and its bone. Parents stand before their children in a list.
struct PlacedNode {
    INode* node = nullptr;
    int parent = -1;  // place of its parent in the list, -1 when that has no bone
    const VKT::XBone* bone = nullptr;
};

// Which bone of a document stands for which node of the scene that it was written of.
struct BoneMatch {
    std::vector<PlacedNode> nodes;  // depth first, children in order
    std::vector<INode*> missing;    // nodes that were to be exported and have no bone
};

// Walks both trees together: a node's bone hangs below the bone of its parent, else under
// no other, and bears its name, with a number where that was taken. Bones come in any
// order, as skins make some ahead of the walk, and there are bones that no node has, such
// as handles of deformers. With `selectedOnly`, unselected nodes may have bones and need
// not.
BoneMatch MatchBones(INode& root, const VKT::XModel& document, bool selectedOnly);

}  // namespace tool
