// The per-id byte-order conversion of the old-style blocks: which ids convert, and by which
// class's rule. It is narrower than the directory on purpose: 299, the calibration blocks below
// 15690 and the misc-data tables have no rule here, while 15853-15862 have one but no prototype.
#include "directory/OldStyleConversion.h"

#include "EpromDatablock.h"
#include "directory/TableCatalogue.h"

namespace Tupsim {
namespace oldstyle {

namespace {

enum : int { LevconTempDataFirstId = HwDatablockTeshVectorLevconTempData::BlockId };

// One object per temperature table: the id tells the instance.
HwDatablock* createLevconTempData(int id, const char*) {
    return new HwDatablockTeshVectorLevconTempData("VECTOR_LEVCON_TEMP_DATA",
                                                   id - LevconTempDataFirstId, false);
}

struct Row {
    int first;
    int last;
    // nullptr: the rule of the catalogue row of that id, for the ids the catalogue has.
    Factory make;
    Rule rule;
};

#define EPROM_BLOCKS_CONVERTED(first, last, Class, Kind, TextId, RuleClass)                        \
    {first, last, create<Class>, ownRule<RuleClass>},
#define EPROM_BLOCKS_TABLES(first, last, Converted)                                                \
    {first, Converted ? last : first - 1, nullptr, nullptr},
#define EPROM_BLOCKS_CONVERSION_ONLY(first, last, Factory, RuleClass)                              \
    {first, last, Factory, tableRule<RuleClass>},

// Rows with last < first convert nothing: they stand for table ranges without a rule.
const Row kRows[] = {
#include "directory/OldStyleBlocks.def"
};

} // namespace

bool convertById(HwEDataFormatTyp format, int id, HwDatablock& block) {
    for (const Row& row : kRows) {
        if (id < row.first || id > row.last)
            continue;
        if (row.make != nullptr) {
            convertThrough({row.make, row.rule}, id, format, block);
            return true;
        }
        const CatalogueEntry* entry = findInCatalogue(id);
        if (entry == nullptr)
            return false;
        convertThrough(entry->recipe, id, format, block);
        return true;
    }
    return false;
}

} // namespace oldstyle
} // namespace Tupsim
