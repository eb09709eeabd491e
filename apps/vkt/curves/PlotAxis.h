#pragma once

#include <string>
#include <vector>

#include "curves/Plot.h"

namespace tool {

// The range itself, or one around it when it is too narrow to tell floats apart. Its ends
// are finite.
PlotRange Widened(PlotRange range);

// A scale with marks at round values: 1, 2 or 5 times a power of ten apart.
class PlotAxis {
public:
    // Between the ends of the range, which is widened.
    static PlotAxis OfTimes(PlotRange range);
    // From mark to mark, so that it begins and ends at a round value.
    static PlotAxis OfValues(PlotRange range);

    // Where a value stands: 0 at the lower end, 1 at the upper.
    double PlaceOf(double value) const { return (value - m_Range.low) / (m_Range.high - m_Range.low); }
    std::vector<double> GetMarks() const;
    // As many decimals as tell marks apart.
    std::string LabelOf(double mark) const;

private:
    PlotAxis(PlotRange range, int mostSteps);

    PlotRange m_Range;
    int m_Exponent = 0;  // of the power of ten in the step
    double m_Step = 1;   // from mark to mark
};

// A decimal number for people and pictures, whatever the locale.
std::string Fixed(double number, int decimals);

}  // namespace tool
