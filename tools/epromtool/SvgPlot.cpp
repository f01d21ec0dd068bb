// Writes a line plot as SVG text by hand: a frame, ticks at 1, 2 or 5 times a power of ten,
// polylines and a legend beside the frame.
#include "SvgPlot.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace epromtool {

namespace {

const char* const kPalette[] = {"#1f77b4", "#d62728", "#2ca02c", "#9467bd", "#ff7f0e",
                                "#17becf", "#8c564b", "#e377c2", "#7f7f7f", "#bcbd22"};
constexpr double kWidth = 760;
constexpr double kLeft = 80, kRight = 190, kTop = 14, kBottom = 48;
constexpr double kPlotHeight = 300;
constexpr double kLegendLine = 16;

QString num(double value) {
    return QString::number(value, 'f', 1);
}

QString escaped(const QString& text) {
    return text.toHtmlEscaped();
}

struct Range {
    double low = std::numeric_limits<double>::infinity();
    double high = -std::numeric_limits<double>::infinity();
    void take(double v) {
        if (std::isfinite(v)) {
            low = std::min(low, v);
            high = std::max(high, v);
        }
    }
    // A range of some width, so that a single value or no value still maps somewhere.
    void settle() {
        if (!(low <= high)) {
            low = 0;
            high = 1;
        } else if (low == high) {
            const double pad = low == 0 ? 1 : std::fabs(low) * 0.05;
            low -= pad;
            high += pad;
        }
    }
    // 0 at low, 1 at high; halves keep the difference of two huge values finite.
    double at(double v) const { return (v / 2 - low / 2) / (high / 2 - low / 2); }
};

// Tick values: 1, 2 or 5 times a power of ten, about five of them.
std::vector<double> ticks(const Range& range) {
    const double half = range.high / 2 - range.low / 2;
    const double rough = half / 2.5; // a fifth of the span
    const double power = std::pow(10.0, std::floor(std::log10(rough)));
    double step = power;
    for (double f : {2.0, 5.0, 10.0})
        if (step < rough)
            step = power * f;
    std::vector<double> values;
    if (!std::isfinite(step) || step <= 0)
        return values;
    for (double v = std::ceil(range.low / step) * step; v <= range.high && values.size() < 12;
         v += step)
        values.push_back(v);
    return values;
}

QString tickLabel(double value, double scale) {
    const double shown = value / scale;
    return QString::number(std::fabs(shown) < 1e-12 ? 0.0 : shown, 'g', 6);
}

QString axisTitle(const SvgAxis& axis) {
    return axis.unit.isEmpty() ? axis.title : QStringLiteral("%1 / %2").arg(axis.title, axis.unit);
}

} // namespace

QString svgPlot(const std::vector<SvgSeries>& series, const SvgAxis& xAxis, const SvgAxis& yAxis) {
    Range xs;
    Range ys;
    for (const SvgSeries& s : series)
        for (std::size_t i = 0; i < s.x.size() && i < s.y.size(); ++i)
            if (std::isfinite(s.x[i]) && std::isfinite(s.y[i])) {
                xs.take(s.x[i]);
                ys.take(s.y[i]);
            }
    xs.settle();
    ys.settle();
    const double height =
        std::max(kTop + kPlotHeight + kBottom, kTop + 8 + kLegendLine * series.size());
    const double plotWidth = kWidth - kLeft - kRight;
    const auto px = [&](double v) { return kLeft + xs.at(v) * plotWidth; };
    const auto py = [&](double v) { return kTop + (1 - ys.at(v)) * kPlotHeight; };

    QString svg = QStringLiteral("<svg xmlns=\"http://www.w3.org/2000/svg\" class=\"plot\" "
                                 "width=\"%1\" height=\"%2\" viewBox=\"0 0 %1 %2\">\n")
                      .arg(num(kWidth), num(height));
    svg += QStringLiteral("<rect x=\"%1\" y=\"%2\" width=\"%3\" height=\"%4\" fill=\"#fff\" "
                          "stroke=\"#444\"/>\n")
               .arg(num(kLeft), num(kTop), num(plotWidth), num(kPlotHeight));
    for (double v : ticks(xs))
        svg += QStringLiteral("<line x1=\"%1\" y1=\"%2\" x2=\"%1\" y2=\"%3\" stroke=\"#ddd\"/>"
                              "<text x=\"%1\" y=\"%4\" text-anchor=\"middle\">%5</text>\n")
                   .arg(num(px(v)), num(kTop), num(kTop + kPlotHeight),
                        num(kTop + kPlotHeight + 16), escaped(tickLabel(v, xAxis.scale)));
    for (double v : ticks(ys))
        svg += QStringLiteral("<line x1=\"%1\" y1=\"%2\" x2=\"%3\" y2=\"%2\" stroke=\"#ddd\"/>"
                              "<text x=\"%4\" y=\"%5\" text-anchor=\"end\">%6</text>\n")
                   .arg(num(kLeft), num(py(v)), num(kLeft + plotWidth), num(kLeft - 6),
                        num(py(v) + 4), escaped(tickLabel(v, yAxis.scale)));
    svg += QStringLiteral("<text class=\"xtitle\" x=\"%1\" y=\"%2\" text-anchor=\"middle\">%3"
                          "</text>\n")
               .arg(num(kLeft + plotWidth / 2), num(kTop + kPlotHeight + 38),
                    escaped(axisTitle(xAxis)));
    svg += QStringLiteral("<text class=\"ytitle\" x=\"16\" y=\"%1\" text-anchor=\"middle\" "
                          "transform=\"rotate(-90 16 %1)\">%2</text>\n")
               .arg(num(kTop + kPlotHeight / 2), escaped(axisTitle(yAxis)));

    for (std::size_t n = 0; n < series.size(); ++n) {
        const SvgSeries& s = series[n];
        const QString colour = QLatin1String(kPalette[s.colour % 10]);
        QString points;
        QString marks;
        int count = 0;
        for (std::size_t i = 0; i < s.x.size() && i < s.y.size(); ++i) {
            if (!std::isfinite(s.x[i]) || !std::isfinite(s.y[i]))
                continue;
            const QString xy = num(px(s.x[i])) + QLatin1Char(',') + num(py(s.y[i]));
            points += (count++ ? QStringLiteral(" ") : QString()) + xy;
            if (i < s.marked.size() && s.marked[i])
                marks += QStringLiteral("<circle class=\"diffmark\" cx=\"%1\" cy=\"%2\" r=\"5\" "
                                        "fill=\"none\" stroke=\"#e00\" stroke-width=\"2\"/>\n")
                             .arg(num(px(s.x[i])), num(py(s.y[i])));
        }
        const QString dash = s.dashed ? QStringLiteral(" stroke-dasharray=\"6 4\"") : QString();
        svg +=
            QStringLiteral("<polyline class=\"line\" data-label=\"%1\" data-points=\"%2\" "
                           "points=\"%3\" fill=\"none\" stroke=\"%4\" stroke-width=\"1.5\"%5/>\n")
                .arg(escaped(s.label), QString::number(count), points, colour, dash);
        svg += marks;
        const double ly = kTop + 8 + kLegendLine * n;
        const double lx = kLeft + plotWidth + 12;
        svg += QStringLiteral("<line x1=\"%1\" y1=\"%2\" x2=\"%3\" y2=\"%2\" stroke=\"%4\" "
                              "stroke-width=\"2\"%5/><text class=\"legend\" x=\"%6\" y=\"%7\">%8"
                              "</text>\n")
                   .arg(num(lx), num(ly), num(lx + 24), colour, dash, num(lx + 30), num(ly + 4),
                        escaped(s.label));
    }
    return svg + QStringLiteral("</svg>\n");
}

} // namespace epromtool
