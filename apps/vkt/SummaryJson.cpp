#include <nlohmann/json.hpp>

#include "Summary.h"

namespace tool {
namespace {

using Json = nlohmann::ordered_json;

Json ToJson(const RecordSummary& record)
{
    return {{"application", record.application},
            {"originalFile", record.originalFile},
            {"textureFile", record.textureFile},
            {"user", record.user},
            {"host", record.host},
            {"date", record.date.empty() ? Json() : Json(record.date)}};
}

Json ToJson(const GeometrySummary& geometry)
{
    Json out = {{"name", geometry.name},
                {"type", geometry.type},
                {"points", geometry.sizes.points},
                {"polygons", geometry.sizes.polygons},
                {"corners", geometry.sizes.corners},
                {"indexSets", Json::array()},
                {"vertexSets", Json::array()}};
    for (const IndexSetSummary& set : geometry.indexSets)
        out["indexSets"].push_back({{"name", set.name}, {"indices", set.indices}});
    for (const VertexSetSummary& set : geometry.vertexSets)
        out["vertexSets"].push_back({{"name", set.name},
                                     {"usage", set.usage},
                                     {"elements", set.elements},
                                     {"elementSize", set.elementSize},
                                     {"indexSet", set.indexSet.empty() ? Json() : Json(set.indexSet)}});
    return out;
}

}  // namespace

std::string ToJson(const Summary& summary)
{
    Json out = {{"file", summary.file},
                {"bytes", summary.bytes},
                {"form", NameOf(summary.form)},
                {"version", summary.version},
                {"record", summary.record ? ToJson(*summary.record) : Json()},
                {"nodes", summary.nodes},
                {"nodesByType", Json(summary.nodesByType)},
                {"instances", summary.instances},
                {"images", summary.images},
                {"droppedChunks", summary.droppedChunks},
                {"points", summary.sizes.points},
                {"polygons", summary.sizes.polygons},
                {"corners", summary.sizes.corners},
                {"geometry", Json::array()}};
    for (const GeometrySummary& geometry : summary.geometry)
        out["geometry"].push_back(ToJson(geometry));
    // Names may hold any bytes: what is no UTF-8 becomes U+FFFD.
    return out.dump(2, ' ', true, Json::error_handler_t::replace) + "\n";
}

}  // namespace tool
