#include "common/TerminalText.h"
#include "info/Summary.h"

namespace tool {
namespace {

std::string Number(VKT::u64 count)
{
    return std::to_string(count);
}

std::string ToText(const Sizes& sizes)
{
    return Counted(sizes.points, "point") + ", " + Counted(sizes.polygons, "polygon") + ", " +
           Counted(sizes.corners, "corner");
}

// A line of the head: the values stand below each other.
std::string Line(std::string key, const std::string& value)
{
    key.resize(12, ' ');
    return key + CleanText(value) + "\n";
}

std::string ToText(const RecordSummary& record)
{
    std::string out;
    const auto add = [&out](const char* key, const std::string& value) {
        if (!value.empty())
            out += Line(key, value);
    };
    add("written by", record.application);
    add("from", record.originalFile);
    add("user", record.user);
    add("machine", record.host);
    add("date", record.date);
    add("images in", record.textureFile == "none" ? "" : record.textureFile);
    return out;
}

// "affected 1, points 12".
std::string ToText(const std::vector<NamedSize>& sizes)
{
    std::string out;
    for (const NamedSize& size : sizes)
        out += (out.empty() ? "" : ", ") + std::string(size.name) + " " + Number(size.value);
    return out;
}

std::string ToText(const GeometrySummary& geometry)
{
    std::string out =
        "  " + CleanText(geometry.name) + " (" + CleanText(geometry.type) + "): " + ToText(geometry.sizes);
    out += (geometry.moreSizes.empty() ? "" : ", ") + ToText(geometry.moreSizes) + "\n";
    for (const IndexSetSummary& set : geometry.indexSets)
        out += "    index set " + Quoted(CleanText(set.name)) + ": " + Number(set.indices) + "\n";
    for (const VertexSetSummary& set : geometry.vertexSets) {
        out += "    vertex set " + Quoted(CleanText(set.name)) + ": " + Number(set.elements) + " x " +
               Counted(set.elementSize, "float") + ", " + set.usage;
        out += set.indexSet.empty() ? "\n" : ", by " + Quoted(CleanText(set.indexSet)) + "\n";
    }
    return out;
}

std::string ToText(const DeformerSummary& deformer)
{
    std::string out =
        "  " + CleanText(deformer.name) + " (" + CleanText(deformer.type) + "): " + ToText(deformer.sizes);
    if (deformer.targets)
        out += ", targets " + Number(deformer.targets->size());
    out += "\n";
    for (const BlendTargetSummary& target : deformer.targets.value_or(std::vector<BlendTargetSummary>()))
        out += "    target " + Quoted(CleanText(target.name)) + ": " + Counted(target.points, "point") + "\n";
    return out;
}

std::string ToText(const AnimationSummary& animation)
{
    return "  " + CleanText(animation.name) + ": " + ShortNumber(animation.start) + " to " +
           ShortNumber(animation.end) + " at " + ShortNumber(animation.framesPerSecond) + " per second, " +
           ToText(animation.sizes) + "\n";
}

// A headline with the number of nodes, and a line for each.
template <class T>
std::string ToText(const char* headline, const std::vector<T>& nodes)
{
    std::string out = Line(headline, Number(nodes.size()));
    for (const T& node : nodes)
        out += ToText(node);
    return out;
}

}  // namespace

std::string ToText(const Summary& summary)
{
    std::string out = Line("file", summary.file) + Line("size", Counted(summary.bytes, "byte")) +
                      Line("form", NameOf(summary.form)) + Line("version", Number(summary.version));
    out += summary.record ? ToText(*summary.record) : Line("record", "none");
    out += Line("nodes", Number(summary.nodes));
    for (const auto& [type, count] : summary.nodesByType)
        out += "  " + Number(count) + " " + CleanText(type) + "\n";
    out += Line("instances", Number(summary.instances));
    out += Line("images", Number(summary.images));
    if (summary.droppedChunks > 0)
        out += Line("dropped", Counted(summary.droppedChunks, "chunk") + " that could not be read");
    out += Line("geometry", summary.geometry.empty() ? "none" : ToText(summary.sizes));
    for (const GeometrySummary& geometry : summary.geometry)
        out += ToText(geometry);
    return out + ToText("deformers", summary.deformers) + ToText("takes", summary.takes) +
           ToText("cycles", summary.cycles);
}

}  // namespace tool
