#include "Summary.h"

#include <cstdio>
#include <numeric>

#include "NodeNames.h"
#include "VKT/Model.h"
#include "VKT/PolygonMesh.h"

namespace tool {
namespace {

std::string DateOf(VKT::XDate date)
{
    // Text files hold one month and 1900 years more than the date that they stand for.
    if (date.year >= 2 * 1900) {
        date.year -= 1900;
        date.month -= 1;
    }
    if (date.year > 9999 || date.month < 1 || date.month > 12 || date.day < 1 || date.day > 31 ||
        date.hour > 23 || date.minute > 59 || date.second > 60)
        return {};
    char text[32];
    std::snprintf(text, sizeof text, "%04u-%02u-%02u %02u:%02u:%02u", date.year, date.month, date.day,
                  date.hour, date.minute, date.second);
    return text;
}

RecordSummary SummariseRecord(const VKT::XInfo& info)
{
    return {info.GetApplication(), info.GetOriginalFile(), info.GetTextureFile(),
            info.GetUser(),        info.GetHost(),         DateOf(info.GetDate())};
}

const char* UsageWord(VKT::u32 usage)
{
    constexpr const char* words[] = {"none",   "vertex",   "fogCoord", "texCoord", "colour",
                                     "normal", "biNormal", "tangent",  "tbn"};
    return usage < std::size(words) ? words[usage] : words[VKT::kNone];
}

void AddPolygons(GeometrySummary& out, const VKT::XPolygonMesh& mesh)
{
    const auto& counts = mesh.GetPolyCounts();
    out.sizes.polygons = counts.size();
    out.sizes.corners = std::accumulate(counts.begin(), counts.end(), VKT::u64{0});
    for (const auto& set : mesh.GetIndexSets())
        out.indexSets.push_back({set->GetName(), set->GetNumIndices()});
    for (const auto& set : mesh.GetVertexSets())
        out.vertexSets.push_back({set->GetName(), UsageWord(set->GetUsage()), set->GetNumElements(),
                                  set->GetElementSize(), set->GetIndexSetName()});
}

GeometrySummary SummariseGeometry(const VKT::XGeometry& geometry)
{
    GeometrySummary out;
    out.name = geometry.GetName();
    out.type = TypeNameOf(geometry);
    out.sizes.points = geometry.GetNumPoints();
    if (const auto* mesh = VKT::XCast<VKT::XPolygonMesh>(&geometry))
        AddPolygons(out, *mesh);
    return out;
}

}  // namespace

Summary Summarise(const VKT::XModel& model, const std::string& path)
{
    Summary out;
    out.file = path;
    out.bytes = SizeOf(path);
    out.form = FormOf(path).value_or(FileForm::Text);
    out.version = model.GetVersion();
    if (const VKT::XInfo* info = model.GetInfo())
        out.record = SummariseRecord(*info);
    out.nodes = model.GetNodes().size();
    VKT::XInstanceList instances;
    model.ListInstances(instances);
    out.instances = instances.size();
    out.images = model.GetImages().size();
    out.droppedChunks = model.GetNumDroppedChunks();
    for (const auto& [name, node] : model.GetNodes()) {
        ++out.nodesByType[TypeNameOf(*node)];
        if (const auto* geometry = VKT::XCast<VKT::XGeometry>(node)) {
            const Sizes& sizes = out.geometry.emplace_back(SummariseGeometry(*geometry)).sizes;
            out.sizes.points += sizes.points;
            out.sizes.polygons += sizes.polygons;
            out.sizes.corners += sizes.corners;
        }
    }
    return out;
}

}  // namespace tool
