#pragma once

#include <string>
#include <vector>

#include "VKT/base/Vectors.h"
#include "max/HostObject.h"
#include "max/RowMatrix.h"

namespace VKTMax {

// A node of the host as it stands at time 0.
struct HostNode {
    INode* handle = nullptr;
    std::string name;
    HostObject object;        // with all modifiers applied; empty when the node has none
    Mtl* material = nullptr;  // null for none
    bool isHidden = false;
    f32 visibility = 1.0f;  // 1 opaque, 0 transparent
    bool isBone = false;    // the switch on the node, whatever its object is
    VKT::XColour wireColour{0, 0, 0, 1};
    RowMatrix world;         // of the pivot frame
    RowMatrix objectOffset;  // from the object's space to the pivot frame
};

// Evaluates the node's object. Null is not allowed, here and below.
HostNode ReadNode(INode* node);

// The tree. The root has no parent: null.
INode* ParentOf(INode* node);
std::vector<INode*> ChildrenOf(INode* node);
bool IsSelected(INode* node);

// The world matrix of the pivot frame at a time in ticks.
RowMatrix WorldMatrix(INode* node, i32 ticks);

}  // namespace VKTMax
