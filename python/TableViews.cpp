// Table.values and Table.axis as NumPy arrays, Table.to_dataframe() (pandas), Table.plot()
// (matplotlib) and the notebook views of Table and Image. pandas and matplotlib are imported
// only when asked for.
#include "Errors.h"
#include "TableHandle.h"

#include <TableView.h>

#include <QString>
#include <cmath>
#include <pybind11/numpy.h>
#include <pybind11/stl.h>

namespace py = pybind11;
using namespace pybind11::literals;
using Tupsim::EepromImage;
using Tupsim::TableView;

namespace epromPython {

namespace {

TableView viewOf(const Table& table) {
    TableView view;
    if (!Tupsim::tableView::view(*table.image, table.index, view))
        throw py::value_error("the block is no longer a calibration table");
    return view;
}

// `module` imported, or ImportError naming the package that `what` needs.
py::module_ optional(const char* module, const char* package, const char* what) {
    try {
        return py::module_::import(module);
    } catch (py::error_already_set& e) {
        if (!e.matches(PyExc_ImportError))
            throw;
        const std::string text = std::string(what) + " needs " + package +
                                 ", which cannot be imported (" + e.what() +
                                 "); on Debian: apt-get install python3-" + package;
        PyErr_SetString(PyExc_ImportError, text.c_str());
        throw py::error_already_set();
    }
}

py::array_t<double> valuesOf(const TableView& view) {
    const Tupsim::TableContent& c = view.content;
    py::array_t<double> array(
        {static_cast<py::ssize_t>(c.shownRows()), static_cast<py::ssize_t>(c.shownCols())});
    std::copy(c.values.begin(), c.values.end(), array.mutable_data());
    return array;
}

py::object axisOf(const TableView& view) {
    if (!view.axis.present())
        return py::none();
    py::array_t<double> array(static_cast<py::ssize_t>(view.axis.hz.size()));
    std::copy(view.axis.hz.begin(), view.axis.hz.end(), array.mutable_data());
    return std::move(array);
}

std::vector<long long> rowLabels(const TableView& view) {
    std::vector<long long> labels;
    for (const QString& label : view.rowLabels)
        labels.push_back(label.toLongLong());
    return labels;
}

// Sets every cell whose value differs from the table's own, through the same checks as
// set_cell, on a copy of the image: the image takes all of them or none.
void setValues(const Table& table, const py::array_t<double, py::array::forcecast>& values) {
    const TableView view = viewOf(table);
    const Tupsim::TableContent& c = view.content;
    if (values.ndim() != 2 || values.shape(0) != static_cast<py::ssize_t>(c.shownRows()) ||
        values.shape(1) != static_cast<py::ssize_t>(c.shownCols()))
        throw py::value_error("values of shape (" + std::to_string(c.shownRows()) + ", " +
                              std::to_string(c.shownCols()) + ") expected");
    const auto cells = values.unchecked<2>();
    EepromImage copy = *table.image;
    for (quint32 r = 0; r < c.shownRows(); ++r)
        for (quint32 col = 0; col < c.shownCols(); ++col) {
            const double value = cells(r, col);
            const double now = c.values[static_cast<std::size_t>(r) * c.shownCols() + col];
            if (value == now || (std::isnan(value) && std::isnan(now)))
                continue;
            epromPython::check(Tupsim::setTableCell(copy, table.index, r, col, value));
        }
    *table.image = copy;
}

py::object dataFrame(const Table& table) {
    const py::module_ pandas = optional("pandas", "pandas", "Table.to_dataframe()");
    const TableView view = viewOf(table);
    py::object columns;
    if (view.axis.present()) {
        columns = pandas.attr("Index")(axisOf(view), "name"_a = "Hz");
    } else {
        std::vector<long long> numbers;
        for (quint32 c = 0; c < view.content.shownCols(); ++c)
            numbers.push_back(c + 1);
        columns = pandas.attr("Index")(numbers, "name"_a = "column");
    }
    const py::object index =
        pandas.attr("Index")(rowLabels(view), "name"_a = view.content.hasIndexes ? "index" : "row");
    return pandas.attr("DataFrame")(valuesOf(view), "index"_a = index, "columns"_a = columns);
}

py::object plot(const Table& table, py::object ax) {
    const py::module_ pyplot = optional("matplotlib.pyplot", "matplotlib", "Table.plot()");
    const TableView view = viewOf(table);
    if (ax.is_none())
        ax = pyplot.attr("subplots")().cast<py::tuple>()[1];
    const bool inMhz = view.xUnit() == QLatin1String("Hz");
    for (const Tupsim::PlotLine& line : view.lines()) {
        std::vector<double> x = line.x;
        if (inMhz)
            for (double& f : x)
                f /= 1e6;
        ax.attr("plot")(x, line.y, "label"_a = line.label.toStdString());
    }
    ax.attr("set_xlabel")(inMhz ? "frequency / MHz" : view.isVector() ? "point" : "column");
    ax.attr("set_ylabel")(view.isAxis ? "frequency / Hz" : "value");
    ax.attr("set_title")(view.name.toStdString());
    ax.attr("legend")();
    return ax;
}

QString esc(const QString& text) {
    return text.toHtmlEscaped();
}

constexpr quint32 kHtmlRows = 10;
constexpr quint32 kHtmlCols = 12;

std::string tableHtml(const Table& table) {
    const TableView view = viewOf(table);
    const Tupsim::TableContent& c = view.content;
    QString html =
        QStringLiteral("<div><b>%1</b> (id %2): %3*%4 of %5*%6 %7, factor %8")
            .arg(esc(view.name), QString::number(view.id), QString::number(c.rows),
                 QString::number(c.cols), QString::number(c.maxRows), QString::number(c.maxCols),
                 QString::fromStdString(c.rawType), QString::number(c.factor));
    if (view.axis.present())
        html += QStringLiteral(", axis %1").arg(esc(view.axis.name));
    else if (!view.axis.problem.isEmpty())
        html += QStringLiteral(", no axis: %1").arg(esc(view.axis.problem));
    html += QStringLiteral("<table><tr><th></th>");
    const quint32 cols = std::min(c.shownCols(), kHtmlCols);
    for (quint32 col = 0; col < cols; ++col)
        html +=
            QStringLiteral("<th>%1</th>")
                .arg(view.axis.present() ? esc(Tupsim::tableView::frequencyText(view.axis.hz[col]))
                                         : QString::number(col + 1));
    if (cols < c.shownCols())
        html += QStringLiteral("<th>…</th>");
    html += QStringLiteral("</tr>");
    for (quint32 r = 0; r < std::min(c.shownRows(), kHtmlRows); ++r) {
        html += QStringLiteral("<tr><th>%1</th>").arg(esc(view.rowLabels.at(static_cast<int>(r))));
        for (quint32 col = 0; col < cols; ++col)
            html += QStringLiteral("<td>%1</td>")
                        .arg(esc(QString::fromStdString(view.cellText(r, col))));
        html += QStringLiteral("</tr>");
    }
    if (c.shownRows() > kHtmlRows)
        html += QStringLiteral("<tr><th>…</th></tr>");
    return (html + QStringLiteral("</table></div>")).toStdString();
}

constexpr int kHtmlBlocks = 50;

std::string imageHtml(const ImagePtr& image) {
    const int problems = image->problems().size();
    QString html =
        QStringLiteral("<div><b>EEPROM image</b>: %1 bytes, %2 blocks, %3")
            .arg(QString::number(image->size()), QString::number(image->blockCount()),
                 problems == 0
                     ? QStringLiteral("ok")
                     : QStringLiteral("%1 problem%2").arg(problems).arg(problems == 1 ? "" : "s"));
    html += QStringLiteral("<table><tr><th>offset</th><th>id</th><th>name</th><th>size</th>"
                           "<th>checks</th></tr>");
    for (int i = 0; i < std::min(image->blockCount(), kHtmlBlocks); ++i) {
        const Tupsim::ImageBlock& b = image->block(i);
        html += QStringLiteral("<tr><td>%1</td><td>%2</td><td>%3</td><td>%4</td><td>%5</td></tr>")
                    .arg(Tupsim::hex16(static_cast<unsigned>(b.offset)), QString::number(b.id),
                         esc(image->name(i)), QString::number(b.size),
                         b.isEnd  ? QStringLiteral("-")
                         : b.ok() ? QStringLiteral("ok")
                                  : QStringLiteral("FAILED"));
    }
    if (image->blockCount() > kHtmlBlocks)
        html += QStringLiteral("<tr><td colspan=\"5\">… %1 more</td></tr>")
                    .arg(image->blockCount() - kHtmlBlocks);
    return (html + QStringLiteral("</table></div>")).toStdString();
}

} // namespace

void addTableViews(py::module_& m) {
    auto table = py::reinterpret_borrow<py::class_<Table>>(m.attr("Table"));
    table
        .def_property(
            "values", [](const Table& t) { return valuesOf(viewOf(t)); }, &setValues,
            "The cells as a new NumPy array of floats, shape (rows, cols), factor applied as "
            "the calibration text shows them. Each read copies: changing the array changes "
            "nothing until it is assigned back. Assigning an array of the same shape sets every "
            "cell whose value changed through the checks of set_cell, all or nothing.")
        .def_property_readonly(
            "axis", [](const Table& t) { return axisOf(viewOf(t)); },
            "The frequencies of the columns in Hz as a NumPy array (a copy), from the "
            "frequency vector the table pairs with; None for a table without one, or when the "
            "image lacks the vector or its points do not match the columns.")
        .def_property_readonly(
            "axis_problem",
            [](const Table& t) -> py::object {
                const TableView view = viewOf(t);
                return view.axis.problem.isEmpty() ? py::object(py::none())
                                                   : py::str(view.axis.problem.toStdString());
            },
            "Why a table that has a frequency vector has no axis here; None otherwise.")
        .def("to_dataframe", &dataFrame,
             "The cells as a pandas DataFrame: the rows labelled by row number (index tables: "
             "row index), the columns by frequency in Hz (or column number). ImportError when "
             "pandas is missing.")
        .def("plot", &plot, py::arg("ax") = py::none(),
             "Plots one line per row against the frequency in MHz (a vector: one line over its "
             "points) on `ax` or a new matplotlib Axes, labelled, with a legend; returns the "
             "Axes. ImportError when matplotlib is missing.")
        .def("_repr_html_", &tableHtml, "A summary and the first cells, for notebooks.");
    auto image = py::reinterpret_borrow<py::class_<EepromImage, ImagePtr>>(m.attr("Image"));
    image.def("_repr_html_", &imageHtml, "A summary and the blocks, for notebooks.");
}

} // namespace epromPython
