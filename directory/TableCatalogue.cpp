// The calibration table catalogue expanded into ids and conversion recipes. Rows whose class
// takes a name and an instance are left out: they have no single object per id.
#include "directory/TableCatalogue.h"

#include "HwCalibTableBlocks.h"

namespace Tupsim {
namespace oldstyle {

namespace {

#define EPROM_CATALOGUE_ROW(Class, Id) {Id, {&create<Class>, &tableRule<Class>}},
#define EPROM_TABLE_BLOCK(Class, Template, Args, Name, Id, Factor) EPROM_CATALOGUE_ROW(Class, Id)
#define EPROM_TABLE_BLOCK_HEADED(Class, Template, Args, Name, Id, Factor, Title, Key, Limit,       \
                                 Message, RowsMessage, OwnPrint)                                   \
    EPROM_CATALOGUE_ROW(Class, Id)
#define EPROM_TABLE_BLOCK_TCXO(Class, Template, Args, Name, Id, Factor)                            \
    EPROM_CATALOGUE_ROW(Class, Id)

const CatalogueEntry kCatalogue[] = {
#include "HwCalibTableBlocks.def"
};

#undef EPROM_CATALOGUE_ROW

} // namespace

const CatalogueEntry* tableCatalogue(std::size_t& count) {
    count = sizeof kCatalogue / sizeof kCatalogue[0];
    return kCatalogue;
}

const CatalogueEntry* findInCatalogue(int id) {
    for (const CatalogueEntry& entry : kCatalogue)
        if (entry.id == id)
            return &entry;
    return nullptr;
}

} // namespace oldstyle
} // namespace Tupsim
