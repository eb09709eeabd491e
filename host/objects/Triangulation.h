#pragma once

#include <array>
#include <span>
#include <vector>

#include "point3.h"

namespace maxhost {

// Cuts a polygon into triangles, corner numbers of the polygon, wound as it is. A
// polygon of n corners gives n - 2 triangles whatever its shape: convex ones a fan
// from corner 0; concave ones are cut ear by ear in the plane that fits them best.
// What isn't a simple polygon (crossing edges, corners in one point or on one line) is
// cut as well as can be. Below three corners there is nothing.
class Triangulation {
public:
    using Triangle = std::array<int, 3>;

    // Good until the next call, which uses the same memory.
    std::span<const Triangle> Cut(std::span<const Point3> corners);

private:
    struct Flat {
        double x;
        double y;
    };
    bool Flatten(std::span<const Point3> corners);
    bool IsConvex() const;
    void Fan(int count);
    void CutEars();
    double Turn(int a, int b, int c) const;
    bool IsEar(int corner) const;

    std::vector<Flat> m_Points;
    std::vector<int> m_Next;
    std::vector<int> m_Previous;
    std::vector<Triangle> m_Triangles;
};

}  // namespace maxhost
