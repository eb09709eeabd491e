#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace VKT {
class XAnimationTake;
}

namespace tool {

// What `vkt curves` draws of a take: numbers and names alone, of a size that does not
// depend on that of the take.

// Times are in the unit of the plot.
struct PlotPoint {
    double time = 0;
    double value = 0;
};

struct PlotRange {
    double low = 0;
    double high = 0;
};

// One component of an attribute.
struct PlotLine {
    std::string name;
    std::vector<PlotPoint> points;  // by time; a value that is not finite interrupts the line
    std::vector<PlotPoint> keys;    // of a curve, empty when there are too many to mark
};

// One attribute of a node.
struct PlotPanel {
    std::string title;   // "node.attribute"
    std::string source;  // what the values are: "25 samples"
    PlotRange times;     // the take's, and those of all keys and samples
    std::vector<PlotLine> lines;
    std::size_t numHiddenLines = 0;  // lines beyond the most that a panel shows
};

struct Plot {
    std::string title;
    std::string subtitle;
    std::string timeUnit;  // "seconds"; "frames" for a take without a rate
    PlotRange times;       // of the take
    std::vector<PlotPanel> panels;
    std::size_t numHiddenPanels = 0;  // attributes beyond the most that a plot shows
};

// The animated attributes of a take, those of one node with `node`. Frames become seconds
// by the take's rate; keys of curves are in seconds already.
Plot PlotTake(const VKT::XAnimationTake& take, const std::optional<std::string>& node);

// The picture, an SVG document in UTF-8. Names are cleaned as in `CleanText`.
std::string ToSvg(const Plot& plot);

}  // namespace tool
