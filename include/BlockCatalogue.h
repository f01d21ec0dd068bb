// What the library knows about each block id: the class that interprets it, the name it prints
// behind "ID:", its kind and whether its section of a calibration file reads back.
#pragma once

#include "EpromDatablockGlobal.h"
#include "HwDatablock.h"

#include <QtGlobal>
#include <memory>
#include <string>
#include <vector>

namespace Tupsim {

enum class BlockKind {
    Unknown,           // no class of the library interprets the id
    Identification,    // identification records: ident, misc ident, serial number, model, ...
    Service,           // service data
    Statistic,         // statistics and common statistic counters
    Modification,      // modification lists
    Counter,           // overload and operating counters
    CalibrationRecord, // calibration blocks with named fields
    CalibrationTable,  // calibration tables of a table template
    Opaque,            // calibration blocks kept as plain images
    SelfDescribing,    // second-edition blocks, ids 20000 and above
    End,               // the end block
};

// The table template a calibration table rests on, which fixes its text form.
enum class TableTemplate {
    None,
    Base,     // token form
    Index,    // line form with a row index
    Extended, // token form with descriptors
    WexW,     // token form, ten decimals, one line per row
    Headed,   // headed line form
    Misc,     // the generic misc-data tables of the directory
};

struct BlockKindInfo {
    quint16 id = 0;
    const char* className = "HwDatablock";
    std::string textId; // behind "ID:" in the block's section; empty when it prints none
    BlockKind kind = BlockKind::Unknown;
    TableTemplate tableTemplate = TableTemplate::None;
    bool readsBack = false; // an import can replace the block from its section

    bool known() const { return kind != BlockKind::Unknown; }
    // The text id where there is one, else the class name.
    std::string name() const { return textId.empty() ? std::string(className) : textId; }
};

namespace blockCatalogue {

// Everything known about `id`; an unknown id gives kind Unknown and class "HwDatablock".
EPROMDATABLOCK_EXPORT BlockKindInfo describe(quint16 id);
// The kind alone, without building the names.
EPROMDATABLOCK_EXPORT BlockKind kindOf(quint16 id);
// Every id that has a class of its own in the directory, ascending (the end block last).
EPROMDATABLOCK_EXPORT std::vector<quint16> knownIds();
// "identification", "calibration table", ...
EPROMDATABLOCK_EXPORT const char* kindName(BlockKind kind);
// "token", "line", ...; "" for None.
EPROMDATABLOCK_EXPORT const char* templateName(TableTemplate form);
// A new object of the class that interprets `id` (HwDatablock2Edition for self-describing ids,
// plain HwDatablock for unknown ones), loaded with `image` as it is: no checksum is checked.
EPROMDATABLOCK_EXPORT std::unique_ptr<HwDatablock> makeBlock(quint16 id, const QByteArray& image);

} // namespace blockCatalogue
} // namespace Tupsim
