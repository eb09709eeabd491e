#include <nlohmann/json.hpp>

#include "info/Summary.h"

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

void Add(Json& out, const std::vector<NamedSize>& sizes)
{
    for (const NamedSize& size : sizes)
        out[size.name] = size.value;
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
    Add(out, geometry.moreSizes);
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

Json ToJson(const DeformerSummary& deformer)
{
    Json out = {{"name", deformer.name}, {"type", deformer.type}};
    Add(out, deformer.sizes);
    if (deformer.targets) {
        out["targets"] = Json::array();
        for (const BlendTargetSummary& target : *deformer.targets)
            out["targets"].push_back({{"name", target.name}, {"points", target.points}});
    }
    return out;
}

Json ToJson(const AnimationSummary& animation)
{
    Json out = {{"name", animation.name},
                {"start", animation.start},
                {"end", animation.end},
                {"framesPerSecond", animation.framesPerSecond}};
    Add(out, animation.sizes);
    return out;
}

// What each element of `list` is in JSON.
template <class T>
Json ToList(const std::vector<T>& list)
{
    Json out = Json::array();
    for (const T& element : list)
        out.push_back(ToJson(element));
    return out;
}

}  // namespace

std::string ToJson(const Summary& summary)
{
    const Json out = {{"file", summary.file},
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
                      {"geometry", ToList(summary.geometry)},
                      {"deformers", ToList(summary.deformers)},
                      {"takes", ToList(summary.takes)},
                      {"cycles", ToList(summary.cycles)}};
    // Names may hold any bytes: what is no UTF-8 becomes U+FFFD.
    return out.dump(2, ' ', true, Json::error_handler_t::replace) + "\n";
}

}  // namespace tool
