// A line plot as an inline SVG element: framed axes with ticks, labels and units, one polyline
// per series, a legend, and marks on chosen points.
#pragma once

#include <QString>
#include <vector>

namespace epromtool {

struct SvgSeries {
    QString label;
    std::vector<double> x;
    std::vector<double> y;
    int colour = 0;           // index into the palette
    bool dashed = false;      // the second image's curve
    std::vector<bool> marked; // per point: drawn with a ring (a cell that differs)
};

struct SvgAxis {
    QString title;    // "frequency" ...
    QString unit;     // "GHz", "" ...
    double scale = 1; // a value is divided by it for the tick labels
};

// Non-finite points are left out of their line; `data-points` on each polyline says how many
// it holds.
QString svgPlot(const std::vector<SvgSeries>& series, const SvgAxis& x, const SvgAxis& y);

} // namespace epromtool
