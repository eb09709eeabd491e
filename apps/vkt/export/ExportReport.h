#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

class INode;

namespace VKT {
class XModel;
}

namespace tool {

// Lines under a title, such as the nodes that one thing is true of.
struct ExportLoss {
    std::string title;
    std::size_t count = 0;  // one line may stand for several
    std::vector<std::string> lines = {};

    void Add(std::string line)
    {
        ++count;
        lines.push_back(std::move(line));
    }
};

// What a scene file holds beside the nodes of the host's scene.
struct SceneContent {
    std::vector<std::string> warnings = {};  // of what read it and built the host's scene
    std::size_t materials = 0;
    std::size_t animations = 0;
};

// What of the host's scene did not become part of the document that was written of it:
// nodes whose geometry was skipped, and why, and transforms that the format cannot carry.
// Findings without lines are good news.
// `selectedOnly` as the export was told.
std::vector<ExportLoss> FindLosses(INode& root, const VKT::XModel& document, bool selectedOnly);

// Kinds of things of which the scene holds more than the document.
ExportLoss FindAbsent(const SceneContent& content, const VKT::XModel& document);

// What the document holds, in one line.
std::string DescribeDocument(const VKT::XModel& document);

// For people. Of long lists the first lines alone, unless `complete`.
std::string ToText(const ExportLoss& finding, bool complete);

}  // namespace tool
