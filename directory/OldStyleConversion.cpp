// The per-id byte-order conversion of the old-style blocks: which ids convert, and by which
// class's rule. It is narrower than the directory on purpose: 299, the calibration blocks below
// 15690 and the misc-data tables have no rule here, while 15853-15862 have one but no prototype.
#include "directory/OldStyleConversion.h"

#include "HwCalibTableBlocks.h"
#include "HwDatablockCommonStatisticData.h"
#include "HwDatablockIdent.h"
#include "HwDatablockMbrdModel.h"
#include "HwDatablockMbrdSerialNumber.h"
#include "HwDatablockModification.h"
#include "HwDatablockModification110.h"
#include "HwDatablockModification120.h"
#include "HwDatablockServiceData.h"
#include "HwDatablockStatistic.h"
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

// clang-format off
constexpr Row kRows[] = {
    {2, 10, create<HwDatablockIdent>, ownRule<HwDatablockIdent>},
    {100, 100, create<HwDatablockModification>, ownRule<HwDatablockModification>},
    // The second kind has the layout of the first and is converted by its rule.
    {110, 110, create<HwDatablockModification110>, ownRule<HwDatablockModification>},
    {120, 120, create<HwDatablockModification120>, ownRule<HwDatablockModification120>},
    {200, 209, create<HwDatablockServiceData>, ownRule<HwDatablockServiceData>},
    {300, 300, create<HwDatablockStatistic>, ownRule<HwDatablockStatistic>},
    {11310, 11313, create<HwDatablockCommonStatisticData>, ownRule<HwDatablockCommonStatisticData>},
    {12000, 12000, create<HwDatablockMbrdSerialNumber>, ownRule<HwDatablockMbrdSerialNumber>},
    {12001, 12001, create<HwDatablockMbrdModel>, ownRule<HwDatablockMbrdModel>},
    {15690, 15690, nullptr, nullptr},
    {15700, 15852, nullptr, nullptr},
    {LevconTempDataFirstId, 15862, createLevconTempData, tableRule<HwDatablockTeshVectorLevconTempData>},
    {16000, 16003, nullptr, nullptr},
};
// clang-format on

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
