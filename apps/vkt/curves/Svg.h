#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace tool {

// Pieces of an SVG document. Texts and attributes are escaped here and nowhere else, and
// cleaned as in `CleanText`, since no XML may hold control characters.

struct SvgAttribute {
    SvgAttribute(const char* key, std::string_view text) : name(key), value(text) {}
    SvgAttribute(const char* key, const char* text) : name(key), value(text) {}
    SvgAttribute(const char* key, double pixels);

    const char* name;
    std::string value;
};

using SvgAttributes = std::initializer_list<SvgAttribute>;

// An element in a line of its own around `content`, which is markup.
std::string SvgElement(std::string_view name, SvgAttributes attributes, std::string_view content = {});
// An element that holds a text.
std::string SvgText(std::string_view name, SvgAttributes attributes, std::string_view text);
// A length in pixels, to a tenth: "12", "0.5".
std::string SvgPixels(double pixels);

}  // namespace tool
