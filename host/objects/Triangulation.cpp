#include "host/objects/Triangulation.h"

#include <cmath>

namespace maxhost {

std::span<const Triangulation::Triangle> Triangulation::Cut(std::span<const Point3> corners)
{
    m_Triangles.clear();
    if (corners.size() < 3)
        return m_Triangles;
    if (corners.size() == 3 || !Flatten(corners) || IsConvex())
        Fan(static_cast<int>(corners.size()));
    else
        CutEars();
    return m_Triangles;
}

// Drops the axis that the polygon's normal follows most, so that the area stays
// positive. False when it has no area.
bool Triangulation::Flatten(std::span<const Point3> corners)
{
    double normal[3] = {0.0, 0.0, 0.0};
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Point3& a = corners[i];
        const Point3& b = corners[(i + 1) % corners.size()];
        for (int axis = 0; axis < 3; ++axis) {
            const int u = (axis + 1) % 3, v = (axis + 2) % 3;
            normal[axis] += (static_cast<double>(a[u]) - b[u]) * (static_cast<double>(a[v]) + b[v]);
        }
    }
    int dropped = 0;
    for (int axis = 1; axis < 3; ++axis)
        if (std::abs(normal[axis]) > std::abs(normal[dropped]))
            dropped = axis;
    if (!(std::abs(normal[dropped]) > 0.0))
        return false;

    const int u = (dropped + 1) % 3, v = (dropped + 2) % 3;
    const double sign = normal[dropped] > 0.0 ? 1.0 : -1.0;
    m_Points.clear();
    for (const Point3& corner : corners)
        m_Points.push_back({corner[u] * sign, corner[v]});
    return true;
}

// Every corner turns left, none is on the line of its neighbours. (One that winds about itself twice would
// pass; nobody models it.)
bool Triangulation::IsConvex() const
{
    const int count = static_cast<int>(m_Points.size());
    for (int i = 0; i < count; ++i)
        if (Turn(i, (i + 1) % count, (i + 2) % count) <= 0.0)
            return false;
    return true;
}

void Triangulation::Fan(int count)
{
    for (int i = 1; i + 1 < count; ++i)
        m_Triangles.push_back({0, i, i + 1});
}

void Triangulation::CutEars()
{
    const int count = static_cast<int>(m_Points.size());
    m_Next.resize(m_Points.size());
    m_Previous.resize(m_Points.size());
    for (int i = 0; i < count; ++i) {
        m_Next[static_cast<std::size_t>(i)] = (i + 1) % count;
        m_Previous[static_cast<std::size_t>(i)] = (i + count - 1) % count;
    }
    int corner = 0;
    int left = count;
    int refused = 0;  // corners in a row that were no ears
    while (left > 3) {
        const int before = m_Previous[static_cast<std::size_t>(corner)];
        const int after = m_Next[static_cast<std::size_t>(corner)];
        // Once no corner is an ear, what is left isn't simple, and any cut is as good.
        if (refused < left && !IsEar(corner)) {
            ++refused;
            corner = after;
            continue;
        }
        m_Triangles.push_back({before, corner, after});
        m_Next[static_cast<std::size_t>(before)] = after;
        m_Previous[static_cast<std::size_t>(after)] = before;
        --left;
        refused = refused > left ? refused : 0;
        corner = m_Next[static_cast<std::size_t>(after)];  // skips one: avoids slivers
    }
    m_Triangles.push_back(
        {m_Previous[static_cast<std::size_t>(corner)], corner, m_Next[static_cast<std::size_t>(corner)]});
}

// Twice the area of the triangle, positive when it turns left.
double Triangulation::Turn(int a, int b, int c) const
{
    const Flat& p = m_Points[static_cast<std::size_t>(a)];
    const Flat& q = m_Points[static_cast<std::size_t>(b)];
    const Flat& r = m_Points[static_cast<std::size_t>(c)];
    return (q.x - p.x) * (r.y - p.y) - (q.y - p.y) * (r.x - p.x);
}

// Turns left, and no other corner lies in its triangle. A corner in the same place as
// one of the triangle's doesn't count: polygons with a hole touch themselves there.
bool Triangulation::IsEar(int corner) const
{
    const int before = m_Previous[static_cast<std::size_t>(corner)];
    const int after = m_Next[static_cast<std::size_t>(corner)];
    if (Turn(before, corner, after) <= 0.0)
        return false;
    const auto same = [&](int a, int b) {
        const Flat& p = m_Points[static_cast<std::size_t>(a)];
        const Flat& q = m_Points[static_cast<std::size_t>(b)];
        return p.x == q.x && p.y == q.y;
    };
    for (int other = m_Next[static_cast<std::size_t>(after)]; other != before;
         other = m_Next[static_cast<std::size_t>(other)]) {
        if (same(other, before) || same(other, corner) || same(other, after))
            continue;
        if (Turn(before, corner, other) >= 0.0 && Turn(corner, after, other) >= 0.0 &&
            Turn(after, before, other) >= 0.0)
            return false;
    }
    return true;
}

}  // namespace maxhost
