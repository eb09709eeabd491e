#pragma once

#include "color.h"

class AColor {
public:
    float r, g, b, a;

    AColor() {}  // leaves the values unset
    AColor(float R, float G, float B, float A = 1.0f) : r(R), g(G), b(B), a(A) {}
    AColor(const Color& c, float A = 1.0f) : r(c.r), g(c.g), b(c.b), a(A) {}

    operator Color() { return Color(r, g, b); }
};
