#pragma once

#include <string>

#include "curves/Plot.h"

namespace tool {

inline constexpr double kPanelWidth = 352;  // in pixels

// In pixels, with room for a legend of so many rows.
double PanelHeight(std::size_t legendRows);

// How many rows the panel's legend takes.
std::size_t CountLegendRows(const PlotPanel& panel);

// A panel as an SVG group whose upper left corner stands at `x`, `y`. Panels side by side
// leave the same room for their legends, so that their plots stand side by side too.
std::string PanelToSvg(const Plot& plot, const PlotPanel& panel, std::size_t legendRows, double x, double y);

}  // namespace tool
