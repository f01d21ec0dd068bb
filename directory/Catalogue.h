// The one catalogue of block kinds: one entry per id, built once from the block lists, read by
// the directory, the per-id conversion, the public block catalogue and the image layer.
#pragma once

#include "BlockCatalogue.h"
#include "EpromDatablockGlobal.h"
#include "blocks/RecordSchema.h"
#include "directory/OldStyleKinds.h"

#include <QtGlobal>
#include <string>
#include <vector>

namespace Tupsim {
namespace catalogue {

// A row of the calibration table list, as the image layer drives its class.
struct TableFacts {
    quint16 id;
    const char* className;
    const char* textId;
    TableTemplate form;
    quint32 maxRows;
    quint32 maxCols;
    int countsOffset; // of the row count; the column count follows
    int imageSize;    // bytes of a whole image of the class
    quint16 axisId;   // the frequency vector whose points the columns belong to; 0 for none
    bool readsBack;
    int decimals;      // of a cell in the class's printout
    std::size_t index; // in the order of the table list
    oldstyle::Recipe recipe;
};

struct Entry {
    // What the public block catalogue tells of the id. Its kind is Unknown for an id that is
    // only converted: it has no prototype in the directory.
    BlockKindInfo info;
    quint32 maxRows = 0; // capacity of a table; 0 for any other kind
    quint32 maxCols = 0;
    int countsOffset = -1; // of a table's row count; -1 for any other kind
    oldstyle::Factory make = nullptr;
    const char* idString = nullptr; // what the factory takes: the misc-data tables' name
    bool keepImage = false;         // the prototype keeps its own size: the end block alone
    // The per-id conversion: nullptr rule for an id that the conversion leaves alone.
    oldstyle::Recipe conversion{nullptr, nullptr};
    const records::RecordSchema* schema = nullptr; // the record's field table
    quint16 axisId = 0;                            // the frequency vector of a table; 0 for none
    bool isAxis = false;                           // some table's columns are this vector's points
    // The calibration table list's row of this id. It is the entry's own class except at 14801,
    // which the directory keeps with the rear phase class although the table list also names it.
    const TableFacts* table = nullptr;

    quint16 id() const { return info.id; }
    bool inDirectory() const { return info.known(); }
};

// Exported for the test suite, which holds the block lists against each other.
// The entry of `id`, or nullptr; a constant-time lookup.
EPROMDATABLOCK_EXPORT const Entry* find(quint16 id);
// Every entry, ascending by id.
EPROMDATABLOCK_EXPORT const std::vector<Entry>& entries();
// Every row of the calibration table list that has an object per id, in list order.
EPROMDATABLOCK_EXPORT const std::vector<TableFacts>& tables();

} // namespace catalogue
} // namespace Tupsim
