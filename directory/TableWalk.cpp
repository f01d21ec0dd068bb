// The byte-by-byte walk over a self-describing image. Every step consumes one byte, so the work
// and the memory it takes are bounded by the image length, never by the counts it claims.
#include "directory/TableWalk.h"

#include "ETypeId.h"
#include "directory/SelfDescribingLayout.h"

#include <algorithm>
#include <cstdio>

namespace Tupsim {

namespace {

quint64 reversed(quint64 value, std::uint64_t width) {
    quint64 out = 0;
    for (std::uint64_t i = 0; i < width; ++i, value >>= 8)
        out = (out << 8) | (value & 0xFF);
    return out;
}

// Fields kept in host order: gathered most significant byte first, then reversed.
bool isHostOrderWord(TableWalk::State state) {
    return state == TableWalk::Id || state == TableWalk::Size || state == TableWalk::Checksum ||
           state == TableWalk::Checksum32;
}

} // namespace

TableWalk::TableWalk(const unsigned char* bytes, std::uint64_t length, std::uint64_t padUnit)
    : p(bytes), length(bytes == nullptr ? 0 : length), padUnit(padUnit) {}

void TableWalk::visitElements(ElementVisitor elementVisitor, void* context) {
    visitor = elementVisitor;
    visitorContext = context;
}

void TableWalk::walkImage(bool list) {
    listFormat = list;
    run(0, Id);
}

void TableWalk::walkTables(std::uint64_t offset) {
    listFormat = false;
    run(offset, Rows);
}

void TableWalk::run(std::uint64_t start, State first) {
    tables.assign(1, HwSBlockDescription());
    blockIndex = 0;
    if (start >= length)
        return;
    pos = start;
    enter(first);
    while (pos < length) {
        if (visitor != nullptr && skipsToFieldEnd()) {
            if (fieldEnd >= length)
                break; // the field is cut by the image end: nothing more is complete
            pos = fieldEnd;
        }
        step(p[pos++]);
    }
}

// When visiting, the bytes inside an element or a padding run are not looked at: only the last
// byte of the field moves the walk on.
bool TableWalk::skipsToFieldEnd() const {
    if (fieldEnd == UINT64_MAX)
        return false; // a STRING ends at its zero
    switch (state) {
    case RowIds:
    case ColumnIds:
    case Values:
    case PadAfterColumnTypes:
    case PadAfterRowIds:
    case PadAfterColumnIds:
        return true;
    default:
        return false;
    }
}

void TableWalk::beginField(std::uint64_t width) {
    fieldStart = pos;
    fieldWidth = width;
    fieldEnd = pos + width - 1;
    gathered = 0;
    field.clear();
}

void TableWalk::beginOpenField() {
    fieldStart = pos;
    fieldWidth = 0;
    fieldEnd = UINT64_MAX;
    field.clear();
}

// Moves to `next`, passing at once through states that have no bytes to read here.
void TableWalk::enter(State next) {
    for (;;) {
        state = next;
        HwSBlockDescription& table = current();
        switch (next) {
        case Id:
        case Size:
        case Checksum:
        case Alignment:
        case UpdateIndex:
        case Rows:
        case Columns:
            beginField(2);
            return;
        case ListEntry:
        case Checksum32:
            beginField(4);
            return;
        case RowIdType:
            beginField(1);
            return;
        case ColumnIdType:
            beginField(1 + std::uint64_t(table.colCount));
            return;
        case PadAfterColumnTypes:
        case PadAfterRowIds:
        case PadAfterColumnIds: {
            const std::uint64_t gap = layout::padLength(pos, padUnit);
            if (gap > 0) {
                beginField(gap);
                return;
            }
            next = next == PadAfterColumnTypes ? RowIds
                   : next == PadAfterRowIds    ? ColumnIds
                                               : Values;
            continue;
        }
        case RowIds:
        case ColumnIds: {
            rowIdsNow = next == RowIds;
            const quint32 type = rowIdsNow ? table.rowIdType : table.colIdType;
            if (type == NONE) {
                next = rowIdsNow ? ColumnIds : Values;
                continue;
            }
            idsLeft = rowIdsNow ? table.rowCount : table.colCount;
            if (beginIdentifier())
                return;
            next = rowIdsNow ? PadAfterRowIds : PadAfterColumnIds;
            continue;
        }
        case Values:
            row = 0;
            sizedIndex = 0;
            if (table.rowCount > 0 && !sizedColumns.empty()) {
                const Sweep sweep = visitor != nullptr ? sweepFixedRows() : Sweep::Bytewise;
                if (sweep == Sweep::Bytewise)
                    beginValue();
                if (sweep != Sweep::Complete)
                    return;
            }
            ++blockIndex; // a table without value bytes is complete here
            tables.emplace_back();
            next = Rows;
            continue;
        default:
            return;
        }
    }
}

bool TableWalk::beginIdentifier() {
    const quint32 type = rowIdsNow ? current().rowIdType : current().colIdType;
    if (idsLeft == 0 || !layout::takesBytes(type))
        return false;
    if (type == STRING) {
        state = IdText;
        beginOpenField();
    } else {
        state = rowIdsNow ? RowIds : ColumnIds;
        beginField(layout::elementWidth(type));
    }
    return true;
}

// Visits every row of a table whose valued columns all have a fixed width in one sweep, without
// stepping through their bytes. A STRING column leaves the rows to the byte-wise walk.
TableWalk::Sweep TableWalk::sweepFixedRows() {
    const HwSBlockDescription& table = current();
    sizedTypes.clear();
    for (const quint32 column : sizedColumns) {
        const quint32 type =
            column < table.colTypes.size() ? table.colTypes[column] : quint32(NONE);
        if (type == STRING)
            return Sweep::Bytewise;
        sizedTypes.push_back(type);
    }
    for (; row < table.rowCount; ++row)
        for (const quint32 type : sizedTypes) {
            const std::uint64_t width = layout::elementWidth(type);
            if (!(pos <= length && width <= length - pos)) {
                pos = length; // cut by the image end: nothing more is complete
                return Sweep::Cut;
            }
            visitor(visitorContext, pos, width, type);
            pos += width;
        }
    return Sweep::Complete;
}

void TableWalk::beginValue() {
    const HwSBlockDescription& table = current();
    const quint32 column = sizedColumns[sizedIndex];
    const quint32 type = column < table.colTypes.size() ? table.colTypes[column] : quint32(NONE);
    state = Values;
    if (type == STRING)
        beginOpenField();
    else
        beginField(layout::elementWidth(type));
}

void TableWalk::step(unsigned char byte) {
    const bool open = fieldEnd == UINT64_MAX;
    const bool last = open ? byte == 0 : pos - 1 == fieldEnd;
    switch (state) {
    case Id:
    case Size:
    case Checksum:
    case Checksum32:
    case UpdateIndex:
    case Rows:
    case Columns:
        gather(byte);
        if (last)
            numberDone();
        return;
    case Alignment:
        if (!last)
            return;
        head.alignmentByte = byte;
        if (listFormat) {
            HwSBlockDescription& table = current();
            table.rowCount = 0;
            table.colCount = 1;
            table.rowIdType = table.colIdType = UINT32;
            table.colTypes.assign(1, UINT32);
            table.values.assign(1, {});
        }
        enter(listFormat ? ListEntry : Checksum32);
        return;
    case ListEntry:
        field.append(static_cast<char>(byte));
        if (last) {
            HwSBlockDescription& table = current();
            ++table.rowCount;
            table.rowIds.append(4, '\0');
            table.values[0].push_back(field);
            enter(ListEntry);
        }
        return;
    case RowIdType:
        current().rowIdType = byte;
        enter(ColumnIdType);
        return;
    case ColumnIdType:
        if (pos - 1 == fieldEnd + 1 - fieldWidth)
            current().colIdType = byte;
        else
            current().colTypes.push_back(byte);
        if (last)
            columnTypesDone();
        return;
    case PadAfterColumnTypes:
    case PadAfterRowIds:
    case PadAfterColumnIds:
        if (last)
            enter(state == PadAfterColumnTypes ? RowIds
                  : state == PadAfterRowIds    ? ColumnIds
                                               : Values);
        return;
    case RowIds:
    case ColumnIds:
    case IdText:
        identifierByte(byte, last);
        return;
    case Values:
        valueByte(byte, last);
        return;
    default:
        std::fputs("Unknown State\n", stderr);
        return;
    }
}

void TableWalk::gather(unsigned char byte) {
    const quint64 mask = fieldWidth >= 8 ? ~quint64(0) : (quint64(1) << (8 * fieldWidth)) - 1;
    if (isHostOrderWord(state)) // the byte counts as signed: the borrow is part of the format
        gathered = (gathered * 256 + static_cast<quint64>(static_cast<qint8>(byte))) & mask;
    else // the table words, taken as the byte-order pass takes them
        gathered = ((gathered << 8) | byte) & mask;
}

void TableWalk::numberDone() {
    const quint64 value = isHostOrderWord(state) ? reversed(gathered, fieldWidth) : gathered;
    HwSBlockDescription& table = current();
    switch (state) {
    case Id:
        head.id = static_cast<quint16>(value);
        enter(Size);
        return;
    case Size:
        head.size = static_cast<quint16>(value);
        enter(Checksum);
        return;
    case Checksum:
        head.checksum = static_cast<quint16>(value);
        enter(Alignment);
        return;
    case Checksum32:
        head.checksum32 = static_cast<quint32>(value);
        enter(UpdateIndex);
        return;
    case UpdateIndex:
        head.updateIndex = static_cast<quint16>(value);
        enter(Rows);
        return;
    case Rows:
        table.rowCount = static_cast<quint32>(value);
        enter(Columns);
        return;
    case Columns:
        table.colCount = static_cast<quint32>(value);
        // Sized to the count, but never beyond what the rest of the image could describe.
        table.values.resize(std::min<std::uint64_t>(value, length - pos));
        enter(RowIdType);
        return;
    default:
        return;
    }
}

void TableWalk::columnTypesDone() {
    HwSBlockDescription& table = current();
    table.values.resize(table.colCount); // every count byte has been read: bounded
    sizedColumns.clear();
    for (quint32 column = 0; column < table.colCount; ++column)
        if (layout::takesBytes(table.colTypes[column]))
            sizedColumns.push_back(column);
    enter(PadAfterColumnTypes);
}

void TableWalk::elementDone(quint32 type) {
    visitor(visitorContext, fieldStart, pos - fieldStart, type);
}

void TableWalk::identifierByte(unsigned char byte, bool last) {
    if (visitor == nullptr)
        (rowIdsNow ? current().rowIds : current().colIds).append(static_cast<char>(byte));
    if (!last)
        return;
    if (visitor != nullptr)
        elementDone(rowIdsNow ? current().rowIdType : current().colIdType);
    if (--idsLeft > 0 && beginIdentifier())
        return;
    enter(rowIdsNow ? PadAfterRowIds : PadAfterColumnIds);
}

void TableWalk::valueByte(unsigned char byte, bool last) {
    const bool text = fieldEnd == UINT64_MAX;
    if (visitor == nullptr && !(text && last))
        field.append(static_cast<char>(byte)); // a STRING is kept without its zero
    if (!last)
        return;
    HwSBlockDescription& table = current();
    const quint32 column = sizedColumns[sizedIndex];
    if (visitor != nullptr) {
        elementDone(column < table.colTypes.size() ? table.colTypes[column] : quint32(NONE));
    } else {
        if (static_cast<std::uint64_t>(field.size()) + (text ? 1 : 0) > layout::MaxValueSize)
            field.clear(); // too long to keep; the row keeps its place
        table.values[column].push_back(field);
    }
    if (++sizedIndex == sizedColumns.size()) {
        sizedIndex = 0;
        ++row;
    }
    if (row < table.rowCount) {
        beginValue();
        return;
    }
    ++blockIndex;
    tables.emplace_back();
    enter(Rows);
}

} // namespace Tupsim

namespace Tupsim {

namespace {

// Reverses one element in place when its type's rule says so.
void reverseElement(void* image, std::uint64_t offset, std::uint64_t width, quint32 type) {
    if (elements::of(type).order != elements::Order::Reverse)
        return;
    unsigned char* p = static_cast<unsigned char*>(image) + offset;
    std::reverse(p, p + width);
}

} // namespace

void reverseElements(unsigned char* image, std::uint64_t length) {
    // Header and table words, type bytes and padding are left as they are; every step is
    // bounded by `length`.
    TableWalk walk(image, length, layout::PadUnit);
    walk.visitElements(reverseElement, image);
    walk.walkTables(layout::FirstTableOffset);
}

} // namespace Tupsim
