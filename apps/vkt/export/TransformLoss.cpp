#include "export/TransformLoss.h"

#include <max.h>

#include <array>
#include <cmath>

namespace tool {
namespace {

// The three axes of a matrix as rows. Products read from left to right.
using Row = std::array<double, 3>;
using Axes = std::array<Row, 3>;

constexpr double kSquare = 1e-4;     // cosine up to which two axes count as square
constexpr double kCollapsed = 1e-9;  // volume of the axes, taken as one long

double Dot(const Row& a, const Row& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Row Cross(const Row& a, const Row& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

double Length(const Row& a)
{
    return std::sqrt(Dot(a, a));
}

double Determinant(const Axes& a)
{
    return Dot(a[0], Cross(a[1], a[2]));
}

Axes WorldAxes(INode& node)
{
    const Matrix3 world = node.GetNodeTM(0);
    const MRow* const rows = world.GetAddr();
    Axes out;
    for (std::size_t row = 0; row < 3; ++row)
        out[row] = {rows[row][0], rows[row][1], rows[row][2]};
    return out;
}

bool IsCollapsed(const Axes& a)
{
    return !(std::abs(Determinant(a)) > kCollapsed * Length(a[0]) * Length(a[1]) * Length(a[2]));
}

// `world` relative to `parent`, which has not collapsed.
Axes LocalAxes(const Axes& world, const Axes& parent)
{
    const Row inverse[] = {Cross(parent[1], parent[2]), Cross(parent[2], parent[0]),
                           Cross(parent[0], parent[1])};
    Axes out;
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t i = 0; i < 3; ++i)
            out[row][i] = Dot(world[row], inverse[i]) / Determinant(parent);
    return out;
}

bool HasShear(const Axes& a)
{
    for (std::size_t i = 0; i < 3; ++i) {
        const Row& one = a[i];
        const Row& other = a[(i + 1) % 3];
        if (std::abs(Dot(one, other)) > kSquare * Length(one) * Length(other))
            return true;
    }
    return false;
}

struct Placement {
    Axes world{};
    bool isMirrored = false;  // the node or one above it
    bool isCollapsed = false;
};

TransformLoss LossOf(const Axes& local, const Axes& world, const Placement& parent)
{
    if (parent.isCollapsed)
        return TransformLoss::Collapsed;
    if (parent.isMirrored)
        return TransformLoss::Mirror;
    return HasShear(world) || HasShear(local) ? TransformLoss::Shear : TransformLoss::None;
}

}  // namespace

std::vector<TransformLoss> FindTransformLosses(const std::vector<PlacedNode>& nodes)
{
    const Placement top{{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}};
    std::vector<Placement> placements;
    std::vector<TransformLoss> losses;
    for (const PlacedNode& placed : nodes) {
        const Placement parent =
            placed.parent < 0 ? top : placements[static_cast<std::size_t>(placed.parent)];
        const Axes world = WorldAxes(*placed.node);
        const Axes local = parent.isCollapsed ? world : LocalAxes(world, parent.world);
        losses.push_back(LossOf(local, world, parent));
        placements.push_back({.world = world,
                              .isMirrored = parent.isMirrored || Determinant(local) < 0.0,
                              .isCollapsed = parent.isCollapsed || IsCollapsed(world)});
    }
    return losses;
}

}  // namespace tool
