#pragma once

#include <string>
#include <vector>

class INode;

namespace VKT {
class XModel;
}

namespace tool {

// Lines under a title, such as the nodes that one thing is true of.
struct ExportLoss {
    std::string title;
    std::vector<std::string> lines;
};

// What of the host's scene did not become part of the document that was written of it:
// nodes whose geometry was skipped, and why, and transforms that the format cannot carry.
// Findings without lines are good news.
// `selectedOnly` as the export was told.
std::vector<ExportLoss> FindLosses(INode& root, const VKT::XModel& document, bool selectedOnly);

// What the document holds, in one line.
std::string DescribeDocument(const VKT::XModel& document);

// For people. Of long lists the first lines alone, unless `complete`.
std::string ToText(const ExportLoss& finding, bool complete);

}  // namespace tool
