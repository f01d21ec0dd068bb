// The old-style directory: which class it registers for each block id, and printing through it
// with the text of the block's own class.
#include "templates/TemplateTestSupport.h"

#include <EpromDatablock.h>
#include <HwDatablockOldStyleInterpreter.h>
#include <HwDatablockTeshVectorLevconTempData.h>
#include <templates/HwDatablockTemplate.h>
#include <templates/HwDatablockTemplateWithoutChecksum.h>

#include <algorithm>
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

// Samples written out by hand from the id numbering: one per kind of registration and the ends
// of id ranges and catalogue windows.
const std::vector<std::pair<int, std::type_index>> kPinned = {
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
    {14806, typeid(HwDatablockMbrdExtCalUserDataB)},
    {15690, typeid(HwDatablockStereocoderCo)},
    {15700, typeid(HwDatablockOroRfboExtInGain)},
    {15852, typeid(HwDatablockTeshVectorLevconTempLevcon)},
    {16003, typeid(HwDatablockTeshRfboExtCalVecUserData)},
    {65535, typeid(HwDatablockEnd)}};

const int kAbsent[] = {0,     1,     11,    99,    210,   298,   301,   10004, 10317, 11201,
                       11308, 14807, 15029, 15689, 15691, 15853, 16004, 20000, 65534};

std::type_index typeAt(const HwDatablockOldStyleInterpreter& interpreter, int id) {
    const auto found = interpreter.getDictionary().find(id);
    if (found == interpreter.getDictionary().end() || found->second == nullptr)
        return typeid(void);
    return typeid(*found->second);
}

// The text of a block printed through the directory, or "<refused>" when it is refused.
inline std::string printedThrough(HwDatablockOldStyleInterpreter& interpreter, HwDatablock* block) {
    std::ostringstream out;
    if (!interpreter.printHwDatablockOldStyleInfo(block, out))
        return "<refused>" + out.str();
    return out.str();
}

// An image of `size` bytes of table id `id` whose count words read `rows` and `cols`.
QByteArray countedImage(int id, int size, quint32 rows, quint32 cols) {
    return sealed(tableImage(quint16(size), quint16(id), rows, cols));
}

std::string printedImage(HwDatablockOldStyleInterpreter& interpreter, const QByteArray& image) {
    HwDatablock block(false);
    load(block, image);
    return printedThrough(interpreter, &block);
}

} // namespace

TEST(OldStyleDirectory, PinnedIdsHaveTheirClassesAndGapsStayEmpty) {
    HwDatablockOldStyleInterpreter interpreter;
    EXPECT_EQ(interpreter.getDictionary().size(), 284u);
    for (const auto& pin : kPinned)
        EXPECT_EQ(typeAt(interpreter, pin.first), pin.second) << "id " << pin.first;
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

TEST(OldStyleDirectory, PrototypesAreShrunkAndCopiesShareThemButNotTheMap) {
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

    // Both would delete the same prototypes: the copy is deliberately never destroyed.
    HwDatablockOldStyleInterpreter& original = interpreter;
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

TEST(OldStylePrinting, ExactTextOfSomeKinds) {
    ServiceRecorders services;
    HwDatablockOldStyleInterpreter interpreter;
    HwDatablockIdent ident; // an identification block prints as its own class
    ident.setSerialNumber(4711);
    EXPECT_EQ(printedThrough(interpreter, &ident), printed(ident));

    // The second modification kind is built with id 100; under id 110 it prints as its own kind.
    HwDatablockModification110 modification;
    modification.setBlockId(110);
    modification.setServiceCode(0, 0x4005);
    modification.setServiceCode(9, 65535);
    std::string expected = "# Das sind die Servicedaten Modification\n"
                           "ID:              MODIFICATION_110\n"
                           "SERVICECODE:     16389\n";
    for (int i = 1; i < 9; ++i)
        expected += "SERVICECODE:     0\n";
    expected += "SERVICECODE:     65535\n\n";
    EXPECT_EQ(printedThrough(interpreter, &modification), expected);

    HwDatablockEnd end;
    EXPECT_EQ(printedThrough(interpreter, &end),
              "# Das ist der END Block\nID:              END\n\n");

    // A generic misc-data table prints its ID string in the token form, five decimals.
    Misc<1, 1> level("anything", 12311, 0, 1.0, false);
    level.setRowCount(1);
    level.setColCount(1);
    level.setCalValue(-42, 0, 0);
    EXPECT_EQ(printedThrough(interpreter, &level),
              "ID:  PYM_DCON_LEVELPRE2\nCOUNT:  1*1\n1: \t-42.00000\n\n");

    // A block kept as an opaque image prints its raw bytes.
    QByteArray image = bytesOf({0x3F, 0x28, 0x0C, 0x00, 0, 0, 0, 0, 'a', 'b', 'c', 'd'});
    sealChecksum(image);
    HwDatablock opaque(false);
    load(opaque, image);
    EXPECT_EQ(printedThrough(interpreter, &opaque), "\n" + image.toStdString() + "\n");
    EXPECT_TRUE(services.errors.signalled.empty()); // sealed images: no complaint on the way
}

TEST(OldStylePrinting, PrototypeFollowsThePrintedBlockAndUnknownIdsAreRefused) {
    HwDatablockOldStyleInterpreter interpreter;
    HwDatablockTeshRfBoExtCalVecData big;
    HwDatablock small(false);
    small.setBlockId(15841);
    big.setRowCount(1);
    big.setColCount(2);
    big.setCalValue(7, 0, 1);
    EXPECT_EQ(printedThrough(interpreter, &big), printed(big));
    HwDatablock* prototype = interpreter.getDictionary().at(15841);
    EXPECT_EQ(prototype->getByteArrayData().size(), big.getByteArrayData().size());

    // An 8-byte block of a table id reads zero counts and prints an empty table.
    EXPECT_EQ(printedThrough(interpreter, &small), "ID:  RFBO_EXT_CAL_VEC_DATA\nCOUNT:  0*0\n\n");
    EXPECT_EQ(hex(prototype->getByteArrayData()), hex(small.getByteArrayData()));

    // Refused: no block, unknown ids (registered empty once), a table that is never printed.
    const std::size_t initial = interpreter.getDictionary().size();
    std::ostringstream out;
    EXPECT_FALSE(interpreter.printHwDatablockOldStyleInfo(nullptr, out));
    EXPECT_EQ(interpreter.getDictionary().size(), initial);

    HwDatablock unknown(false);
    unknown.setBlockId(12);
    EXPECT_FALSE(interpreter.printHwDatablockOldStyleInfo(&unknown, out));
    EXPECT_EQ(interpreter.getDictionary().size(), initial + 1);
    ASSERT_EQ(interpreter.getDictionary().count(12), 1u);
    EXPECT_EQ(interpreter.getDictionary().at(12), nullptr);
    EXPECT_FALSE(interpreter.printHwDatablockOldStyleInfo(&unknown, out));
    EXPECT_EQ(interpreter.getDictionary().size(), initial + 1);

    HwDatablockTeshVectorLevconTempData table("T", 7, false);
    EXPECT_EQ(table.getId(), 15860u);
    EXPECT_FALSE(interpreter.printHwDatablockOldStyleInfo(&table, out));
    EXPECT_EQ(interpreter.getDictionary().size(), initial + 2);
    EXPECT_TRUE(out.str().empty());
}

// Corrupt count words cost no more text than the image holds: the count line as stored, then
// the rows of the capacity that lie in the image.
TEST(OldStylePrinting, CorruptCountsPrintOnlyWhatTheImageHolds) {
    HwDatablockOldStyleInterpreter interpreter;
    EXPECT_EQ(printedImage(interpreter, countedImage(15801, 16, 0xFFFFFFFFu, 0xFFFFFFFFu)),
              "ID:  VECTOR_RFLEVEL_MAX_DATA\nCOUNT:  4294967295*4294967295\n\n");
    EXPECT_EQ(printedImage(interpreter, countedImage(15026, 16, 0xFFFFFFFFu, 0xFFFFFFFFu)),
              "ID:  DET_TEMPCORR_HIGH_FREQ\nCOUNT:  4294967295*4294967295\n\n");

    QByteArray held = countedImage(15026, 128, 0xFFFFFFFFu, 0xFFFFFFFFu);
    held[16] = 8;
    sealChecksum(held);
    const std::string one = printedImage(interpreter, held);
    EXPECT_EQ(one.substr(0, one.find("1: ")),
              "ID:  DET_TEMPCORR_HIGH_FREQ\nCOUNT:  4294967295*4294967295\n");
    EXPECT_EQ(std::count(one.begin(), one.end(), '\n'), 4);

    // A full misc-data vector prints its 200 rows and no more.
    QByteArray loopGain = countedImage(12300, 16 + 200 * 4, 200, 1);
    const std::string full = printedImage(interpreter, loopGain);
    loopGain = countedImage(12300, 16 + 200 * 4, 0xFFFFFFFFu, 1);
    std::string expected = full;
    expected.replace(expected.find("COUNT:  200*1"), 13, "COUNT:  4294967295*1");
    EXPECT_EQ(printedImage(interpreter, loopGain), expected);
    EXPECT_EQ(std::count(full.begin(), full.end(), '\n'), 2 + 200 + 1);
}
