#pragma once

#include "maxtypes.h"

class Point2 {
public:
    float x, y;

    Point2() {}  // leaves the values unset
    Point2(float X, float Y) : x(X), y(Y) {}

    float& operator[](int i) { return (&x)[i]; }
    const float& operator[](int i) const { return (&x)[i]; }
    int operator==(const Point2& p) const { return x == p.x && y == p.y; }
};
