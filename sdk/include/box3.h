#pragma once

#include "point3.h"

class Matrix3;

// An axis-aligned box. The empty one holds no point.
class CoreExport Box3 {
public:
    Point3 pmin, pmax;

    Box3() { Init(); }
    Box3(const Point3& p, const Point3& q) : pmin(p), pmax(q) {}

    void Init();
    // A cube around `p` with edges of the length `side`.
    void MakeCube(const Point3& p, float side);
    const Point3& Min() const { return pmin; }
    const Point3& Max() const { return pmax; }
    Point3 Center() const { return (pmin + pmax) / 2.0f; }
    Point3 Width() const { return pmax - pmin; }
    int IsEmpty() const { return pmin.x > pmax.x || pmin.y > pmax.y || pmin.z > pmax.z; }
    Box3& operator+=(const Point3& p);
    Box3& operator+=(const Box3& b);
    // The box around the eight turned corners.
    Box3 operator*(const Matrix3& tm) const;
};
