#include "max/Tracks.h"

#include <max.h>

namespace VKTMax {
namespace {

// Only a float controller may be read into a float.
std::optional<f32> FloatOf(Control* controller, TimeValue ticks)
{
    if (!controller || controller->SuperClassID() != CTRL_FLOAT_CLASS_ID)
        return std::nullopt;
    f32 value = 0.0f;
    Interval valid = FOREVER;
    controller->GetValue(ticks, &value, valid);
    return value;
}

AxisValues AxesOf(Control* part, TimeValue ticks)
{
    if (!part)
        return {};
    return {FloatOf(part->GetXController(), ticks), FloatOf(part->GetYController(), ticks),
            FloatOf(part->GetZController(), ticks)};
}

}  // namespace

std::optional<TransformTracks> ReadTransformTracks(INode* node, i32 ticks)
{
    Control* transform = node->GetTMController();
    if (!transform)
        return std::nullopt;
    return TransformTracks{AxesOf(transform->GetPositionController(), ticks),
                           AxesOf(transform->GetRotationController(), ticks),
                           AxesOf(transform->GetScaleController(), ticks)};
}

}  // namespace VKTMax
