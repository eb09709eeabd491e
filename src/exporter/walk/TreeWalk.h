#pragma once

#include <vector>

#include "max/Node.h"

namespace VKTMax {

// What a visit of a node answers.
enum class Visit {
    Stop,     // the walk ends with false
    Skip,     // the walk goes on past the node and what is below it
    Descend,  // the node's children are next, then it is left
};

// Visits a node and what is below it, depth first, children in order: `enter(node)` before
// the children of a node, `leave(node)` after them. Answers false when a visit said stop or
// `leave` answered false. It does not recurse: hierarchies may be a million deep.
template <class Enter, class Leave>
bool WalkTree(INode* root, Enter enter, Leave leave)
{
    struct Step {
        INode* node;
        std::vector<INode*> children;
        std::size_t next = 0;
    };
    std::vector<Step> path;
    const auto visit = [&](INode* node) {
        const Visit answer = enter(node);
        if (answer == Visit::Descend)
            path.push_back({node, ChildrenOf(node)});
        return answer != Visit::Stop;
    };
    if (!visit(root))
        return false;
    while (!path.empty()) {
        Step& step = path.back();
        if (step.next < step.children.size()) {
            if (!visit(step.children[step.next++]))
                return false;
        } else {
            INode* left = step.node;
            path.pop_back();
            if (!leave(left))
                return false;
        }
    }
    return true;
}

}  // namespace VKTMax
