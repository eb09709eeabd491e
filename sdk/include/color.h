#pragma once

#include "point3.h"

class Color {
public:
    float r, g, b;

    Color() {}  // leaves the values unset
    Color(float R, float G, float B) : r(R), g(G), b(B) {}
    Color(double R, double G, double B)
        : r(static_cast<float>(R)), g(static_cast<float>(G)), b(static_cast<float>(B))
    {
    }
    Color(int R, int G, int B) : r(static_cast<float>(R)), g(static_cast<float>(G)), b(static_cast<float>(B))
    {
    }
    Color(const Point3& p) : r(p.x), g(p.y), b(p.z) {}
    // From a colour word: red in the lowest byte, 255 being 1.
    explicit Color(DWORD rgb)
        : r(static_cast<float>(GetRValue(rgb)) / 255.0f),
          g(static_cast<float>(GetGValue(rgb)) / 255.0f),
          b(static_cast<float>(GetBValue(rgb)) / 255.0f)
    {
    }

    operator float*() { return &r; }
    operator Point3() { return Point3(r, g, b); }
    float& operator[](int i) { return (&r)[i]; }
    const float& operator[](int i) const { return (&r)[i]; }
    int operator==(const Color& c) const { return r == c.r && g == c.g && b == c.b; }
    int operator!=(const Color& c) const { return !(*this == c); }
};
