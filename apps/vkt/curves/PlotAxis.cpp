#include "curves/PlotAxis.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace tool {
namespace {

// Between marks. Labels stand side by side or one above the other.
constexpr int kMostTimeSteps = 7;
constexpr int kMostValueSteps = 5;
// Below this part of the values, differences are those of neighbouring floats.
constexpr double kNarrowest = 1e-5;

std::string ToText(double number, std::chars_format format, int decimals)
{
    char text[400];  // a double has at most 309 digits in front of the point
    return {text, std::to_chars(text, text + sizeof text, number, format, decimals).ptr};
}

}  // namespace

PlotRange Widened(PlotRange range)
{
    const double size = std::max(std::fabs(range.low), std::fabs(range.high));
    if (range.high - range.low > size * kNarrowest)
        return range;
    const double middle = (range.low + range.high) / 2;
    const double margin = size > 0 ? size / 10 : 1;
    return {middle - margin, middle + margin};
}

PlotAxis::PlotAxis(PlotRange range, int mostSteps) : m_Range(Widened(range))
{
    const double wanted = (m_Range.high - m_Range.low) / mostSteps;
    m_Exponent = static_cast<int>(std::floor(std::log10(wanted)));
    for (const int factor : {1, 2, 5}) {
        m_Step = factor * std::pow(10.0, m_Exponent);
        if (m_Step >= wanted * (1 - kNarrowest))
            return;
    }
    m_Step = std::pow(10.0, ++m_Exponent);
}

PlotAxis PlotAxis::OfTimes(PlotRange range)
{
    return PlotAxis(range, kMostTimeSteps);
}

PlotAxis PlotAxis::OfValues(PlotRange range)
{
    PlotAxis axis(range, kMostValueSteps);
    // A value that stands on a mark is not moved to the next one by its last bit.
    axis.m_Range.low = std::floor(axis.m_Range.low / axis.m_Step + kNarrowest) * axis.m_Step;
    axis.m_Range.high = std::ceil(axis.m_Range.high / axis.m_Step - kNarrowest) * axis.m_Step;
    return axis;
}

std::vector<double> PlotAxis::GetMarks() const
{
    std::vector<double> marks;
    const double first = std::ceil(m_Range.low / m_Step - kNarrowest);
    const double last = std::floor(m_Range.high / m_Step + kNarrowest);
    for (double i = first; i <= last; ++i)
        marks.push_back(i * m_Step + 0.0);  // no -0
    return marks;
}

std::string PlotAxis::LabelOf(double mark) const
{
    const double size = std::max(std::fabs(m_Range.low), std::fabs(m_Range.high));
    const int sizeExponent = static_cast<int>(std::floor(std::log10(size)));
    if (sizeExponent < 6 && m_Exponent >= -4)
        return Fixed(mark, std::max(0, -m_Exponent));
    if (mark == 0)
        return "0";
    const int markExponent = static_cast<int>(std::floor(std::log10(std::fabs(mark)) + 1e-9));
    std::string text = ToText(mark, std::chars_format::scientific, std::max(0, markExponent - m_Exponent));
    const std::size_t exponent = text.find('e');
    const std::size_t digits =
        text.find('.') < exponent ? text.find_last_not_of("0.", exponent - 1) : exponent - 1;
    return text.erase(digits + 1, exponent - digits - 1);  // 1.50e+07 as 1.5e+07
}

std::string Fixed(double number, int decimals)
{
    return ToText(number, std::chars_format::fixed, decimals);
}

}  // namespace tool
