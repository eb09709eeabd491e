#include <algorithm>

#include "common/TerminalText.h"
#include "curves/Plot.h"
#include "curves/PlotPanelSvg.h"
#include "curves/Svg.h"

namespace tool {
namespace {

// In pixels.
constexpr double kMargin = 12;
constexpr double kHead = 66;
constexpr double kFoot = 30;
constexpr double kNarrowest = 480;  // room for the head
constexpr std::size_t kMostColumns = 3;

// A line of text across the picture.
std::string Line(double y, const char* size, const char* weight, const std::string& text)
{
    return SvgText("text", {{"x", kMargin + 8}, {"y", y}, {"font-size", size}, {"font-weight", weight}},
                   text);
}

}  // namespace

std::string ToSvg(const Plot& plot)
{
    const std::size_t columns = std::clamp<std::size_t>(plot.panels.size(), 1, kMostColumns);
    double y = kHead;
    std::string panels;
    for (std::size_t first = 0; first < plot.panels.size(); first += columns) {
        const std::size_t last = std::min(first + columns, plot.panels.size());
        std::size_t legendRows = 1;
        for (std::size_t i = first; i < last; ++i)
            legendRows = std::max(legendRows, CountLegendRows(plot.panels[i]));
        for (std::size_t i = first; i < last; ++i)
            panels += PanelToSvg(plot, plot.panels[i], legendRows,
                                 kMargin + kPanelWidth * static_cast<double>(i - first), y);
        y += PanelHeight(legendRows);
    }
    if (plot.numHiddenPanels > 0) {
        panels += Line(y + 8, "12", "normal", "and " + Counted(plot.numHiddenPanels, "attribute") + " more");
        y += kFoot;
    }

    const double width = std::max(2 * kMargin + kPanelWidth * static_cast<double>(columns), kNarrowest);
    return SvgElement("svg",
                      {{"xmlns", "http://www.w3.org/2000/svg"},
                       {"width", width},
                       {"height", y},
                       {"viewBox", "0 0 " + SvgPixels(width) + " " + SvgPixels(y)},
                       {"font-family", "sans-serif"},
                       {"font-size", "11"},
                       {"fill", "#222222"}},
                      SvgText("title", {}, plot.title + ", " + plot.subtitle) +
                          SvgElement("rect", {{"width", width}, {"height", y}, {"fill", "#ffffff"}}) +
                          Line(32, "18", "bold", plot.title) + Line(52, "12", "normal", plot.subtitle) +
                          panels);
}

}  // namespace tool
