#pragma once

#include "VKT/base/Vectors.h"

namespace VKT {

class XFileIO;
class XTextReader;
class XTextWriter;

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

    // A line of a text file without its line end: a tab, the name, the colour, the word
    // "input" and the id. The reader wants the present name; a wrong key is logged with
    // the source and the row that stand for its place.
    void Write(XTextWriter& out) const;
    bool Read(XTextReader& in, const char* source, int line);
    // The binary form, in both directions: the id, the colour, the name, which a read
    // takes over.
    bool DoData(XFileIO& file);

    XString name;
    u32 input = 0;  // id of the connected node, 0 for none
    XColour colour{0.0f, 0.0f, 0.0f, 1.0f};
};

}  // namespace VKT
