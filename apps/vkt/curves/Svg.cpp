#include "curves/Svg.h"

#include "common/TerminalText.h"
#include "curves/PlotAxis.h"

namespace tool {
namespace {

std::string Escaped(std::string_view text)
{
    // Two characters that are well-formed and that XML still forbids.
    constexpr std::string_view forbidden[] = {"\xef\xbf\xbe", "\xef\xbf\xbf"};
    const std::string clean = CleanText(text);
    std::string out;
    for (std::size_t i = 0; i < clean.size(); ++i) {
        const std::string_view three = std::string_view(clean).substr(i, 3);
        if (three == forbidden[0] || three == forbidden[1]) {
            out += '?';
            i += 2;
        } else if (clean[i] == '&') {
            out += "&amp;";
        } else if (clean[i] == '<') {
            out += "&lt;";
        } else if (clean[i] == '>') {
            out += "&gt;";
        } else if (clean[i] == '"') {
            out += "&quot;";
        } else {
            out += clean[i];
        }
    }
    return out;
}

std::string Element(std::string_view name, SvgAttributes attributes, std::string_view content)
{
    std::string out(1, '<');
    out += name;
    for (const SvgAttribute& attribute : attributes)
        out += std::string(" ") + attribute.name + "=\"" + Escaped(attribute.value) + '"';
    if (content.empty())
        return out + "/>\n";
    out += '>';
    out += content;
    out += "</";
    out += name;
    return out + ">\n";
}

}  // namespace

SvgAttribute::SvgAttribute(const char* key, double pixels) : name(key), value(SvgPixels(pixels)) {}

std::string SvgElement(std::string_view name, SvgAttributes attributes, std::string_view content)
{
    std::string lines;
    if (!content.empty())
        lines.append(1, '\n').append(content);
    return Element(name, attributes, lines);
}

std::string SvgText(std::string_view name, SvgAttributes attributes, std::string_view text)
{
    return Element(name, attributes, Escaped(text));
}

std::string SvgPixels(double pixels)
{
    std::string out = Fixed(pixels, 1);
    if (out.ends_with(".0"))
        out.resize(out.size() - 2);
    return out == "-0" ? "0" : out;
}

}  // namespace tool
