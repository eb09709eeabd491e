#include "export/TransformLoss.h"

#include <max.h>

#include <cmath>

#include "host/io/Transform.h"

namespace tool {
namespace {

namespace io = maxhost::io;

constexpr double kSquare = 1e-4;     // cosine up to which two axes count as square
constexpr double kCollapsed = 1e-9;  // volume of the axes, taken as one long

// Where the axes of the node go; the origin is of no interest here.
io::Matrix WorldAxes(INode& node)
{
    const Matrix3 world = node.GetNodeTM(0);
    const auto axis = [rows = world.GetAddr()](int row) {
        return io::Vector{rows[row][0], rows[row][1], rows[row][2]};
    };
    return {.x = axis(0), .y = axis(1), .z = axis(2), .origin = {}};
}

bool IsCollapsed(const io::Matrix& a)
{
    return !(std::abs(Determinant(a)) > kCollapsed * Length(a.x) * Length(a.y) * Length(a.z));
}

// `world` relative to `parent`, which has not collapsed.
io::Matrix LocalAxes(const io::Matrix& world, const io::Matrix& parent)
{
    const double volume = Determinant(parent);
    const auto relative = [&](const io::Vector& axis) {
        return io::Vector{Dot(axis, Cross(parent.y, parent.z)), Dot(axis, Cross(parent.z, parent.x)),
                          Dot(axis, Cross(parent.x, parent.y))} *
               (1.0 / volume);
    };
    return {.x = relative(world.x), .y = relative(world.y), .z = relative(world.z), .origin = {}};
}

bool AreSquare(const io::Vector& a, const io::Vector& b)
{
    return !(std::abs(Dot(a, b)) > kSquare * Length(a) * Length(b));
}

bool IsSheared(const io::Matrix& a)
{
    return !AreSquare(a.x, a.y) || !AreSquare(a.y, a.z) || !AreSquare(a.z, a.x);
}

struct Placement {
    io::Matrix world;
    bool isMirrored = false;  // the node or one above it
    bool isCollapsed = false;
};

TransformLoss LossOf(const io::Matrix& local, const io::Matrix& world, const Placement& parent)
{
    if (parent.isCollapsed)
        return TransformLoss::Collapsed;
    if (parent.isMirrored)
        return TransformLoss::Mirror;
    return IsSheared(world) || IsSheared(local) ? TransformLoss::Shear : TransformLoss::None;
}

}  // namespace

std::vector<TransformLoss> FindTransformLosses(const std::vector<PlacedNode>& nodes)
{
    const Placement top;
    std::vector<Placement> placements;
    std::vector<TransformLoss> losses;
    for (const PlacedNode& placed : nodes) {
        const Placement parent =
            placed.parent < 0 ? top : placements[static_cast<std::size_t>(placed.parent)];
        const io::Matrix world = WorldAxes(*placed.node);
        const io::Matrix local = parent.isCollapsed ? world : LocalAxes(world, parent.world);
        losses.push_back(LossOf(local, world, parent));
        placements.push_back({.world = world,
                              .isMirrored = parent.isMirrored || Determinant(local) < 0.0,
                              .isCollapsed = parent.isCollapsed || IsCollapsed(world)});
    }
    return losses;
}

}  // namespace tool
