// Renders a ModuleReport as HTML with inline CSS and SVG: no script, no external file.
#include "HtmlReport.h"

#include "SvgPlot.h"

#include <QCoreApplication>
#include <algorithm>
#include <cmath>

using Tupsim::ModuleReport;
using Tupsim::ReportTable;
using Tupsim::TableView;

namespace epromtool {

namespace {

const char* const kStyle = R"(
body { font-family: sans-serif; margin: 1.5em; color: #222; }
h1 { font-size: 1.5em; } h2 { border-bottom: 2px solid #888; margin-top: 1.6em; }
h3 { margin-bottom: 0.2em; font-size: 1.1em; }
table { border-collapse: collapse; font-size: 0.85em; }
th, td { border: 1px solid #bbb; padding: 2px 6px; text-align: right; white-space: nowrap; }
th { background: #eee; } td.text, th.text { text-align: left; }
.ok { color: #070; font-weight: bold; } .failed { color: #b00; font-weight: bold; }
.diff { background: #ffd6d6; } .only { background: #fff3c4; }
span.b { display: block; color: #b00; }
.numbers { overflow-x: auto; max-width: 100%; margin-bottom: 1em; }
.meta { color: #555; margin: 0.2em 0 0.5em; font-size: 0.9em; }
svg.plot text { font-size: 11px; font-family: sans-serif; }
.note { color: #a60; }
)";

QString esc(const QString& text) {
    QString result = text.toHtmlEscaped();
    // Control characters a hostile field may hold are shown, not passed on.
    for (QChar& c : result)
        if (c.unicode() < 0x20 && c != QLatin1Char('\n') && c != QLatin1Char('\t'))
            c = QChar(0xFFFD);
    return result;
}

QString esc(const std::string& text) {
    return esc(QString::fromStdString(text));
}

QString hex(int offset) {
    return Tupsim::hex16(static_cast<unsigned>(offset));
}

// The largest frequency unit that keeps the biggest value at or above 1.
void frequencyAxis(double largest, SvgAxis& axis) {
    axis.title = QStringLiteral("frequency");
    axis.unit = QStringLiteral("Hz");
    axis.scale = 1;
    if (largest >= 1e9) {
        axis.unit = QStringLiteral("GHz");
        axis.scale = 1e9;
    } else if (largest >= 1e6) {
        axis.unit = QStringLiteral("MHz");
        axis.scale = 1e6;
    } else if (largest >= 1e3) {
        axis.unit = QStringLiteral("kHz");
        axis.scale = 1e3;
    }
}

double largest(const std::vector<SvgSeries>& series, bool ofY) {
    double most = 0;
    for (const SvgSeries& s : series)
        for (double v : ofY ? s.y : s.x)
            if (std::isfinite(v))
                most = std::max(most, std::fabs(v));
    return most;
}

QString plotOf(const ReportTable& table) {
    std::vector<SvgSeries> series;
    for (int side = 0; side < 2; ++side) {
        if (!table.present[side])
            continue;
        const TableView& view = table.view[side];
        const std::vector<Tupsim::PlotLine> lines = view.lines();
        for (std::size_t n = 0; n < lines.size(); ++n) {
            SvgSeries s;
            s.label = lines[n].label + (side == 1          ? QStringLiteral(" (B)")
                                        : table.present[1] ? QStringLiteral(" (A)")
                                                           : QString());
            s.x = lines[n].x;
            s.y = lines[n].y;
            s.colour = static_cast<int>(n);
            s.dashed = side == 1;
            // The differing cells are ringed on the second image's curve, or on the first's
            // where the second has none.
            if (side == 1 || !table.present[1])
                for (std::size_t i = 0; i < s.x.size(); ++i)
                    s.marked.push_back(view.isVector() ? table.cellDiffers(i, 0)
                                                       : table.cellDiffers(n, i));
            series.push_back(std::move(s));
        }
    }
    const TableView& view = table.first();
    SvgAxis x;
    if (view.xUnit() == QLatin1String("Hz"))
        frequencyAxis(largest(series, false), x);
    else
        x.title = view.isVector() ? QStringLiteral("point") : QStringLiteral("column");
    SvgAxis y;
    if (view.isAxis) {
        frequencyAxis(largest(series, true), y);
    } else {
        y.title = QStringLiteral("value");
        if (view.content.factor != 1)
            y.unit = QStringLiteral("stored × %1").arg(view.content.factor);
    }
    return svgPlot(series, x, y);
}

// A vector is shown as one row over its points, any other table row by row.
struct Grid {
    const TableView& view;
    quint32 rows() const { return view.isVector() ? 1 : view.content.shownRows(); }
    quint32 cols() const {
        return view.isVector() ? view.content.shownRows() : view.content.shownCols();
    }
    QString cell(quint32 r, quint32 c) const {
        return view.isVector() ? esc(view.cellText(c, 0)) : esc(view.cellText(r, c));
    }
    bool has(quint32 r, quint32 c) const { return r < rows() && c < cols(); }
};

QString numbersOf(const ReportTable& table) {
    const TableView& view = table.first();
    const Grid a{table.present[0] ? table.view[0] : table.view[1]};
    const Grid b{table.view[1]};
    const bool two = table.present[0] && table.present[1];
    const quint32 rows = std::max(a.rows(), two ? b.rows() : 0);
    const quint32 cols = std::max(a.cols(), two ? b.cols() : 0);
    QString html = QStringLiteral("<div class=\"numbers\"><table class=\"cells\"><tr><th>%1</th>")
                       .arg(view.isVector()       ? QStringLiteral("point")
                            : view.axis.present() ? QStringLiteral("row \\ frequency")
                                                  : QStringLiteral("row \\ column"));
    for (quint32 c = 0; c < cols; ++c) {
        const bool onAxis = !view.isVector() && view.axis.present() && c < view.axis.hz.size();
        html += QStringLiteral("<th>%1</th>")
                    .arg(onAxis ? esc(Tupsim::tableView::frequencyText(view.axis.hz[c]))
                                : QString::number(c + 1));
    }
    html += QStringLiteral("</tr>\n");
    for (quint32 r = 0; r < rows; ++r) {
        const QString label = view.isVector()
                                  ? QStringLiteral("values")
                                  : (r < static_cast<quint32>(view.rowLabels.size())
                                         ? view.rowLabels.at(static_cast<int>(r))
                                         : table.view[1].rowLabels.value(static_cast<int>(r)));
        html += QStringLiteral("<tr><th>%1</th>").arg(esc(label));
        for (quint32 c = 0; c < cols; ++c) {
            const bool differs =
                view.isVector() ? table.cellDiffers(c, 0) : table.cellDiffers(r, c);
            const QString shown = a.has(r, c) ? a.cell(r, c) : QStringLiteral("–");
            if (!differs)
                html += QStringLiteral("<td>%1</td>").arg(shown);
            else
                html += QStringLiteral("<td class=\"diff\">%1<span class=\"b\">%2</span></td>")
                            .arg(shown, b.has(r, c) ? b.cell(r, c) : QStringLiteral("–"));
        }
        html += QStringLiteral("</tr>\n");
    }
    return html + QStringLiteral("</table></div>\n");
}

QString metaOf(const TableView& view) {
    const Tupsim::TableContent& c = view.content;
    QString text = QStringLiteral("%1*%2 of %3*%4 %5, factor %6")
                       .arg(c.rows)
                       .arg(c.cols)
                       .arg(c.maxRows)
                       .arg(c.maxCols)
                       .arg(QString::fromStdString(c.rawType))
                       .arg(c.factor);
    if (view.axis.present())
        text += QStringLiteral("; frequency axis %1, %2 points")
                    .arg(view.axis.name)
                    .arg(view.axis.hz.size());
    text = esc(text);
    if (!view.axis.problem.isEmpty())
        text += QStringLiteral("; <span class=\"note\">no frequency axis: %1</span>")
                    .arg(esc(view.axis.problem));
    else if (view.axis.present() && !view.axis.ascending)
        text += QStringLiteral("; <span class=\"note\">the frequency axis is not ascending</span>");
    if (c.hasDescriptors) {
        QStringList shown;
        for (const std::string& d : c.descriptors)
            shown << esc(QString::fromStdString(d).trimmed());
        text += QStringLiteral("<br>descriptors: ") + shown.join(QStringLiteral(", "));
    }
    return text;
}

QString tableSection(const ReportTable& table, int number, bool compared) {
    const TableView& view = table.first();
    QStringList where;
    for (int side = 0; side < 2; ++side)
        if (table.present[side])
            where << (compared ? QStringLiteral("%1 at ").arg(side ? "B" : "A")
                               : QStringLiteral("at ")) +
                         hex(table.view[side].offset);
    QString html = QStringLiteral("<div class=\"table\" id=\"table-%1\" data-name=\"%2\" "
                                  "data-rows=\"%3\" data-points=\"%4\" data-differing=\"%5\">\n")
                       .arg(QString::number(number), esc(view.name),
                            QString::number(view.isVector() ? 1 : view.content.shownRows()),
                            QString::number(view.isVector() ? view.content.shownRows()
                                                            : view.content.shownCols()),
                            QString::number(table.differing));
    html += QStringLiteral("<h3>%1 <small>(id %2, %3)</small></h3>\n")
                .arg(esc(view.name), QString::number(view.id), where.join(QStringLiteral(", ")));
    for (int side = 0; side < 2; ++side) {
        if (!table.present[side]) {
            if (compared)
                html += QStringLiteral("<p class=\"meta only\">only in image %1</p>\n")
                            .arg(side ? QStringLiteral("A") : QStringLiteral("B"));
            continue;
        }
        html +=
            QStringLiteral("<p class=\"meta\">%1%2</p>\n")
                .arg(compared ? (side ? QStringLiteral("B: ") : QStringLiteral("A: ")) : QString(),
                     metaOf(table.view[side]));
    }
    if (compared && table.present[0] && table.present[1])
        html += QStringLiteral("<p class=\"meta\">%1</p>\n")
                    .arg(table.differing == 0
                             ? QStringLiteral("the same in both images")
                             : QStringLiteral("<span class=\"failed\">%1 cell%2 differ%3</span>")
                                   .arg(table.differing)
                                   .arg(table.differing == 1 ? "" : "s")
                                   .arg(table.differing == 1 ? "s" : ""));
    return html + plotOf(table) + numbersOf(table) + QStringLiteral("</div>\n");
}

QString verdictOf(const Tupsim::ReportSide& side, const QString& label, const QString& path) {
    QString html =
        QStringLiteral("<p>%1<b>%2</b>: %3 bytes, %4 blocks: ")
            .arg(label, esc(path), QString::number(side.size), QString::number(side.blocks));
    if (side.ok)
        html += QStringLiteral("<span class=\"ok\">ok</span>, every check passed</p>\n");
    else
        html += QStringLiteral("<span class=\"failed\">%1</span>, %2 problem%3</p>\n")
                    .arg(side.chainBroken ? QStringLiteral("FAILED: chain broken")
                                          : QStringLiteral("FAILED"))
                    .arg(side.problemCount)
                    .arg(side.problemCount == 1 ? "" : "s");
    if (side.problems.isEmpty())
        return html;
    html += QStringLiteral("<ul class=\"problems\">\n");
    for (const Tupsim::ImageProblem& p : side.problems)
        html += QStringLiteral("<li>%1: %2</li>\n").arg(hex(p.offset), esc(p.text));
    if (side.problemCount > side.problems.size())
        html += QStringLiteral("<li>… and %1 more</li>\n")
                    .arg(side.problemCount - side.problems.size());
    return html + QStringLiteral("</ul>\n");
}

QString fieldsSection(const ModuleReport& report) {
    QString html = QStringLiteral("<h2>Record fields</h2>\n");
    if (report.fields.isEmpty())
        return html + QStringLiteral("<p>No record blocks.</p>\n");
    html += QStringLiteral("<table class=\"fields\"><tr><th class=\"text\">block</th>"
                           "<th class=\"text\">field</th>");
    html += report.compared ? QStringLiteral("<th class=\"text\">image A</th>"
                                             "<th class=\"text\">image B</th></tr>\n")
                            : QStringLiteral("<th class=\"text\">value</th></tr>\n");
    for (const Tupsim::ReportField& f : report.fields) {
        html += QStringLiteral("<tr%1 data-field=\"%2\"><td class=\"text\">%3</td>"
                               "<td class=\"text\">%2</td>")
                    .arg(f.differs ? QStringLiteral(" class=\"diff\"") : QString(), esc(f.label),
                         esc(f.block));
        for (int side = 0; side < (report.compared ? 2 : 1); ++side)
            html += QStringLiteral("<td class=\"text\">%1</td>")
                        .arg(f.present[side] ? esc(f.value[side]) : QStringLiteral("–"));
        html += QStringLiteral("</tr>\n");
    }
    if (report.fieldsLeftOut > 0)
        html += QStringLiteral("<tr><td class=\"text\" colspan=\"4\">… and %1 more fields not "
                               "shown</td></tr>\n")
                    .arg(report.fieldsLeftOut);
    return html + QStringLiteral("</table>\n");
}

QString othersSection(const ModuleReport& report) {
    QString html = QStringLiteral("<h2>Other blocks</h2>\n");
    if (report.others.isEmpty())
        return html + QStringLiteral("<p>None.</p>\n");
    html += QStringLiteral("<table class=\"others\"><tr><th class=\"text\">name</th><th>id</th>"
                           "<th class=\"text\">kind</th>");
    for (int side = 0; side < (report.compared ? 2 : 1); ++side)
        html += report.compared ? QStringLiteral("<th>%1 offset</th><th>%1 bytes</th>")
                                      .arg(side ? QStringLiteral("B") : QStringLiteral("A"))
                                : QStringLiteral("<th>offset</th><th>bytes</th>");
    html += QStringLiteral("</tr>\n");
    for (const Tupsim::ReportBlock& b : report.others) {
        html += QStringLiteral("<tr%1><td class=\"text\">%2</td><td>%3</td><td class=\"text\">"
                               "%4</td>")
                    .arg(b.differs ? QStringLiteral(" class=\"diff\"") : QString(), esc(b.name),
                         QString::number(b.id), esc(b.kind));
        for (int side = 0; side < (report.compared ? 2 : 1); ++side)
            html += b.offset[side] < 0
                        ? QStringLiteral("<td>–</td><td>–</td>")
                        : QStringLiteral("<td>%1</td><td>%2</td>")
                              .arg(hex(b.offset[side]), QString::number(b.size[side]));
        html += QStringLiteral("</tr>\n");
    }
    if (report.othersLeftOut > 0)
        html += QStringLiteral("<tr><td class=\"text\" colspan=\"7\">… and %1 more blocks not "
                               "shown</td></tr>\n")
                    .arg(report.othersLeftOut);
    return html + QStringLiteral("</table>\n");
}

} // namespace

QString htmlReport(const ModuleReport& report, const QStringList& paths) {
    QString html = QStringLiteral("<!DOCTYPE html>\n<html lang=\"en\"><head><meta "
                                  "charset=\"utf-8\">\n<title>Module report: %1</title>\n"
                                  "<style>%2</style></head><body>\n")
                       .arg(esc(paths.join(QStringLiteral(" / "))), QLatin1String(kStyle));
    html += QStringLiteral("<h1>Module report</h1>\n<section id=\"verdict\">\n");
    for (int side = 0; side < (report.compared ? 2 : 1); ++side)
        html += verdictOf(report.side[side],
                          report.compared ? QStringLiteral("image %1: ").arg(side ? "B" : "A")
                                          : QString(),
                          paths.value(side));
    html += QStringLiteral("</section>\n<section id=\"fields\">\n") + fieldsSection(report);
    html += QStringLiteral("</section>\n<section id=\"tables\">\n<h2>Calibration tables</h2>\n");
    if (report.tables.empty())
        html += QStringLiteral("<p>No calibration tables.</p>\n");
    int number = 0;
    for (const ReportTable& table : report.tables)
        html += tableSection(table, ++number, report.compared);
    if (report.tablesLeftOut > 0)
        html += QStringLiteral("<p class=\"note\">… and %1 more tables not drawn: the report "
                               "stops at %2 tables or %3 cells per image.</p>\n")
                    .arg(report.tablesLeftOut)
                    .arg(ModuleReport::MaxTables)
                    .arg(ModuleReport::MaxCells);
    html += QStringLiteral("</section>\n<section id=\"others\">\n") + othersSection(report);
    html += QStringLiteral("</section>\n<footer class=\"meta\">epromtool %1</footer>\n"
                           "</body></html>\n")
                .arg(QCoreApplication::applicationVersion());
    return html;
}

} // namespace epromtool
