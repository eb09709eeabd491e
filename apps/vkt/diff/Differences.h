#pragma once

#include <optional>
#include <string>
#include <vector>

namespace VKT {
class XModel;
}

namespace tool {

// One place where two documents differ.
struct Difference {
    std::string node;                             // its name, empty for what belongs to no node
    std::string type;                             // of the node
    std::size_t place = 0;                        // among the nodes of this name and type
    std::string field;                            // empty where one document alone holds the node
    std::optional<std::string> a = std::nullopt;  // none where `a` holds no such thing
    std::optional<std::string> b = std::nullopt;
    std::size_t count = 1;  // of values of the field that differ; this is the first
};

// What two documents that were loaded hold otherwise.
//
// Nodes, animation cycles among them, are compared by what their text forms hold, with floats in full; those
// of one name and type are matched in order. Ids don't matter, nor does the order of chunks: a reference is
// compared by the node that it leads to. Numbers are equal when they differ by at most `tolerance`, or, above
// 1, by that part of the larger one.
//
// Both documents must be such that they could be saved as text (`XModel::CanSaveAsText`).
std::vector<Difference> FindDifferences(const VKT::XModel& a, const VKT::XModel& b, double tolerance);

// For people: a line for each, names cleaned.
std::string ToText(const std::vector<Difference>& differences, const std::string& fileA,
                   const std::string& fileB);
// One JSON object, as docs/tool.md describes it. ASCII alone.
std::string ToJson(const std::vector<Difference>& differences, const std::string& fileA,
                   const std::string& fileB, double tolerance);

}  // namespace tool
