#pragma once

#include "VKT/Vectors.h"

namespace VKT {

// A colour of a shading node, which another shading node may feed. The name is the
// keyword in files and the input's identity; it is stored in binary files too.
struct XShaderInput {
    explicit XShaderInput(const char* inputName) : name(inputName) {}
    XShaderInput(const char* inputName, u32 id) : name(inputName), input(id) {}
    XShaderInput(const char* inputName, const XColour& value) : name(inputName), colour(value) {}

    void SetColour(f32 r, f32 g, f32 b, f32 a) { colour = {r, g, b, a}; }
    void SetColour(const f32 (&rgba)[4]) { colour = {rgba[0], rgba[1], rgba[2], rgba[3]}; }
    void GetColour(f32 (&rgba)[4]) const
    {
        GetColour(rgba[0], rgba[1], rgba[2]);
        rgba[3] = colour.a;
    }
    void GetColour(f32& r, f32& g, f32& b) const
    {
        r = colour.r;
        g = colour.g;
        b = colour.b;
    }

    XString name;
    u32 input = 0;  // id of the connected node, 0 for none
    XColour colour{0.0f, 0.0f, 0.0f, 1.0f};
};

}  // namespace VKT
