// Table naming the hardware code of an ident block.
#include "HwModuleTypeTable.h"

#include "core/HwBytes.h"

#include <cstring>

namespace Tupsim {

namespace {
enum : int { LabelWidth = 13 };

// Copies at most width - 1 characters, converted, and NUL-pads the rest of the field.
void fillField(char* field, int width, const char* text, int (*convert)(int)) {
    std::memset(field, 0, static_cast<std::size_t>(width));
    for (int i = 0; text != nullptr && i < width - 1 && text[i] != '\0'; ++i)
        field[i] = static_cast<char>(convert(static_cast<unsigned char>(text[i])));
}
// ASCII only: names must not change with the process locale.
int upper(int c) {
    return c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c;
}
int lower(int c) {
    return c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c;
}
} // namespace

HwModuleTypeTable::HwModuleTypeTable() : rows(1, terminator()) {}

HwSModuleType HwModuleTypeTable::makeRow(quint32 code, const char* name) {
    HwSModuleType row;
    row.code = code;
    fillField(row.name, sizeof row.name, name, upper);
    fillField(row.stem, sizeof row.stem, name, lower);
    // The label is the name blank-padded to 13 characters and a NUL.
    std::memset(row.label, ' ', LabelWidth);
    row.label[LabelWidth] = '\0';
    for (int i = 0; i < LabelWidth && row.name[i] != '\0'; ++i)
        row.label[i] = row.name[i];
    return row;
}

HwSModuleType HwModuleTypeTable::terminator() {
    return makeRow(TerminatorCode, "LAST");
}

bool HwModuleTypeTable::isTerminator(const HwSModuleType& row) {
    return std::strncmp(row.name, "LAST", sizeof row.name) == 0;
}

bool HwModuleTypeTable::addRow(const HwSModuleType& row) {
    if (rows.size() >= MaxRows || isTerminator(row))
        return false;
    rows.insert(rows.end() - 1, row);
    return true;
}

bool HwModuleTypeTable::addRow(quint32 code, const char* name) {
    return addRow(makeRow(code, name));
}

int HwModuleTypeTable::loadRows(const QByteArray& image) {
    int added = 0;
    for (int offset = 0; bytes::fits(static_cast<std::uint64_t>(image.size()),
                                     static_cast<std::uint64_t>(offset), RowSize);
         offset += RowSize) {
        HwSModuleType row;
        bytes::copyOut(image, static_cast<std::uint64_t>(offset), &row, RowSize);
        row.code = bytes::getLE<quint32>(image, static_cast<std::uint64_t>(offset));
        // Fields from outside may lack their NUL: close each one.
        row.name[sizeof row.name - 1] = '\0';
        row.label[sizeof row.label - 1] = '\0';
        row.stem[sizeof row.stem - 1] = '\0';
        if (isTerminator(row) || !addRow(row))
            break;
        ++added;
    }
    return added;
}

int HwModuleTypeTable::rowCount() const {
    return static_cast<int>(rows.size());
}

const HwSModuleType* HwModuleTypeTable::row(int index) const {
    if (index < 0 || index >= rowCount())
        return nullptr;
    return &rows[static_cast<std::size_t>(index)];
}

const HwSModuleType* HwModuleTypeTable::findByCode(quint32 code) const {
    for (const HwSModuleType& candidate : rows) {
        if (candidate.code == code)
            return &candidate;
        if (isTerminator(candidate))
            break;
    }
    return nullptr;
}

} // namespace Tupsim
