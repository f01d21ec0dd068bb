// Table naming the hardware code of an ident block: module code, name, label and file stem.
#pragma once

#include "EpromDatablockGlobal.h"

#include <QByteArray>
#include <QtGlobal>
#include <vector>

namespace Tupsim {

// One 84-byte row of the module-type table.
struct HwSModuleType {
    quint32 code;
    char name[32];  // upper case, NUL-padded
    char label[14]; // the name blank-padded to 13 characters, then NUL
    char stem[34];  // lower case, NUL-padded; used for file names
};
static_assert(sizeof(HwSModuleType) == 84, "module-type row is 84 bytes");

// The library ships only the terminator row ("LAST", code 190): the product rows are product
// data that the host adds before it. Lookups stop at the terminator.
class EPROMDATABLOCK_EXPORT HwModuleTypeTable {
public:
    enum : int { MaxRows = 192, RowSize = 84 };
    enum : quint32 { TerminatorCode = 190 };

    HwModuleTypeTable();

    // A row for `code` from a name: upper-cased name and label, lower-cased stem, each cut to its
    // field.
    static HwSModuleType makeRow(quint32 code, const char* name);
    static HwSModuleType terminator();
    static bool isTerminator(const HwSModuleType& row);

    // Adds a row in front of the terminator; false once the table holds MaxRows rows or for a
    // terminator row.
    bool addRow(const HwSModuleType& row);
    bool addRow(quint32 code, const char* name);
    // Adds the 84-byte rows of a table image (code least significant byte first) up to its own
    // terminator, a trailing partial row, or a full table; returns the number of rows added.
    int loadRows(const QByteArray& rows);

    int rowCount() const;
    // The row at `index` in table order; nullptr out of range.
    const HwSModuleType* row(int index) const;
    // The first row with `code`, searching no further than the terminator; nullptr if none.
    const HwSModuleType* findByCode(quint32 code) const;

private:
    std::vector<HwSModuleType> rows;
};

} // namespace Tupsim
