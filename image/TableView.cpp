// A calibration table with its frequency axis, its row labels and its plot lines, read through
// the catalogue's table classes.
#include "TableView.h"

#include "image/TableKinds.h"
#include "templates/TextFormat.h"

#include <QHash>
#include <QVector>
#include <algorithm>
#include <cmath>

namespace Tupsim {

namespace {

// The blocks of each id in chain order, built once per image so that pairing every table of
// a long chain stays linear.
struct BlocksById {
    QHash<quint16, QVector<int>> indexes;
    QHash<int, int> occurrence; // block index -> which block of its id it is, from 0
    explicit BlocksById(const EepromImage& image) {
        for (int i = 0; i < image.blockCount(); ++i) {
            QVector<int>& same = indexes[image.block(i).id];
            occurrence.insert(i, same.size());
            same.append(i);
        }
    }
    int nth(quint16 id, int n) const {
        const auto found = indexes.constFind(id);
        return found == indexes.constEnd() || n >= found->size() ? -1 : found->at(n);
    }
};

void readAxis(const EepromImage& image, const BlocksById& blocks, int index, quint32 columns,
              TableAxis& axis) {
    axis.name = QString::fromStdString(blockCatalogue::describe(axis.id).name());
    axis.index = blocks.nth(axis.id, blocks.occurrence.value(index));
    TableContent vector;
    if (axis.index < 0 || !readTable(image, axis.index, vector)) {
        axis.index = -1;
        axis.problem = QStringLiteral("no %1 (id %2) in the image").arg(axis.name).arg(axis.id);
        return;
    }
    const quint32 points = vector.shownCols() == 1 ? vector.shownRows() : 0;
    if (points != columns) {
        axis.problem = QStringLiteral("%1 holds %2 points for %3 columns")
                           .arg(axis.name)
                           .arg(points)
                           .arg(columns);
        return;
    }
    axis.hz = vector.values;
    for (std::size_t i = 1; i < axis.hz.size(); ++i)
        axis.ascending = axis.ascending && axis.hz[i] > axis.hz[i - 1];
}

bool viewWith(const EepromImage& image, const BlocksById& blocks, int index, TableView& view) {
    if (!readTable(image, index, view.content))
        return false;
    const tableKinds::TableKind* kind = tableKinds::find(image.block(index).id);
    view.index = index;
    view.offset = image.block(index).offset;
    view.id = image.block(index).id;
    view.name = image.name(index);
    view.decimals = kind->decimals;
    view.isAxis = tableKinds::isAxis(view.id);
    view.axis = TableAxis();
    view.axis.id = kind->axisId;
    if (view.axis.id != 0)
        readAxis(image, blocks, index, view.content.shownCols(), view.axis);
    view.rowLabels.clear();
    for (quint32 row = 0; row < view.content.shownRows(); ++row)
        view.rowLabels << QString::number(view.content.hasIndexes ? view.content.indexes[row]
                                                                  : static_cast<int>(row) + 1);
    return true;
}

} // namespace

QString TableView::xUnit() const {
    return !isVector() && axis.present() ? QStringLiteral("Hz") : QString();
}

std::vector<PlotLine> TableView::lines() const {
    const quint32 rows = content.shownRows();
    const quint32 cols = content.shownCols();
    std::vector<PlotLine> result;
    if (isVector()) {
        PlotLine line{QStringLiteral("values"), {}, {}};
        for (quint32 row = 0; row < rows && cols == 1; ++row) {
            line.x.push_back(row + 1.0);
            line.y.push_back(content.values[row]);
        }
        result.push_back(std::move(line));
        return result;
    }
    for (quint32 row = 0; row < rows; ++row) {
        PlotLine line{(content.hasIndexes ? QStringLiteral("index ") : QStringLiteral("row ")) +
                          rowLabels.value(static_cast<int>(row)),
                      {},
                      {}};
        for (quint32 col = 0; col < cols; ++col) {
            line.x.push_back(axis.present() ? axis.hz[col] : col + 1.0);
            line.y.push_back(content.values[static_cast<std::size_t>(row) * cols + col]);
        }
        result.push_back(std::move(line));
    }
    return result;
}

std::string TableView::cellText(quint32 row, quint32 col) const {
    const std::size_t at = static_cast<std::size_t>(row) * content.shownCols() + col;
    return at < content.values.size() ? detail::fixedNumber(content.values[at], decimals)
                                      : std::string();
}

std::string TableView::axisText(quint32 col) const {
    return col < axis.hz.size() ? detail::fixedNumber(axis.hz[col], 3) : std::string();
}

namespace tableView {

quint16 axisOf(quint16 id) {
    const tableKinds::TableKind* kind = tableKinds::find(id);
    return kind == nullptr ? 0 : kind->axisId;
}

bool view(const EepromImage& image, int index, TableView& view) {
    return isTable(image, index) && viewWith(image, BlocksById(image), index, view);
}

int viewAll(const EepromImage& image, std::vector<TableView>& views, std::size_t cellLimit,
            std::size_t tableLimit) {
    const BlocksById blocks(image);
    std::size_t cells = 0;
    int left = 0;
    for (int i = 0; i < image.blockCount(); ++i) {
        if (!isTable(image, i))
            continue;
        if (cells >= cellLimit || views.size() >= tableLimit) {
            ++left;
            continue;
        }
        TableView view;
        viewWith(image, blocks, i, view);
        // Counted at least one per table, so that empty tables are limited as well.
        cells += std::max<std::size_t>(1, view.content.values.size());
        views.push_back(std::move(view));
    }
    return left;
}

QString frequencyText(double hz) {
    static const struct {
        double scale;
        const char* unit;
    } units[] = {{1e9, "GHz"}, {1e6, "MHz"}, {1e3, "kHz"}};
    for (const auto& u : units)
        if (std::fabs(hz) >= u.scale)
            return QStringLiteral("%1 %2").arg(QString::number(hz / u.scale, 'g', 6),
                                               QLatin1String(u.unit));
    return QStringLiteral("%1 Hz").arg(QString::number(hz, 'g', 6));
}

} // namespace tableView
} // namespace Tupsim
