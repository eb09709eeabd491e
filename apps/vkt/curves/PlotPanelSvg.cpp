#include "curves/PlotPanelSvg.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

#include "common/TerminalText.h"
#include "curves/PlotAxis.h"
#include "curves/Svg.h"

namespace tool {
namespace {

// Inside a panel, in pixels.
constexpr double kLeft = 60;
constexpr double kTop = 26;  // above the legend
constexpr double kLegendRow = 15;
constexpr double kPlotWidth = 276;
constexpr double kPlotHeight = 130;
constexpr double kInset = 5;  // between the frame and the lowest and highest values
constexpr double kBottom = 46;
constexpr double kLegendDash = 16;  // from the start of an entry to its name
constexpr double kLegendGap = 10;
constexpr std::size_t kMostTitle = 34;  // characters

// Told apart by all common kinds of colour vision. The first three are the usual ones of
// the axes x, y and z.
constexpr std::array kColours = {"#d55e00", "#009e73", "#0072b2", "#cc79a7",
                                 "#e69f00", "#56b4e9", "#333333", "#882255"};

const char* ColourOf(std::size_t line)
{
    return kColours[line % kColours.size()];
}

struct Spot {
    double x;
    double y;
};
using Spots = std::vector<Spot>;

double Distance(Spot spot, Spot a, Spot b)
{
    const Spot way = {b.x - a.x, b.y - a.y};
    const double square = way.x * way.x + way.y * way.y;
    const double along = ((spot.x - a.x) * way.x + (spot.y - a.y) * way.y) / square;
    const double part = square > 0 ? std::clamp(along, 0.0, 1.0) : 0;
    return std::hypot(a.x + part * way.x - spot.x, a.y + part * way.y - spot.y);
}

// Leaves out what nobody sees: spots within a twentieth of a pixel from the way between
// those that stay (Douglas and Peucker).
Spots Simplified(const Spots& spots)
{
    constexpr double kTolerance = 0.05;
    std::vector<bool> stays(spots.size(), false);
    stays.front() = stays.back() = true;
    std::vector<std::pair<std::size_t, std::size_t>> pending = {{0, spots.size() - 1}};
    while (!pending.empty()) {
        const auto [first, last] = pending.back();
        pending.pop_back();
        double most = kTolerance;
        std::size_t furthest = first;
        for (std::size_t i = first + 1; i < last; ++i)
            if (const double distance = Distance(spots[i], spots[first], spots[last]); distance > most) {
                most = distance;
                furthest = i;
            }
        if (furthest == first)
            continue;
        stays[furthest] = true;
        pending.push_back({first, furthest});
        pending.push_back({furthest, last});
    }
    Spots out;
    for (std::size_t i = 0; i < spots.size(); ++i)
        if (stays[i])
            out.push_back(spots[i]);
    return out;
}

PlotRange ValuesOf(const PlotPanel& panel)
{
    PlotRange out = {HUGE_VAL, -HUGE_VAL};
    const auto include = [&out](const std::vector<PlotPoint>& points) {
        for (const PlotPoint& point : points)
            if (std::isfinite(point.value))
                out = {std::min(out.low, point.value), std::max(out.high, point.value)};
    };
    for (const PlotLine& line : panel.lines) {
        include(line.points);
        include(line.keys);
    }
    return out.low <= out.high ? out : PlotRange{0, 1};
}

// Names in the legend; a last one stands for the lines that are not shown.
std::vector<std::string> LegendNames(const PlotPanel& panel)
{
    std::vector<std::string> names;
    for (const PlotLine& line : panel.lines)
        names.push_back(line.name);
    if (panel.numHiddenLines > 0)
        names.push_back("and " + std::to_string(panel.numHiddenLines) + " more");
    return names;
}

// Where the entries of the legend start, row by row in the width of the plot.
Spots LayOutLegend(const std::vector<std::string>& names)
{
    constexpr double kCharacter = 6;
    Spots out;
    Spot next = {0, 0};
    for (const std::string& name : names) {
        const double width = kLegendDash + kCharacter * static_cast<double>(name.size());
        if (next.x > 0 && next.x + width > kPlotWidth)
            next = {0, next.y + kLegendRow};
        out.push_back(next);
        next.x += width + kLegendGap;
    }
    return out;
}

// At most so many characters, without those in the middle: both the start of the node's
// name and the attribute's are worth to be seen.
std::string Shortened(const std::string& text, std::size_t most)
{
    std::vector<std::size_t> starts;  // of the characters, in UTF-8
    for (std::size_t i = 0; i < text.size(); ++i)
        if ((text[i] & 0xC0) != 0x80)
            starts.push_back(i);
    if (starts.size() <= most)
        return text;
    const std::size_t half = (most - 3) / 2;
    return text.substr(0, starts[half]) + "..." + text.substr(starts[starts.size() - half]);
}

// As high as the plot.
std::string Box(double x, double width, const char* fill, const char* stroke)
{
    return SvgElement(
        "rect", {{"x", x}, {"width", width}, {"height", kPlotHeight}, {"fill", fill}, {"stroke", stroke}});
}

// One panel while it is drawn. Coordinates are those of the plot, whose upper left corner
// is the origin.
class PanelDrawing {
public:
    PanelDrawing(const Plot& plot, const PlotPanel& panel)
        : m_Plot(plot),
          m_Panel(panel),
          m_Times(PlotAxis::OfTimes(panel.times)),
          m_Values(PlotAxis::OfValues(ValuesOf(panel)))
    {
    }

    std::string Draw(double legendHeight) const
    {
        return Title(legendHeight) + Legend(legendHeight) + Ground() + TimeMarks() + ValueMarks() +
               Box(0, kPlotWidth, "none", "#999999") + Lines() + Keys();
    }

private:
    double XOf(double time) const { return m_Times.PlaceOf(time) * kPlotWidth; }
    double YOf(double value) const
    {
        return std::lerp(kPlotHeight - kInset, kInset, m_Values.PlaceOf(value));
    }

    std::string Title(double legendHeight) const;
    std::string Legend(double legendHeight) const;
    std::string Ground() const;
    std::string TimeMarks() const;
    std::string ValueMarks() const;
    std::string Lines() const;
    std::string Keys() const;
    std::vector<Spots> RunsOf(const PlotLine& line) const;

    const Plot& m_Plot;
    const PlotPanel& m_Panel;
    PlotAxis m_Times;
    PlotAxis m_Values;
};

std::string PanelDrawing::Title(double legendHeight) const
{
    const std::string title = CleanText(m_Panel.title);
    return SvgText("title", {}, title) +
           SvgText("text", {{"y", -legendHeight - 8}, {"font-size", "13"}, {"font-weight", "bold"}},
                   Shortened(title, kMostTitle));
}

std::string PanelDrawing::Legend(double legendHeight) const
{
    const std::vector<std::string> names = LegendNames(m_Panel);
    const Spots places = LayOutLegend(names);
    std::string out;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const double y = places[i].y - legendHeight + kLegendRow / 2;
        if (i < m_Panel.lines.size())
            out += SvgElement("line", {{"x1", places[i].x},
                                       {"x2", places[i].x + kLegendDash - 4},
                                       {"y1", y - 3.5},
                                       {"y2", y - 3.5},
                                       {"stroke", ColourOf(i)},
                                       {"stroke-width", "2.5"}});
        out += SvgText("text", {{"x", places[i].x + kLegendDash}, {"y", y}}, names[i]);
    }
    return SvgElement("g", {{"class", "legend"}}, out);
}

// Grey where the take does not reach, if it has any length.
std::string PanelDrawing::Ground() const
{
    const double left = XOf(m_Plot.times.low);
    const double right = XOf(m_Plot.times.high);
    if (!(right > left) || right - left > kPlotWidth - 0.1)
        return {};
    return Box(0, kPlotWidth, "#ececec", "none") + Box(left, right - left, "#ffffff", "none");
}

std::string PanelDrawing::TimeMarks() const
{
    std::string lines;
    std::string labels;
    for (const double mark : m_Times.GetMarks()) {
        const double x = XOf(mark);
        lines += SvgElement("line", {{"x1", x}, {"x2", x}, {"y2", kPlotHeight}});
        labels += SvgText("text", {{"x", x}, {"y", kPlotHeight + 14}}, m_Times.LabelOf(mark));
    }
    return SvgElement("g", {{"class", "time-marks"}, {"stroke", "#dddddd"}}, lines) +
           SvgElement("g", {{"class", "times"}, {"text-anchor", "middle"}}, labels) +
           SvgText("text", {{"y", kPlotHeight + 29}}, m_Plot.timeUnit) +
           SvgText("text",
                   {{"x", kPlotWidth}, {"y", kPlotHeight + 29}, {"text-anchor", "end"}, {"fill", "#777777"}},
                   m_Panel.source);
}

std::string PanelDrawing::ValueMarks() const
{
    std::string lines;
    std::string labels;
    for (const double mark : m_Values.GetMarks()) {
        const double y = YOf(mark);
        lines += SvgElement(
            "line",
            {{"x2", kPlotWidth}, {"y1", y}, {"y2", y}, {"stroke", mark == 0 ? "#aaaaaa" : "#dddddd"}});
        labels += SvgText("text", {{"x", "-6"}, {"y", y + 3.5}}, m_Values.LabelOf(mark));
    }
    return SvgElement("g", {{"class", "value-marks"}}, lines) +
           SvgElement("g", {{"class", "values"}, {"text-anchor", "end"}}, labels);
}

// The pieces of a line between values that are not finite.
std::vector<Spots> PanelDrawing::RunsOf(const PlotLine& line) const
{
    std::vector<Spots> out;
    bool isInterrupted = true;
    for (const PlotPoint& point : line.points) {
        if (!std::isfinite(point.value)) {
            isInterrupted = true;
            continue;
        }
        if (isInterrupted)
            out.emplace_back();
        isInterrupted = false;
        out.back().push_back({XOf(point.time), YOf(point.value)});
    }
    for (Spots& run : out)
        run = Simplified(run);
    return out;
}

std::string TextOf(const Spots& run)
{
    std::string out;
    for (const Spot& spot : run) {
        if (!out.empty())
            out += ' ';
        out += SvgPixels(spot.x) + "," + SvgPixels(spot.y);
    }
    return out;
}

std::string Dashed(const std::string& pattern, double offset, const std::string& lines)
{
    return SvgElement("g", {{"stroke-dasharray", pattern}, {"stroke-dashoffset", offset}}, lines);
}

// Lines that lie on each other are dashed in turns, so that all of them are seen.
std::string PanelDrawing::Lines() const
{
    constexpr double kDash = 8;
    std::vector<std::string> lines;  // what each draws, but for colours and dashes
    std::map<std::string, std::size_t> numEqual;
    for (const PlotLine& line : m_Panel.lines) {
        std::string& out = lines.emplace_back();
        for (const Spots& run : RunsOf(line)) {
            if (run.size() == 1)
                out += SvgElement("circle",
                                  {{"cx", run[0].x}, {"cy", run[0].y}, {"r", 1.5}, {"stroke-width", 2.0}});
            else
                out += SvgElement("polyline", {{"points", TextOf(run)}});
        }
        ++numEqual[out];
    }
    std::map<std::string, std::size_t> numDrawn;
    std::string out;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].empty())
            continue;
        const auto turns = static_cast<double>(numEqual[lines[i]]);
        const auto turn = static_cast<double>(numDrawn[lines[i]]++);
        if (turns > 1)
            lines[i] =
                Dashed(SvgPixels(kDash) + " " + SvgPixels(kDash * (turns - 1)), -kDash * turn, lines[i]);
        else if (i >= kColours.size())
            lines[i] = Dashed("3 2", 0, lines[i]);
        out += SvgElement("g", {{"class", "line"}, {"stroke", ColourOf(i)}}, lines[i]);
    }
    if (out.empty())
        return SvgText("text",
                       {{"x", kPlotWidth / 2},
                        {"y", kPlotHeight / 2 - 6},
                        {"text-anchor", "middle"},
                        {"fill", "#777777"}},
                       "nothing to draw");
    return SvgElement(
        "g", {{"class", "lines"}, {"fill", "none"}, {"stroke-width", "1.6"}, {"stroke-linejoin", "round"}},
        out);
}

std::string PanelDrawing::Keys() const
{
    std::string out;
    for (std::size_t i = 0; i < m_Panel.lines.size(); ++i)
        for (const PlotPoint& key : m_Panel.lines[i].keys)
            if (std::isfinite(key.time) && std::isfinite(key.value))
                out += SvgElement(
                    "circle",
                    {{"cx", XOf(key.time)}, {"cy", YOf(key.value)}, {"r", 2.5}, {"fill", ColourOf(i)}});
    return out.empty() ? out : SvgElement("g", {{"class", "keys"}}, out);
}

}  // namespace

double PanelHeight(std::size_t legendRows)
{
    return kTop + kLegendRow * static_cast<double>(legendRows) + kPlotHeight + kBottom;
}

std::size_t CountLegendRows(const PlotPanel& panel)
{
    const Spots places = LayOutLegend(LegendNames(panel));
    return places.empty() ? 1 : 1 + static_cast<std::size_t>(std::lround(places.back().y / kLegendRow));
}

std::string PanelToSvg(const Plot& plot, const PlotPanel& panel, std::size_t legendRows, double x, double y)
{
    const double legendHeight = kLegendRow * static_cast<double>(legendRows);
    const std::string place =
        "translate(" + SvgPixels(x + kLeft) + " " + SvgPixels(y + kTop + legendHeight) + ")";
    return SvgElement("g", {{"class", "panel"}, {"transform", place}},
                      PanelDrawing(plot, panel).Draw(legendHeight));
}

}  // namespace tool
