#pragma once

#include <functional>
#include <string>
#include <vector>

namespace VKT {
class XBase;
}

namespace tool {

// Fills `next` with the nodes to which the edges of a node lead. The list is empty before.
using EdgeLister = std::function<void(const VKT::XBase& node, std::vector<const VKT::XBase*>& next)>;

// A way along edges that leads back to its begin.
struct Ring {
    std::vector<const VKT::XBase*> begin;  // its first nodes
    std::size_t length = 0;                // in nodes

    // "a > b > a", or "a > b > ... > a (1000 nodes)".
    std::string Text() const;
};

// Walks depth first from each start in order, takes each edge once, and answers a ring for
// each edge that leads back onto the way to it. Linear in nodes and edges.
std::vector<Ring> FindRings(const std::vector<const VKT::XBase*>& starts, const EdgeLister& listEdges);

}  // namespace tool
