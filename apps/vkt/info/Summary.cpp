#include "info/Summary.h"

#include <cstdio>

#include "VKT/animation/AnimCycle.h"
#include "VKT/animation/AnimationTake.h"
#include "VKT/document/Model.h"
#include "VKT/geometry/Deformer.h"
#include "VKT/geometry/Geometry.h"
#include "VKT/node/FnRegistry.h"
#include "common/NodeNames.h"

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
    out.droppedChunks = model.GetLoadReport().GetChunks().GetCount();
    for (const auto& [name, node] : model.GetNodes()) {
        ++out.nodesByType[TypeNameOf(*node)];
        if (const auto* geometry = VKT::XCast<VKT::XGeometry>(node)) {
            const Sizes& sizes = out.geometry.emplace_back(Summarise(*geometry)).sizes;
            out.sizes.points += sizes.points;
            out.sizes.polygons += sizes.polygons;
            out.sizes.corners += sizes.corners;
        } else if (const auto* deformer = VKT::XCast<VKT::XDeformer>(node)) {
            out.deformers.push_back(Summarise(*deformer));
        } else if (const auto* take = VKT::XCast<VKT::XAnimationTake>(node)) {
            out.takes.push_back(Summarise(*take));
        }
    }
    for (const auto& cycle : model.GetCycles())
        out.cycles.push_back(Summarise(*cycle));
    return out;
}

}  // namespace tool
