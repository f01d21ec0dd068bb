// The calibration table classes of the catalogue, by block id, driven through their own
// printing, reading and cell access.
#include "image/TableKinds.h"

#include "core/FieldHooks.h"
#include "core/HwBytes.h"
#include "directory/Catalogue.h"
#include "directory/CatalogueRows.h"
#include "directory/TableTraits.h"

#include "templates/ValueConversion.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <limits>
#include <type_traits>

namespace Tupsim {
namespace tableKinds {

namespace {

// What a table holds besides its cells: the index table its row indexes, the table with
// descriptors its descriptors.
inline void compareExtras(HwDatablock&, HwDatablock&, TableChange&) {}

template <typename R, typename V, unsigned int Rows, unsigned int Cols>
void compareExtras(HwDatablockBaseTemplateIndex<R, V, Rows, Cols>& a,
                   HwDatablockBaseTemplateIndex<R, V, Rows, Cols>& b, TableChange& change) {
    for (unsigned int row = 0; row < Rows; ++row)
        change.indexes += a.getIndex(row) != b.getIndex(row) ? 1 : 0;
}

template <typename R, typename V, unsigned int D, unsigned int Rows, unsigned int Cols>
void compareExtras(HwDatablockBaseTemplateExtended<R, V, D, Rows, Cols>& a,
                   HwDatablockBaseTemplateExtended<R, V, D, Rows, Cols>& b, TableChange& change) {
    for (unsigned int i = 0; i < D; ++i) {
        std::string before;
        std::string after;
        a.getDescriptor(static_cast<int>(i), before);
        b.getDescriptor(static_cast<int>(i), after);
        change.descriptors += before != after ? 1 : 0;
    }
}

// What a table holds besides its cells, for TableContent.
inline void contentExtras(HwDatablock&, quint32, TableContent&) {}

template <typename R, typename V, unsigned int Rows, unsigned int Cols>
void contentExtras(HwDatablockBaseTemplateIndex<R, V, Rows, Cols>& block, quint32 rows,
                   TableContent& content) {
    content.hasIndexes = true;
    for (quint32 row = 0; row < rows; ++row)
        content.indexes.push_back(block.getIndex(row));
}

template <typename R, typename V, unsigned int D, unsigned int Rows, unsigned int Cols>
void contentExtras(HwDatablockBaseTemplateExtended<R, V, D, Rows, Cols>& block, quint32,
                   TableContent& content) {
    content.hasDescriptors = true;
    for (unsigned int i = 0; i < D; ++i) {
        std::string text;
        block.getDescriptor(static_cast<int>(i), text);
        content.descriptors.push_back(text);
    }
}

// "int16", "uint32", "float32", ...
template <typename T> std::string typeName() {
    const std::string bits = std::to_string(sizeof(T) * 8);
    if (std::is_floating_point<T>::value)
        return "float" + bits;
    return (std::is_signed<T>::value ? "int" : "uint") + bits;
}

// Whether `value` can be stored as a T: an integer type takes what lies within its range after
// cutting toward zero (or, when `exact`, integers only), float what is not beyond its range.
template <typename T> bool fits(double value, bool exact, QString& rule) {
    if constexpr (std::is_integral<T>::value) {
        const double low = static_cast<double>(std::numeric_limits<T>::lowest());
        const double high = static_cast<double>(std::numeric_limits<T>::max());
        rule = QStringLiteral("%1 from %2 to %3")
                   .arg(QString::fromStdString(typeName<T>()))
                   .arg(static_cast<qint64>(std::numeric_limits<T>::lowest()))
                   .arg(static_cast<quint64>(std::numeric_limits<T>::max()));
        if (exact && value != std::trunc(value))
            rule += QStringLiteral(", integers only");
        return !std::isnan(value) && (!exact || value == std::trunc(value)) &&
               std::trunc(value) >= low && std::trunc(value) <= high;
    } else if constexpr (std::is_same<T, float>::value) {
        rule =
            QStringLiteral("float32 up to %1 in magnitude").arg(std::numeric_limits<float>::max());
        return !std::isfinite(value) || std::fabs(value) <= std::numeric_limits<float>::max();
    } else {
        return true;
    }
}

void load(HwDatablock& block, const QByteArray& image) {
    block.setDataWithoutChecksumCheck(reinterpret_cast<const unsigned char*>(image.constData()),
                                      static_cast<unsigned int>(image.size()));
}

template <class Block> struct Adapter {
    static constexpr catalogue::TableShape capacity() { return catalogue::tableShape<Block>(); }

    // The catalogue's facts of the class with its operations.
    static TableKind kind(const catalogue::TableFacts& facts) {
        return {facts.id,        facts.axisId,       facts.decimals, facts.maxRows, facts.maxCols,
                facts.imageSize, facts.countsOffset, &print,         &read,         &compare,
                &merge,          &content,           &setCell};
    }

    static void print(const QByteArray& image, std::ostream& out) {
        Block block(false);
        load(block, image);
        block.printToStream(out);
    }

    static TextReadStatus read(std::istream& in, QByteArray& image) {
        Block block(false);
        const TextReadStatus status = block.readSection(in, block);
        if (status.ok())
            image = block.getByteArrayData();
        return status;
    }

    static TableChange compare(const QByteArray& before, const QByteArray& after) {
        Block a(false);
        Block b(false);
        load(a, before);
        load(b, after);
        TableChange change;
        change.rowsBefore = a.getRowCount();
        change.colsBefore = a.getColCount();
        change.rowsAfter = b.getRowCount();
        change.colsAfter = b.getColCount();
        for (unsigned int row = 0; row < capacity().rows; ++row)
            for (unsigned int col = 0; col < capacity().cols; ++col) {
                const auto x = a.getCalValue(row, col);
                const auto y = b.getCalValue(row, col);
                // Two NaNs are the same stored value.
                change.cells += (x == y || (x != x && y != y)) ? 0 : 1;
            }
        compareExtras(a, b, change);
        return change;
    }

    static QByteArray merge(const QByteArray& stored, const QByteArray& unedited,
                            const QByteArray& edited) {
        Block result(false);
        Block before(false);
        Block after(false);
        load(result, stored);
        load(before, unedited);
        load(after, edited);
        if (after.getRowCount() != before.getRowCount())
            result.setRowCount(after.getRowCount());
        if (after.getColCount() != before.getColCount())
            result.setColCount(after.getColCount());
        auto* was = before.getBlock();
        auto* now = after.getBlock();
        for (unsigned int row = 0; row < capacity().rows; ++row)
            for (unsigned int col = 0; col < capacity().cols; ++col)
                if (std::memcmp(&was->values[row][col], &now->values[row][col],
                                sizeof now->values[row][col]) != 0) {
                    // The record holds the reference form: the hook gives the host value back.
                    auto value = now->values[row][col];
                    fieldhooks::hook(value);
                    result.setCalValue(value, row, col);
                }
        return result.getByteArrayData();
    }

    using Raw = std::remove_cv_t<std::remove_reference_t<
        decltype(std::declval<typename Block::HwSDatablock>().values[0][0])>>;

    static void content(const QByteArray& image, TableContent& content) {
        Block block(false);
        load(block, image);
        content.rows = block.getRowCount();
        content.cols = block.getColCount();
        content.maxRows = capacity().rows;
        content.maxCols = capacity().cols;
        content.factor = block.getFactor();
        content.rawType = typeName<Raw>();
        content.integral = std::is_integral<Raw>::value;
        const quint32 rows = content.shownRows();
        const quint32 cols = content.shownCols();
        // Read from the image itself, which may be shorter than the class's record: cells
        // beyond its end read 0, as the class's getters read them.
        using Record = typename Block::HwSDatablock;
        for (quint32 row = 0; row < rows; ++row)
            for (quint32 col = 0; col < cols; ++col) {
                const std::size_t offset =
                    offsetof(Record, values) + (row * capacity().cols + col) * sizeof(Raw);
                content.values.push_back(static_cast<double>(block.getCalValue(row, col)));
                content.raw.push_back(static_cast<double>(bytes::getLE<Raw>(image, offset)));
            }
        contentExtras(block, rows, content);
    }

    static TableEdit setCell(const QByteArray& image, quint32 row, quint32 col, double value,
                             bool scaled, QByteArray& result, QString& rule) {
        Block block(false);
        load(block, image);
        if (row >= std::min(block.getRowCount(), capacity().rows) ||
            col >= std::min(block.getColCount(), capacity().cols))
            return TableEdit::OutOfRange;
        const double raw = scaled ? detail::unscale(value, block.getFactor()) : value;
        if (!fits<Raw>(raw, !scaled, rule))
            return TableEdit::DoesNotFit;
        block.setCalValue(detail::truncateTo<Raw>(raw), row, col);
        result = block.getByteArrayData();
        return TableEdit::Ok;
    }
};

// One kind per row of the catalogue's table list, in list order: the catalogue's facts with the
// operations of the row's class.
struct Kinds : catalogue::IgnoreRows {
    std::vector<TableKind> all;
    Kinds() {
        all.reserve(catalogue::tables().size());
        catalogue::visitTableRows(*this);
    }
    template <class Class> void table(const catalogue::TableRow&) {
        all.push_back(Adapter<Class>::kind(catalogue::tables()[all.size()]));
    }
};

const Kinds& kinds() {
    static const Kinds instance;
    return instance;
}

} // namespace

const TableKind* find(quint16 id) {
    const catalogue::Entry* entry = catalogue::find(id);
    if (entry == nullptr || entry->table == nullptr)
        return nullptr;
    return &kinds().all[entry->table->index];
}

bool isAxis(quint16 id) {
    const catalogue::Entry* entry = catalogue::find(id);
    return entry != nullptr && entry->isAxis;
}

Outcome overCapacity(quint16 id, const unsigned char* block, std::size_t size) {
    // The table list's class where it names the id, else the directory's misc-data table.
    const catalogue::Entry* entry = catalogue::find(id);
    if (entry == nullptr ||
        (entry->table == nullptr && entry->info.tableTemplate != TableTemplate::Misc))
        return Outcome::success();
    const quint32 maxRows = entry->table ? entry->table->maxRows : entry->maxRows;
    const quint32 maxCols = entry->table ? entry->table->maxCols : entry->maxCols;
    const int countsOffset = entry->table ? entry->table->countsOffset : entry->countsOffset;
    const char* base = reinterpret_cast<const char*>(block);
    const quint32 rows = bytes::getLE<quint32>(base, size, countsOffset);
    const quint32 cols = bytes::getLE<quint32>(base, size, countsOffset + 4);
    if (rows <= maxRows && cols <= maxCols)
        return Outcome::success();
    return Outcome::failure(ResultCode::OverCapacity,
                            QStringLiteral("counts %1*%2 exceed the capacity %3*%4")
                                .arg(rows)
                                .arg(cols)
                                .arg(maxRows)
                                .arg(maxCols));
}

} // namespace tableKinds
} // namespace Tupsim
