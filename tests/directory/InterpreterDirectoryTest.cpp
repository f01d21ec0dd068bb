// Which class the old-style directory registers for every block id.
#include "support/Blocks.h"

#include <HwDatablockOldStyleInterpreter.h>

#include <EpromDatablock.h>
#include <HwDatablockTeshVectorLevconTempData.h>
#include <templates/HwDatablockTemplate.h>
#include <templates/HwDatablockTemplateWithoutChecksum.h>

#include <gtest/gtest.h>
#include <typeindex>
#include <vector>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

using namespace Tupsim;
using namespace Tupsim::test;

namespace {

template <unsigned int N1, unsigned int N2>
using Misc = HwDatablockTemplate<MiscData<int, N1, N2>, int, double, N1, N2>;
using CounterBytes = HwDatablockTemplateWithoutChecksum<MiscData<unsigned char, 1, 2048>,
                                                        unsigned char, double, 1, 2048>;

// An id and the class registered for it.
struct Pinned {
    int id;
    std::type_index type;
};

// Samples written out by hand from the id numbering: one per kind of registration.
const std::vector<Pinned> kPinned = {
    {2, typeid(HwDatablockIdent)},
    {100, typeid(HwDatablockModification)},
    {120, typeid(HwDatablockModification120)},
    {200, typeid(HwDatablockServiceData)},
    {299, typeid(HwDatablockServiceData)},
    {300, typeid(HwDatablockStatistic)},
    {10000, typeid(HwDatablockSsynOcxoRefCalValue)},
    {10315, typeid(HwDatablockIqOp3RfmCalibDataMiscV20)},
    {10502, typeid(HwDatablockCwop6VcoIdent)},
    {11300, typeid(HwDatablockSAttCCounter)},
    {11304, typeid(CounterBytes)},
    {11313, typeid(HwDatablockCommonStatisticData)},
    {12008, typeid(HwDatablockMbrdTimeMonitoringData)},
    {12096, typeid(HwDatablockMbrdExtLevCalData2Edition_Enh)},
    {12193, typeid(HwDatablockCwop3DetTuneFreq)},
    {12300, typeid(Misc<200, 1>)},
    {12311, typeid(Misc<1, 1>)},
    {12500, typeid(HwDatablockDacIfFullScale)},
    {15001, typeid(HwDatablockFsynTcxoRefCalValue)},
    {15028, typeid(Misc<10, 10>)},
    {16003, typeid(HwDatablockTeshRfboExtCalVecUserData)},
    {65535, typeid(HwDatablockEnd)},
};

const int kAbsent[] = {0,     1,     11,    99,    101,   210,   298,   301,
                       10004, 10317, 10600, 11201, 11308, 11309, 12309, 14807,
                       15029, 15606, 15702, 15853, 15862, 16004, 20000, 65534};

std::type_index typeAt(const HwDatablockOldStyleInterpreter& interpreter, int id) {
    const auto found = interpreter.getDictionary().find(id);
    if (found == interpreter.getDictionary().end() || found->second == nullptr)
        return typeid(void);
    return typeid(*found->second);
}

bool inCatalogueWindow(int id) {
    return (id >= 11305 && id <= 11307) || (id >= 14802 && id <= 14806) || id == 15690 ||
           (id >= 15700 && id <= 15852) || (id >= 16000 && id <= 16003);
}

template <unsigned int N1, unsigned int N2>
void expectMisc(const HwDatablockOldStyleInterpreter& interpreter, int id, const char* idString) {
    SCOPED_TRACE(id);
    auto* table = dynamic_cast<Misc<N1, N2>*>(interpreter.getDictionary().at(id));
    ASSERT_NE(table, nullptr);
    EXPECT_STREQ(table->getName(), idString);
    EXPECT_EQ(table->getFactor(), 1.0);
    EXPECT_EQ(table->getInstance(), 0);
    EXPECT_EQ(table->getId(), static_cast<unsigned int>(id));
}

} // namespace

TEST(OldStyleDirectory, PinnedIdsHaveTheirClassesAndGapsStayEmpty) {
    HwDatablockOldStyleInterpreter interpreter;
    EXPECT_EQ(interpreter.getDictionary().size(), 284u);
    for (const Pinned& pin : kPinned)
        EXPECT_EQ(typeAt(interpreter, pin.id), pin.type) << "id " << pin.id;
    for (int id : kAbsent)
        EXPECT_EQ(interpreter.getDictionary().count(id), 0u) << "id " << id;
    for (const auto& entry : interpreter.getDictionary())
        EXPECT_NE(entry.second, nullptr) << "id " << entry.first;
}

TEST(OldStyleDirectory, CatalogueRowsAreRegisteredInsideTheirWindowsOnly) {
    HwDatablockOldStyleInterpreter interpreter;
    const std::vector<Pinned> rows = {
#define EPROM_TABLE_BLOCK(Class, Template, Args, Name, Id, Factor) {Id, typeid(Class)},
#define EPROM_TABLE_BLOCK_NAMED(Class, Template, Args, NameType, Id, Factor) {Id, typeid(Class)},
#define EPROM_TABLE_BLOCK_HEADED(Class, Template, Args, Name, Id, Factor, Title, Key, Limit,       \
                                 Message, RowsMessage, OwnPrint)                                   \
    {Id, typeid(Class)},
#define EPROM_TABLE_BLOCK_TCXO(Class, Template, Args, Name, Id, Factor) {Id, typeid(Class)},
#include <HwCalibTableBlocks.def>
    };
    int registered = 0;
    for (const Pinned& row : rows) {
        SCOPED_TRACE(row.id);
        if (inCatalogueWindow(row.id)) {
            ++registered;
            EXPECT_EQ(typeAt(interpreter, row.id), row.type);
            // A table prototype keeps the id word of its fresh header.
            EXPECT_EQ(interpreter.getDictionary().at(row.id)->getId(),
                      static_cast<unsigned int>(row.id));
        } else {
            EXPECT_NE(typeAt(interpreter, row.id), row.type);
        }
    }
    EXPECT_EQ(registered, 3 + 5 + 1 + 42 + 4);
}

TEST(OldStyleDirectory, OpaqueClassesSitAtTheirFirstIds) {
    HwDatablockOldStyleInterpreter interpreter;
    const std::vector<Pinned> rows = {
#define EPROM_OPAQUE_BLOCK(ClassName, firstId) {firstId, typeid(ClassName)},
#include <HwOpaqueCalibBlocks.def>
#undef EPROM_OPAQUE_BLOCK
    };
    for (const Pinned& row : rows) {
        if (row.id == 0)
            continue; // classes outside the directory
        EXPECT_EQ(typeAt(interpreter, row.id), row.type) << "id " << row.id;
    }
    // Ranges share one class.
    for (int id = 10303; id <= 10314; ++id)
        EXPECT_EQ(typeAt(interpreter, id), typeid(HwDatablockIqOp3RfmCalibData)) << id;
    for (int id = 12260; id <= 12263; ++id)
        EXPECT_EQ(typeAt(interpreter, id), typeid(HwDatablockMbrdRfResponseAttFreq)) << id;
}

// One row of each shape; the printed names of all ids are checked against the catalogue.
TEST(OldStyleDirectory, MiscDataRowsCarryTheirIdStringsAndShape) {
    HwDatablockOldStyleInterpreter interpreter;
    expectMisc<200, 1>(interpreter, 12300, "LOOPGAIN_FREQ");
    expectMisc<1, 200>(interpreter, 12301, "LOOPGAIN_PK");
    expectMisc<50, 1>(interpreter, 12305, "LOOPGAIN_PK_LIST");
    expectMisc<50, 200>(interpreter, 12306, "LOOPGAIN_P_VALUE_BASE_PK_LIST");
    expectMisc<10, 1>(interpreter, 12310, "PYM_DCON_VTRIM_VALUE");
    expectMisc<1, 1>(interpreter, 12311, "PYM_DCON_LEVELPRE2");
    expectMisc<100, 1>(interpreter, 12313, "LIMITER_FREQUENCY_NODE_GHZ");
    expectMisc<10, 10>(interpreter, 15027, "DET_TEMPCORR_MIN_FREQ_VALUES");

    auto* counter = dynamic_cast<CounterBytes*>(interpreter.getDictionary().at(11304));
    ASSERT_NE(counter, nullptr);
    EXPECT_STREQ(counter->getName(), "PYM_MWIF_SATT_COUNTER");
    EXPECT_EQ(counter->getFactor(), 1.0);
}

TEST(OldStyleDirectory, PrototypesAreShrunkExceptTheEndBlock) {
    HwDatablockOldStyleInterpreter interpreter;
    for (const auto& entry : interpreter.getDictionary()) {
        if (entry.first == 65535)
            continue;
        EXPECT_EQ(entry.second->getByteArrayData().size(), 8) << "id " << entry.first;
        // Small in memory too, not just in length.
        EXPECT_LE(entry.second->getByteArrayData().capacity(), 64) << "id " << entry.first;
    }
    HwDatablockEnd fresh;
    EXPECT_EQ(hex(interpreter.getDictionary().at(65535)->getByteArrayData()),
              hex(fresh.getByteArrayData()));
    EXPECT_EQ(hex(fresh.getByteArrayData()), "ff ff 00 00");
}

TEST(OldStyleDirectory, CopiesShareThePrototypesButNotTheMap) {
    HwDatablockOldStyleInterpreter original;
    // Both would delete the same prototypes: the copy is deliberately never destroyed.
    auto* copy = new HwDatablockOldStyleInterpreter(original);
#if defined(__SANITIZE_ADDRESS__)
    __lsan_ignore_object(copy);
#endif
    ASSERT_EQ(copy->getDictionary().size(), original.getDictionary().size());
    for (const auto& entry : original.getDictionary())
        EXPECT_EQ(copy->getDictionary().at(entry.first), entry.second) << entry.first;

    HwDatablock unknown(false);
    unknown.setBlockId(12);
    std::ostringstream out;
    EXPECT_FALSE(copy->printHwDatablockOldStyleInfo(&unknown, out));
    EXPECT_EQ(copy->getDictionary().count(12), 1u);
    EXPECT_EQ(original.getDictionary().count(12), 0u);
}
