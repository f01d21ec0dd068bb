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

// Samples written out by hand from the id numbering: one per kind of registration and the ends
// of id ranges and catalogue windows.
const std::vector<Pinned> kPinned = {
    {2, typeid(HwDatablockIdent)},
    {120, typeid(HwDatablockModification120)},
    {200, typeid(HwDatablockServiceData)},
    {299, typeid(HwDatablockServiceData)},
    {10303, typeid(HwDatablockIqOp3RfmCalibData)},
    {10314, typeid(HwDatablockIqOp3RfmCalibData)},
    {11303, typeid(HwDatablockSAttCCounter)},
    {11304, typeid(CounterBytes)},
    {11305, typeid(HwDatablockSAttCTempFreq)},
    {11307, typeid(HwDatablockSAttCTempOffset)},
    {12300, typeid(Misc<200, 1>)},
    {12301, typeid(Misc<1, 200>)},
    {12311, typeid(Misc<1, 1>)},
    {14806, typeid(HwDatablockMbrdExtCalUserDataB)},
    {15028, typeid(Misc<10, 10>)},
    {15690, typeid(HwDatablockStereocoderCo)},
    {15700, typeid(HwDatablockOroRfboExtInGain)},
    {15852, typeid(HwDatablockTeshVectorLevconTempLevcon)},
    {16003, typeid(HwDatablockTeshRfboExtCalVecUserData)},
    {65535, typeid(HwDatablockEnd)},
};

const int kAbsent[] = {0,     1,     11,    99,    210,   298,   301,   10004, 10317, 11201,
                       11308, 14807, 15029, 15689, 15691, 15853, 16004, 20000, 65534};

std::type_index typeAt(const HwDatablockOldStyleInterpreter& interpreter, int id) {
    const auto found = interpreter.getDictionary().find(id);
    if (found == interpreter.getDictionary().end() || found->second == nullptr)
        return typeid(void);
    return typeid(*found->second);
}

} // namespace

TEST(OldStyleDirectory, PinnedIdsHaveTheirClassesAndGapsStayEmpty) {
    HwDatablockOldStyleInterpreter interpreter;
    EXPECT_EQ(interpreter.getDictionary().size(), 284u);
    for (const Pinned& pin : kPinned)
        EXPECT_EQ(typeAt(interpreter, pin.id), pin.type) << "id " << pin.id;
    // A table prototype keeps the id word of its fresh header, the others the class's own.
    for (int id : {11305, 11307, 14806, 15690, 15852, 16003, 12311})
        EXPECT_EQ(interpreter.getDictionary().at(id)->getId(), unsigned(id)) << id;
    EXPECT_EQ(interpreter.getDictionary().at(299)->getId(), 0u);
    // Generic tables carry their id strings.
    using Pk = Misc<1, 200>;
    EXPECT_STREQ(dynamic_cast<Pk&>(*interpreter.getDictionary().at(12301)).getName(),
                 "LOOPGAIN_PK");
    EXPECT_STREQ(dynamic_cast<CounterBytes&>(*interpreter.getDictionary().at(11304)).getName(),
                 "PYM_MWIF_SATT_COUNTER");
    for (int id : kAbsent)
        EXPECT_EQ(interpreter.getDictionary().count(id), 0u) << "id " << id;
    for (const auto& entry : interpreter.getDictionary())
        EXPECT_NE(entry.second, nullptr) << "id " << entry.first;
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
