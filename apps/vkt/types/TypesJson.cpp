#include <nlohmann/json.hpp>

#include "types/TypeList.h"

namespace tool {
namespace {

using Json = nlohmann::ordered_json;

Json OrNull(const std::string& text)
{
    return text.empty() ? Json() : Json(text);
}

Json ToJson(const BodyRow& row)
{
    return {{"name", OrNull(row.name)},      {"kind", row.kind},
            {"bytes", OrNull(row.bytes)},    {"words", row.words.empty() ? Json() : Json(row.words)},
            {"gate", OrNull(row.gate)},      {"version", row.gate.empty() ? Json() : Json(row.version)},
            {"written", OrNull(row.written)}};
}

Json ToJson(const PropertyRow& row)
{
    return {{"number", row.number},
            {"name", row.name},
            {"type", row.type},
            {"animatable", row.isAnimatable},
            {"readOnly", row.isReadOnly},
            {"list", row.isList},
            {"nodeType", OrNull(row.nodeType)}};
}

template <class Row>
Json ToJson(const std::vector<Row>& rows)
{
    Json out = Json::array();
    for (const Row& row : rows)
        out.push_back(ToJson(row));
    return out;
}

Json ToJson(const TypeDescription& type)
{
    return {{"name", type.name},
            {"id", type.id},
            {"chunk", OrNull(type.chunk)},
            {"base", OrNull(type.base)},
            {"textCode", type.hasTextCode},
            {"binaryCode", type.hasBinaryCode},
            {"text", ToJson(type.text)},
            {"binary", ToJson(type.binary)},
            {"oldText", ToJson(type.oldText)},
            {"oldBinary", ToJson(type.oldBinary)},
            {"properties", ToJson(type.properties)},
            {"numProperties", type.numProperties}};
}

}  // namespace

std::string ToJson(const TypeList& types)
{
    const TypeTotals totals = CountTypes(types);
    Json out = {{"numTypes", totals.types},
                {"numConcrete", totals.concrete},
                {"numProperties", totals.properties},
                {"types", Json::array()}};
    for (const TypeDescription& type : types)
        out["types"].push_back(ToJson(type));
    return out.dump(2) + "\n";
}

}  // namespace tool
