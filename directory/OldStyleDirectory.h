// The id table of the old-style block directory.
#pragma once

#include "BlockCatalogue.h"
#include "IdHwDatablockOldStyleClassDict.h"
#include "directory/OldStyleKinds.h"

#include <cstddef>

namespace Tupsim {
namespace oldstyle {

// One range of ids interpreted by one class.
struct DirectoryRow {
    int first;
    int last;
    // nullptr: the rows of the calibration table catalogue whose ids lie in [first, last].
    Factory make;
    const char* idString; // the misc-data tables' name
    bool keepImage;       // kept at its own size: the end block alone
    const char* className;
    BlockKind kind;
    const char* textId; // printf pattern that may take the id
    // The generic misc-data tables' capacity; 0 for every other row.
    quint32 maxRows;
    quint32 maxCols;
};

// The rows in directory order; an id may appear twice, the first row wins.
const DirectoryRow* directoryRows(std::size_t& count);

// The capacity of the generic misc-data table of `id`; false when `id` is none.
bool miscCapacity(quint16 id, quint32& rows, quint32& cols);

// Registers one new prototype per id of the table, in table order, with insert semantics: an id
// already present keeps its first prototype and the later one is deleted. On an allocation
// failure the prototypes registered so far stay in `dict` for the caller to delete.
void fillDirectory(IdHwDatablockOldStyleClassDict& dict);

} // namespace oldstyle
} // namespace Tupsim
