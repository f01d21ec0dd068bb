// Typed operations shared by every table template: scaling, cell access, search, loading an
// image, and building images from the text and binary forms.
#pragma once

#include "HwDatablock.h"
#include "IErrorManager.h"
#include "core/ConversionScope.h"
#include "core/FieldHooks.h"
#include "core/HwBytes.h"
#include "templates/LineForm.h"
#include "templates/TableCells.h"
#include "templates/TableImage.h"
#include "templates/TextFormat.h"
#include "templates/TokenForm.h"
#include "templates/ValueConversion.h"

#include <QString>
#include <algorithm>
#include <istream>
#include <string>
#include <type_traits>

namespace Tupsim {
namespace detail {

enum RelationOperator { RelEqual = 0, RelGreater, RelLess, RelGreaterEqual, RelLessEqual };

// Which parts of loading a given image apply.
struct LoadRules {
    bool verify;          // test the given checksum first and refuse a wrong one
    bool restoreChecksum; // end with the checksum word that came with the image
};

const int kErrorCheckFailed = 1040001;

template <typename TRaw, typename TValue> class TableCore : public TableCells {
public:
    TableCore(HwDatablock& block, QByteArray& image, const TableLayout& layout, double factor,
              bool keepsChecksum = true)
        : block(block), image(image), shape(layout), factor(factor),
          table(block, image, layout, keepsChecksum) {}

    TableImage& raw() { return table; }
    quint16 blockSize() const { return static_cast<quint16>(shape.blockSize()); }

    TValue getCalValue(quint32 row, quint32 col) const {
        std::uint64_t offset = 0;
        if (!shape.cellOffset(row, col, offset))
            return TValue(0);
        const TRaw stored = fieldhooks::load<TRaw>(image, offset);
        return truncateTo<TValue>(static_cast<double>(static_cast<Arithmetic<TRaw>>(stored)) *
                                  factor);
    }

    void setCalValue(TRaw value, quint32 row, quint32 col) {
        std::uint64_t offset = 0;
        if (!shape.cellOffset(row, col, offset))
            return;
        if (fieldhooks::store<TRaw>(image, offset, value))
            table.refreshChecksum();
    }

    quint32 findFirstValueInCol(TValue value, quint32 col, bool& found, int op) const {
        found = false;
        // The first row is examined even with a row count of 0. Rows past the capacity all
        // read 0, so the first of them decides for all later ones.
        const quint64 rows = std::max<quint32>(table.rowCount(), 1);
        const quint64 last = std::min<quint64>(rows, quint64(shape.maxRows) + 1);
        for (quint64 row = 0; row < last; ++row) {
            const TValue cell = getCalValue(static_cast<quint32>(row), col);
            quint32 result = 0;
            if (matches(cell, value, op, static_cast<quint32>(row), result)) {
                found = true;
                return result;
            }
        }
        return 0;
    }

    // Loads `given` (at least the block size) into the own image; 1 when its checksum fails.
    int load(QByteArray given, const LoadRules& rules) {
        if (given.size() < blockSize())
            given.append(QByteArray(blockSize() - given.size(), '\0'));
        if (rules.verify && !block.verifyChecksum(reinterpret_cast<unsigned short*>(given.data()),
                                                  blockSize(), true)) {
            errorManager()->signal(kErrorCheckFailed,
                                   QString::number(bytes::getLE<quint16>(given, 0)));
            return 1;
        }
        // Inside the byte-order conversion the given counts and cells are taken as the host holds
        // them, so that they come out turned; otherwise the image is copied as it is.
        const bool convert = conversion::inProgress(block);
        table.loadHeader(given, convert);
        for (std::uint64_t flat = 0; flat < shape.cellCount(); ++flat) {
            std::uint64_t offset = 0;
            shape.flatOffset(flat, offset);
            const TRaw value = convert ? fieldhooks::asHeld<TRaw>(given, offset)
                                       : fieldhooks::load<TRaw>(given, offset);
            fieldhooks::store<TRaw>(image, offset, value);
        }
        table.loadExtras(given, convert);
        table.refreshChecksum();
        if (rules.restoreChecksum)
            block.setChecksum(bytes::getLE<quint16>(given, 4));
        return 0;
    }

    // The image of a token-form section, or of an empty table with id 0 when the name is not
    // there and the target does not insist on it. Ends the process on a malformed section.
    QByteArray imageFromTokenForm(std::istream& in, const std::string& name, quint16 idWord,
                                  bool strict) {
        QByteArray built(blockSize(), '\0');
        TValue number{}; // one variable for all cells: a failed read leaves it as it was
        const TokenSection section =
            readTokenForm(in, name, shape.maxRows, shape.maxCols, strict, descriptorReader(built),
                          cellReader(built, number));
        if (!section.nameFound) {
            built.fill('\0');
            table.seal(built, 0, 0, 0);
        } else {
            table.seal(built, idWord, section.rows, section.cols);
        }
        return built;
    }

    // The image of a token-form section for a reader that reports instead of ending the
    // process; `built` is complete only when the result is ok.
    TextReadStatus imageFromTokenForm(std::istream& in, const std::string& name, quint16 idWord,
                                      QByteArray& built) {
        built = QByteArray(blockSize(), '\0');
        TValue number{};
        TokenSection section;
        const TextReadStatus status =
            scanTokenForm(in, name, shape.maxRows, shape.maxCols, {true, true},
                          descriptorReader(built), cellReader(built, number), section);
        if (status.ok())
            table.seal(built, idWord, section.rows, section.cols);
        return status;
    }

    // The image of a line-oriented section; counts are bounded by the capacities.
    QByteArray imageFromLines(const ParsedLines& parsed, quint16 idWord) {
        QByteArray built(blockSize(), '\0');
        for (std::size_t r = 0; r < parsed.rows.size(); ++r) {
            const ParsedRow& row = parsed.rows[r];
            for (std::size_t c = 0; c < row.values.size(); ++c)
                storeCell(built, static_cast<quint32>(r), static_cast<quint32>(c), row.values[c]);
            if (shape.hasIndex)
                bytes::putLE<qint32>(built, shape.indexOffset() + 4 * r,
                                     truncateTo<qint32>(static_cast<double>(row.label)));
        }
        const auto bounded = [](qint64 count, quint32 capacity) {
            return static_cast<quint32>(std::clamp<qint64>(count, 0, capacity));
        };
        table.seal(built, parsed.idFound ? idWord : 0, bounded(parsed.rowCount, shape.maxRows),
                   bounded(parsed.colCount, shape.maxCols));
        return built;
    }

    // A block from a binary stream that stands behind the block's id word; false when not
    // even the size bytes could be read. Short blocks are padded with zeros.
    bool imageFromBinary(std::istream& in, QByteArray& built) {
        char low = 0;
        char high = 0;
        if (!in.get(low) || !in.get(high))
            return false;
        const quint32 size = quint32(quint8(high)) * 256 + quint8(low);
        if (!in.seekg(-4, std::ios::cur))
            return false;
        built = QByteArray(static_cast<int>(std::max<quint32>(size, blockSize())), '\0');
        in.read(built.data(), size);
        return true;
    }

    // TableCells
    quint32 rowCount() const override { return table.rowCount(); }
    quint32 colCount() const override { return table.colCount(); }
    double cell(quint32 row, quint32 col) const override {
        return static_cast<double>(getCalValue(row, col));
    }
    qint32 rowIndex(quint32 row) const override { return table.index(row); }
    quint32 rowCapacity() const override { return shape.maxRows; }
    quint32 colCapacity() const override { return shape.maxCols; }
    quint32 rowsHeld() const override {
        const std::uint64_t size = static_cast<std::uint64_t>(image.size());
        const std::uint64_t rowBytes = std::uint64_t(shape.maxCols) * shape.rawSize;
        if (size <= shape.valuesOffset() || rowBytes == 0)
            return 0;
        return static_cast<quint32>(
            std::min<std::uint64_t>(shape.maxRows, (size - shape.valuesOffset()) / rowBytes));
    }

private:
    static bool matches(TValue cell, TValue value, int op, quint32 row, quint32& result) {
        switch (op) {
        case RelEqual:
            result = row + 1; // the row behind the match
            return cell == value;
        case RelGreater:
            result = row;
            return cell > value;
        case RelLess:
            result = row;
            return cell < value;
        case RelGreaterEqual:
            result = cell == value ? row + 1 : row;
            return cell >= value;
        case RelLessEqual:
            result = row;
            return cell <= value;
        default:
            return false;
        }
    }

    // A value from a file, back to its stored scale, into cell (row, col) of `built`.
    void storeCell(QByteArray& built, quint32 row, quint32 col, double value) const {
        std::uint64_t offset = 0;
        if (!shape.cellOffset(row, col, offset))
            return;
        fieldhooks::store<TRaw>(built, offset, truncateTo<TRaw>(unscale(value, factor)));
    }

    // Reads one cell of a token-form section into `built` through `number`.
    TokenCellReader cellReader(QByteArray& built, TValue& number) const {
        return [this, &built, &number](TextCursor& from, quint32 row, quint32 col) {
            from >> number;
            const bool whole = !std::is_integral<TValue>::value || skipZeroFraction(from);
            storeCell(built, row, col, static_cast<double>(number));
            if (!whole)
                number = TValue{}; // what the failed read of the fraction would have left
            return !from.fail();
        };
    }

    TokenSectionHook descriptorReader(QByteArray& built) const {
        if (shape.descriptorCount == 0)
            return TokenSectionHook();
        return [this, &built](TextCursor& from) { readDescriptors(from, built); };
    }

    void readDescriptors(TextCursor& in, QByteArray& built) const {
        for (quint32 i = 0; i < shape.descriptorCount; ++i) {
            const std::string text = readDescriptor(in, i + 1);
            if (text.empty())
                break;
            bytes::copyIn(built, shape.descriptorOffset(i), text.data(), text.size());
        }
    }

    HwDatablock& block;
    QByteArray& image;
    TableLayout shape;
    double factor;
    TableImage table;
};

} // namespace detail
} // namespace Tupsim
