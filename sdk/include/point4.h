#pragma once

#include "maxtypes.h"

class Point4 {
public:
    float x, y, z, w;

    Point4() {}  // leaves the values unset
    Point4(float X, float Y, float Z, float W) : x(X), y(Y), z(Z), w(W) {}

    float& operator[](int i) { return (&x)[i]; }
    const float& operator[](int i) const { return (&x)[i]; }
    int operator==(const Point4& p) const { return x == p.x && y == p.y && z == p.z && w == p.w; }
};
