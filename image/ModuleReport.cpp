// Builds the content of a module report from one image or two: checks, record fields, tables
// with their axes and the cells that differ, and the remaining blocks.
#include "ModuleReport.h"

#include "BlockCatalogue.h"
#include "ImageTables.h"
#include "RecordFields.h"

#include <QHash>
#include <algorithm>
#include <cmath>

namespace Tupsim {

namespace {

// Pairs the n-th block of an id in one image with the n-th of that id in the other.
struct PairKey {
    quint16 id;
    int occurrence;
    QString field; // for fields: the field's name
    bool operator==(const PairKey& o) const {
        return id == o.id && occurrence == o.occurrence && field == o.field;
    }
};
uint qHash(const PairKey& key, uint seed = 0) {
    return ::qHash(key.id, seed) ^ ::qHash(key.occurrence, seed * 31 + 7) ^ ::qHash(key.field);
}

// Hands out the occurrence of each id in chain order.
struct Occurrences {
    QHash<quint16, int> seen;
    int next(quint16 id) { return seen[id]++; }
};

ReportSide sideOf(const EepromImage& image) {
    ReportSide side;
    side.ok = image.ok();
    side.chainBroken = image.chainBroken();
    side.size = image.size();
    side.blocks = image.blockCount();
    const QVector<ImageProblem> problems = image.problems();
    side.problemCount = problems.size();
    side.problems = problems.mid(0, ModuleReport::MaxProblems);
    return side;
}

bool sameValue(double a, double b) {
    return a == b || (std::isnan(a) && std::isnan(b));
}

void markCells(ReportTable& table) {
    const TableContent* c[2] = {&table.view[0].content, &table.view[1].content};
    table.rows = std::max(table.present[0] ? c[0]->shownRows() : 0,
                          table.present[1] ? c[1]->shownRows() : 0);
    table.cols = std::max(table.present[0] ? c[0]->shownCols() : 0,
                          table.present[1] ? c[1]->shownCols() : 0);
    table.differs.assign(static_cast<std::size_t>(table.rows) * table.cols, false);
    for (quint32 row = 0; row < table.rows; ++row)
        for (quint32 col = 0; col < table.cols; ++col) {
            bool in[2];
            double value[2] = {0, 0};
            for (int s = 0; s < 2; ++s) {
                in[s] = table.present[s] && row < c[s]->shownRows() && col < c[s]->shownCols();
                if (in[s])
                    value[s] =
                        c[s]->values[static_cast<std::size_t>(row) * c[s]->shownCols() + col];
            }
            const bool differs = in[0] != in[1] || !sameValue(value[0], value[1]);
            table.differs[static_cast<std::size_t>(row) * table.cols + col] = differs;
            table.differing += differs ? 1 : 0;
        }
}

void addFields(ModuleReport& report, QHash<PairKey, int>& at, const EepromImage& image, int side) {
    Occurrences occurrences;
    for (int i = 0; i < image.blockCount(); ++i) {
        const ImageBlock& block = image.block(i);
        if (block.isEnd || !recordFields::hasFields(block.id))
            continue;
        const int occurrence = occurrences.next(block.id);
        for (const RecordField& field : recordFields::fields(image.blockBytes(i))) {
            const PairKey key{block.id, occurrence, field.name};
            int position = at.value(key, -1);
            if (position < 0) {
                if (report.fields.size() >= ModuleReport::MaxFields) {
                    ++report.fieldsLeftOut;
                    continue;
                }
                position = report.fields.size();
                at.insert(key, position);
                ReportField entry;
                entry.block = image.name(i);
                entry.label = field.name;
                report.fields.append(entry);
            }
            report.fields[position].value[side] = field.value;
            report.fields[position].present[side] = true;
        }
    }
}

void addTables(ModuleReport& report, QHash<PairKey, int>& at, const EepromImage& image, int side) {
    std::vector<TableView> views;
    report.tablesLeftOut =
        std::max(report.tablesLeftOut,
                 tableView::viewAll(image, views, ModuleReport::MaxCells, ModuleReport::MaxTables));
    Occurrences occurrences;
    for (TableView& view : views) {
        const PairKey key{view.id, occurrences.next(view.id), QString()};
        int position = at.value(key, -1);
        if (position < 0) {
            position = static_cast<int>(report.tables.size());
            at.insert(key, position);
            report.tables.emplace_back();
        }
        report.tables[position].view[side] = std::move(view);
        report.tables[position].present[side] = true;
    }
}

void addOthers(ModuleReport& report, QHash<PairKey, int>& at, const EepromImage& image, int side,
               std::vector<QByteArray>& bytes) {
    Occurrences occurrences;
    for (int i = 0; i < image.blockCount(); ++i) {
        const ImageBlock& block = image.block(i);
        if (block.isEnd || recordFields::hasFields(block.id) || isTable(image, i))
            continue;
        const PairKey key{block.id, occurrences.next(block.id), QString()};
        int position = at.value(key, -1);
        if (position < 0) {
            if (report.others.size() >= ModuleReport::MaxOthers) {
                ++report.othersLeftOut;
                continue;
            }
            position = report.others.size();
            at.insert(key, position);
            ReportBlock entry;
            entry.name = image.name(i);
            entry.id = block.id;
            entry.kind = QLatin1String(blockCatalogue::kindName(image.kindOf(i).kind));
            entry.differs = side == 1; // only in the second image
            report.others.append(entry);
            bytes.emplace_back();
        }
        ReportBlock& entry = report.others[position];
        entry.offset[side] = block.offset;
        entry.size[side] = block.size;
        const QByteArray own = image.blockBytes(i);
        if (side == 0)
            bytes[static_cast<std::size_t>(position)] = own;
        else
            entry.differs = bytes[static_cast<std::size_t>(position)] != own;
    }
}

ModuleReport make(const EepromImage* images[2], int count) {
    ModuleReport report;
    report.compared = count == 2;
    QHash<PairKey, int> fields;
    QHash<PairKey, int> tables;
    QHash<PairKey, int> others;
    std::vector<QByteArray> otherBytes;
    for (int side = 0; side < count; ++side) {
        report.side[side] = sideOf(*images[side]);
        addFields(report, fields, *images[side], side);
        addTables(report, tables, *images[side], side);
        addOthers(report, others, *images[side], side, otherBytes);
    }
    for (ReportField& field : report.fields)
        field.differs = report.compared &&
                        (field.present[0] != field.present[1] || field.value[0] != field.value[1]);
    for (ReportBlock& block : report.others)
        block.differs = report.compared && (block.differs || block.offset[1] < 0);
    if (report.compared)
        for (ReportTable& table : report.tables)
            markCells(table);
    return report;
}

} // namespace

namespace moduleReport {

ModuleReport build(const EepromImage& image) {
    const EepromImage* images[2] = {&image, nullptr};
    return make(images, 1);
}

ModuleReport compare(const EepromImage& a, const EepromImage& b) {
    const EepromImage* images[2] = {&a, &b};
    return make(images, 2);
}

} // namespace moduleReport
} // namespace Tupsim
