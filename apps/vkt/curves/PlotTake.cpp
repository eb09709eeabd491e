#include <algorithm>
#include <cmath>
#include <limits>

#include "VKT/animation/AnimationTake.h"
#include "VKT/animation/CurveEvaluator.h"
#include "VKT/animation/FCurveStream.h"
#include "VKT/animation/PoseStream.h"
#include "VKT/animation/SampledStream.h"
#include "common/TerminalText.h"
#include "curves/Plot.h"
#include "curves/PlotAxis.h"

namespace tool {
namespace {

constexpr std::size_t kMostPanels = 120;
constexpr std::size_t kMostLines = 16;
constexpr std::size_t kColumns = 280;     // of a panel; a line has a few points in each
constexpr VKT::u32 kMostMarkedKeys = 60;  // of a curve

// Where frames of a take stand in the unit of the plot.
class TakeClock {
public:
    explicit TakeClock(const VKT::XAnimationTake& take) : m_Start(FiniteOr0(take.GetStartTime()))
    {
        const double rate = take.GetFramesPerSecond();
        m_HasRate = std::isfinite(rate) && rate > 0;
        m_FrameTime = m_HasRate ? 1 / rate : 1;
        const double end = FiniteOr0(take.GetEndTime());
        m_Times = {std::min(m_Start, end) * m_FrameTime, std::max(m_Start, end) * m_FrameTime};
    }

    // Of the take.
    PlotRange GetTimes() const { return m_Times; }
    const char* GetUnit() const { return m_HasRate ? "seconds" : "frames"; }
    double TimeOf(std::size_t sample) const { return (m_Start + static_cast<double>(sample)) * m_FrameTime; }

private:
    static double FiniteOr0(double number) { return std::isfinite(number) ? number : 0; }

    double m_Start;      // in frames
    double m_FrameTime;  // from one to the next
    bool m_HasRate;
    PlotRange m_Times;
};

// Collects the points of a line, which come by time. Of those that fall into one column
// of the panel it keeps the first, the lowest, the highest and the last one.
class ColumnThinner {
public:
    ColumnThinner(PlotRange times, std::vector<PlotPoint>& out) : m_Low(times.low), m_Out(out)
    {
        if (times.high > times.low)
            m_Scale = kColumns / (times.high - times.low);
    }

    void Add(PlotPoint point)
    {
        const double column = std::floor((point.time - m_Low) * m_Scale);
        if (!(column == m_Column)) {
            Flush();
            m_Column = column;
        }
        if (std::isfinite(point.value))
            m_Points.push_back(point);
        else
            m_Gap = point;
        if (m_Points.size() > 4)
            Thin();
    }

    void Flush()
    {
        m_Out.insert(m_Out.end(), m_Points.begin(), m_Points.end());
        if (m_Gap)
            m_Out.push_back(*m_Gap);
        m_Points.clear();
        m_Gap.reset();
    }

private:
    // Of five points, drops one of the three in the middle that is no extreme.
    void Thin()
    {
        const auto lower = [](PlotPoint a, PlotPoint b) { return a.value < b.value; };
        const auto [low, high] = std::minmax_element(m_Points.begin() + 1, m_Points.end() - 1, lower);
        auto middle = m_Points.begin() + 1;
        while (middle == low || middle == high)
            ++middle;
        m_Points.erase(middle);
    }

    double m_Low;
    double m_Scale = 0;  // columns in a unit of time
    double m_Column = -1;
    std::vector<PlotPoint> m_Points;  // of the present column
    std::optional<PlotPoint> m_Gap;   // a value of the column that is not finite
    std::vector<PlotPoint>& m_Out;
};

std::string Join(const std::string& a, const std::string& b)
{
    return a.empty() ? b : a + ", " + b;
}

std::string EntryName(VKT::i64 entry)
{
    std::string out(1, '[');
    return out.append(std::to_string(entry)).append(1, ']');
}

std::string ComponentName(VKT::XStreamKind kind, VKT::i64 component, bool isCurve)
{
    constexpr const char* axes[] = {"x", "y", "z", "w"};
    constexpr const char* colours[] = {"r", "g", "b", "a"};
    if (kind == VKT::kFloatArray)
        return EntryName(component);
    if (component < 0 || kind == VKT::kScalar)
        return "value";
    if (component > 3 || kind == VKT::kMatrix)
        return EntryName(component);
    if (kind == VKT::kQuaternion && isCurve)
        return std::string("angle ") + axes[component];
    return kind == VKT::kVector4 ? colours[component] : axes[component];
}

std::string NameOf(VKT::XStreamKind kind, const VKT::XAnimCurve& curve)
{
    if (curve.GetIndex() < 0)
        return ComponentName(kind, curve.GetComponent(), true);
    const std::string entry = EntryName(curve.GetIndex());
    return curve.GetComponent() > 0 ? entry + EntryName(curve.GetComponent()) : entry;
}

// The line to fill, or null when the panel has no room for it.
PlotLine* AddLine(PlotPanel& panel, const std::string& name)
{
    if (panel.lines.size() == kMostLines) {
        ++panel.numHiddenLines;
        return nullptr;
    }
    panel.lines.push_back({name, {}, {}});
    return &panel.lines.back();
}

void Include(PlotRange& range, double time)
{
    if (std::isfinite(time))
        range = {std::min(range.low, time), std::max(range.high, time)};
}

// Widens the range to where a stream has values.
void AddTimes(PlotRange& range, const VKT::XAnimationStream& stream, const TakeClock& clock)
{
    if (const auto* table = stream.AsSampled(); table && table->GetNumSamples() > 0) {
        Include(range, clock.TimeOf(table->GetNumSamples() - 1));
    } else if (const auto* form = stream.AsFCurve()) {
        for (const auto& curve : form->GetCurves())
            for (VKT::u32 key = 0; key < curve->GetNumKeys(); ++key)
                Include(range, curve->GetKey(key, 0));
    }
}

void AddPose(PlotPanel& panel, const VKT::XPoseStream& pose)
{
    panel.source = Join(panel.source, "one value");
    const VKT::XFloatArray& values = pose.GetValues();
    for (std::size_t i = 0; i < values.size(); ++i)
        if (PlotLine* line = AddLine(panel, ComponentName(pose.GetKind(), static_cast<VKT::i64>(i), false)))
            line->points = {{panel.times.low, values[i]}, {panel.times.high, values[i]}};
}

void AddSamples(PlotPanel& panel, const VKT::XSampledStream& table, const TakeClock& clock)
{
    panel.source = Join(panel.source, Counted(table.GetNumSamples(), "sample"));
    const std::size_t stride = table.GetElementsPerSample();
    for (std::size_t i = 0; i < stride; ++i) {
        PlotLine* const line =
            AddLine(panel, ComponentName(table.GetKind(), static_cast<VKT::i64>(i), false));
        if (!line) {
            panel.numHiddenLines += stride - i - 1;
            return;
        }
        ColumnThinner thinner(panel.times, line->points);
        for (std::size_t sample = 0; sample < table.GetNumSamples(); ++sample)
            thinner.Add({clock.TimeOf(sample), table.GetSamples()[sample * stride + i]});
        thinner.Flush();
    }
}

// Where to look at a curve: in each column of the panel, and, so that corners and steps
// come out sharp, at each key and just in front of it.
std::vector<VKT::f32> TimesToLookAt(const VKT::XAnimCurve& curve, PlotRange times)
{
    constexpr VKT::f32 lowest = std::numeric_limits<VKT::f32>::lowest();
    std::vector<VKT::f32> out;
    for (std::size_t column = 0; column <= kColumns; ++column) {
        const double place = static_cast<double>(column) / static_cast<double>(kColumns);
        out.push_back(static_cast<VKT::f32>(
            std::clamp<double>(std::lerp(times.low, times.high, place), lowest, -lowest)));
    }
    if (curve.GetNumKeys() <= kColumns)
        for (VKT::u32 key = 0; key < curve.GetNumKeys(); ++key) {
            const VKT::f32 time = curve.GetKey(key, 0);
            if (!std::isfinite(time))
                continue;
            out.push_back(time);
            if (const VKT::f32 before = std::nextafter(time, lowest); before >= times.low)
                out.push_back(before);
        }
    std::sort(out.begin(), out.end());
    return out;
}

void AddCurve(PlotLine& line, const VKT::XAnimCurve& curve, PlotRange times)
{
    for (const VKT::f32 time : TimesToLookAt(curve, times)) {
        VKT::f32 value = 0;
        if (VKT::XEvaluateCurve(curve, curve.GetNumKeys(), time, value))
            line.points.push_back({std::clamp<double>(time, times.low, times.high), value});
    }
    if (curve.GetNumKeys() > kMostMarkedKeys)
        return;
    for (VKT::u32 key = 0; key < curve.GetNumKeys(); ++key)
        line.keys.push_back({curve.GetKey(key, 0), curve.GetKey(key, 1)});
}

void AddCurves(PlotPanel& panel, const VKT::XFCurveStream& stream)
{
    VKT::u64 keys = 0;
    for (const auto& curve : stream.GetCurves()) {
        keys += curve->GetNumKeys();
        if (curve->GetNumKeys() > 0)
            if (PlotLine* line = AddLine(panel, NameOf(stream.GetKind(), *curve)))
                AddCurve(*line, *curve, panel.times);
    }
    panel.source = Join(panel.source, Counted(keys, "key"));
}

void AddLines(PlotPanel& panel, const VKT::XAnimationStream& stream, const TakeClock& clock)
{
    if (const auto* pose = stream.AsPose())
        AddPose(panel, *pose);
    else if (const auto* table = stream.AsSampled())
        AddSamples(panel, *table, clock);
    else if (const auto* form = stream.AsFCurve())
        AddCurves(panel, *form);
}

// Tells the components of an attribute's streams apart.
const char* FormOf(const VKT::XAnimationStream& stream)
{
    return stream.AsPose() ? " pose" : stream.AsSampled() ? " sampled" : " curve";
}

// "node.attribute", with numbers for names that are gone.
std::string TitleOf(const VKT::XAnimatedAttribute& attribute)
{
    const VKT::XBase* const node = attribute.GetNode();
    const std::string name = attribute.GetName();
    return (node ? node->GetName() : "node " + std::to_string(attribute.GetAnimatedNode().GetNodeId())) +
           "." + (name.empty() ? "attribute " + std::to_string(attribute.GetAttributeId()) : name);
}

PlotPanel PanelOf(const VKT::XAnimatedAttribute& attribute, const TakeClock& clock)
{
    PlotPanel panel;
    panel.title = TitleOf(attribute);
    panel.times = clock.GetTimes();
    for (VKT::u32 i = 0; i < attribute.GetNumStreams(); ++i)
        AddTimes(panel.times, *attribute.GetStream(i), clock);
    panel.times = Widened(panel.times);
    for (VKT::u32 i = 0; i < attribute.GetNumStreams(); ++i) {
        const std::size_t first = panel.lines.size();
        AddLines(panel, *attribute.GetStream(i), clock);
        if (attribute.GetNumStreams() > 1)
            for (std::size_t line = first; line < panel.lines.size(); ++line)
                panel.lines[line].name += FormOf(*attribute.GetStream(i));
    }
    return panel;
}

bool IsNamed(const VKT::XAnimatedNode& animated, const std::string& name)
{
    const VKT::XBase* const node = animated.GetNode();
    return node && name == node->GetName();
}

}  // namespace

Plot PlotTake(const VKT::XAnimationTake& take, const std::optional<std::string>& node)
{
    const TakeClock clock(take);
    Plot out;
    out.title = "take " + Quoted(take.GetName());
    out.timeUnit = clock.GetUnit();
    out.times = clock.GetTimes();
    std::size_t numNodes = 0;
    for (VKT::u32 i = 0; i < take.GetNumAnimatedNodes(); ++i) {
        const VKT::XAnimatedNode& animated = *take.GetAnimatedNode(i);
        if (node && !IsNamed(animated, *node))
            continue;
        ++numNodes;
        for (VKT::u32 j = 0; j < animated.GetNumAttributes(); ++j) {
            if (out.panels.size() < kMostPanels)
                out.panels.push_back(PanelOf(*animated.GetAttribute(j), clock));
            else
                ++out.numHiddenPanels;
        }
    }
    out.subtitle = "frames " + ShortNumber(take.GetStartTime()) + " to " + ShortNumber(take.GetEndTime()) +
                   " at " + ShortNumber(take.GetFramesPerSecond()) + " per second, " +
                   Counted(out.panels.size() + out.numHiddenPanels, "attribute") + " of " +
                   Counted(numNodes, "node");
    return out;
}

}  // namespace tool
