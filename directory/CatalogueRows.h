// The rows of the block lists (directory/OldStyleBlocks.def and include/HwCalibTableBlocks.def)
// handed to a visitor class by class, so that the catalogue and whatever must name the classes
// themselves (the image layer's table adapters, the fuzz targets) read the same expansion.
#pragma once

#include "BlockCatalogue.h"
#include "directory/CatalogueClasses.h"
#include "directory/OldStyleKinds.h"

#include <QtGlobal>

namespace Tupsim {
namespace catalogue {

// One row of the calibration table list.
struct TableRow {
    const char* className;
    quint16 id;
    const char* textId; // what the block prints behind "ID:"
    quint16 axisId;     // the frequency vector whose points the columns belong to; 0 for none
    bool headed;        // writes and reads the headed line form
    bool readsBack;     // reads its own printout back
    int decimals;       // of a cell in its printout
};

// A visitor that ignores every row; visitors derive from it and hide what they need.
struct IgnoreRows {
    template <class Class> void block(int, int, const char*, BlockKind, const char*) {}
    template <class Class, class RuleClass>
    void converted(int, int, const char*, BlockKind, const char*) {}
    template <class Class> void misc(int, const char*, const char*) {}
    void tables(int, int, bool) {}
    template <class RuleClass> void conversionOnly(int, int, oldstyle::Factory) {}
    template <class Class> void end(int, const char*) {}
    template <class Class> void table(const TableRow&) {}
    // A table class whose caller gives its name and instance: no single object per id.
    template <class Class> void namedTable(quint16) {}
};

// The generic misc-data table of Rows x Cols int cells, and the table of counter bytes.
template <unsigned int Rows, unsigned int Cols>
using MiscTable = HwDatablockTemplate<MiscData<int, Rows, Cols>, int, double, Rows, Cols>;
using CounterBytes = HwDatablockTemplateWithoutChecksum<MiscData<unsigned char, 1, 2048>,
                                                        unsigned char, double, 1, 2048>;

// One object per temperature table: the id tells the instance.
inline HwDatablock* createLevconTempData(int id, const char*) {
    return new HwDatablockTeshVectorLevconTempData(
        "VECTOR_LEVCON_TEMP_DATA", id - HwDatablockTeshVectorLevconTempData::BlockId, false);
}

// The directory rows in their order.
template <class Visit> void visitDirectoryRows(Visit& visit) {
#define EPROM_BLOCKS(first, last, Class, Kind, TextId)                                             \
    visit.template block<Class>(first, last, #Class, BlockKind::Kind, TextId);
#define EPROM_BLOCKS_CONVERTED(first, last, Class, Kind, TextId, RuleClass)                        \
    visit.template converted<Class, RuleClass>(first, last, #Class, BlockKind::Kind, TextId);
#define EPROM_BLOCKS_MISC(id, Rows, Cols, TextId)                                                  \
    visit.template misc<MiscTable<Rows, Cols>>(id, "HwDatablockTemplate", TextId);
#define EPROM_BLOCKS_COUNTER_BYTES(id, TextId)                                                     \
    visit.template misc<CounterBytes>(id, "HwDatablockTemplateWithoutChecksum", TextId);
#define EPROM_BLOCKS_TABLES(first, last, Converted) visit.tables(first, last, Converted);
#define EPROM_BLOCKS_CONVERSION_ONLY(first, last, Factory, RuleClass)                              \
    visit.template conversionOnly<RuleClass>(first, last, Factory);
#define EPROM_BLOCKS_END(id, Class) visit.template end<Class>(id, #Class);
#include "directory/OldStyleBlocks.def"
}

// The calibration table list in its order. A headed block that prints the token form does not
// read its own printout back, and names itself by its table name; the headed form prints ten
// decimals, the others three.
template <class Visit> void visitTableRows(Visit& visit) {
#define EPROM_TABLE_BLOCK(Class, Template, Args, Name, Id, Factor, Axis)                           \
    visit.template table<Class>(TableRow{#Class, Id, Name, Axis, false, true, 3});
#define EPROM_TABLE_BLOCK_TCXO(Class, Template, Args, Name, Id, Factor, Axis)                      \
    visit.template table<Class>(TableRow{#Class, Id, Name, Axis, false, true, 3});
#define EPROM_TABLE_BLOCK_HEADED(Class, Template, Args, Name, Id, Factor, Title, Key, Limit,       \
                                 Message, RowsMessage, OwnPrint, Axis)                             \
    visit.template table<Class>(                                                                   \
        TableRow{#Class, Id, (OwnPrint) ? Key : Name, Axis, true, OwnPrint, (OwnPrint) ? 10 : 3});
#define EPROM_TABLE_BLOCK_NAMED(Class, Template, Args, NameType, Id, Factor, Axis)                 \
    visit.template namedTable<Class>(Id);
#include "HwCalibTableBlocks.def"
}

} // namespace catalogue
} // namespace Tupsim
