// The single-value blocks (six reference values and the IF DAC full scale): image, checked
// setter, import and text form.
#include "support/Blocks.h"

#include <HwDatablockDacIfFullScale.h>
#include <HwDatablockDopMbrdPllDacCalibValue.h>
#include <HwDatablockFsynTcxoRefCalValue.h>
#include <HwDatablockPymOcxoRefCalValue.h>
#include <HwDatablockSsynOcxoRefCalValue.h>
#include <HwDatablockSynexOcxoRefCalValue.h>
#include <HwDatablockWexBaseboardCalibValue.h>

#include <functional>
#include <gtest/gtest.h>
#include <memory>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {

using Base = HwDatablockRefCalValue;

// Each class under its own accessor names, reached through one interface for the table.
struct RefCase {
    const char* name;
    unsigned short id;
    const char* failText;
    std::function<std::unique_ptr<Base>()> make;
    std::function<int(Base&, int, unsigned char)> set;
    std::function<int(Base&, unsigned char)> get;
};

// clang-format off
#define REF_CASE(Class, id, failText, accessor)                                                    \
    RefCase{#Class, id, failText, [] { return std::unique_ptr<Base>(new HwDatablock##Class); },    \
            [](Base& b, int v, unsigned char i) {                                                  \
                return static_cast<HwDatablock##Class&>(b).set##accessor(v, i); },                 \
            [](Base& b, unsigned char i) {                                                         \
                return static_cast<HwDatablock##Class&>(b).get##accessor(i); }}
// clang-format on

std::vector<RefCase> allCases() {
    const char* const ocxo = "store new ocxo- value failed";
    return {REF_CASE(PymOcxoRefCalValue, 15002, ocxo, OcxoRefCalValue),
            REF_CASE(FsynTcxoRefCalValue, 15001, ocxo, OcxoRefCalValue),
            REF_CASE(SynexOcxoRefCalValue, 15000, ocxo, OcxoRefCalValue),
            REF_CASE(SsynOcxoRefCalValue, 10000, ocxo, OcxoRefCalValue),
            REF_CASE(DopMbrdPllDacCalibValue, 12280, "Dop Mbrd Pll Dac Reference value failed",
                     DopMbrdPllDacCalibValue),
            REF_CASE(WexBaseboardCalibValue, 15605, "WEX baseboard calibration value failed",
                     BaseboardCalibValue)};
}
#undef REF_CASE

HwSDatablockRefCalValue sealedRecord(unsigned short id, unsigned int count, int value) {
    return sealed(stored(HwSDatablockRefCalValue{id, 16, 0, 0, count, value}, {{8, 4, 2}}));
}

} // namespace

TEST(RefCalValue, EachClassStoresIndexZeroOnlyAndChecksWhatItImports) {
    for (const RefCase& c : allCases()) {
        SCOPED_TRACE(c.name);
        ServiceRecorders services;
        auto block = c.make();
        EXPECT_EQ(hex(block->getByteArrayData()), hex(freshImage(c.id, 16)));
        EXPECT_EQ(c.set(*block, -70000, 0), 0);
        const QByteArray image = block->getByteArrayData();
        EXPECT_EQ(hex(image.mid(12)), "90 ee fe ff");
        EXPECT_TRUE(block->verifyChecksum());
        EXPECT_EQ(c.get(*block, 0), -70000);
        // Any other index is accepted and ignored, and reads as 0.
        EXPECT_EQ(c.set(*block, 1234, 1), 0);
        EXPECT_EQ(c.set(*block, 1234, 255), 0);
        EXPECT_EQ(block->getByteArrayData(), image);
        EXPECT_EQ(c.get(*block, 1), 0);
        EXPECT_TRUE(services.errors.signalled.empty());

        // A wrong record is refused with the class's name, a sealed one taken.
        HwSDatablockRefCalValue record = sealedRecord(c.id, 0x01020304, -2);
        record.alignment = 8;
        EXPECT_EQ(block->setBlock(&record), 1);
        expectRejected(services, 1040001, std::string("   HwDatablock") + c.name);
        EXPECT_EQ(block->getByteArrayData(), image);
        record = sealedRecord(c.id, 0x01020304, -2);
        EXPECT_EQ(block->setBlock(&record), 0);
        EXPECT_EQ(block->getByteArrayData(), recordBytes(record));
        EXPECT_EQ(c.get(*block, 0), -2);
        // The text form holds the low byte of the count and the signed value.
        record = sealedRecord(c.id, 257, -70000);
        ASSERT_EQ(block->setBlock(&record), 0);
        EXPECT_EQ(printed(*block), golden("calib/" + std::string(c.name) + ".txt"));

        // A header-only image (a directory prototype): the store does not read back.
        services.errors.signalled.clear();
        QByteArray header = freshImage(c.id, 8);
        sealChecksum(header);
        block->setData(header);
        EXPECT_EQ(c.set(*block, 5, 0), -1);
        expectRejected(services, 1040002, c.failText);
        EXPECT_EQ(block->getByteArrayData(), header);
    }

    ServiceRecorders services;
    HwDatablockPymOcxoRefCalValue pym;
    HwSDatablockPymOcxoRefCalValue pymRecord =
        stored(HwSDatablockPymOcxoRefCalValue{15002, 16, 0x1111, 6, 2, 77}, {{8, 4, 2}});
    pym.swapBlock(&pymRecord); // imports without checking
    EXPECT_EQ(hex(pym.getByteArrayData()), "9a 3a 10 00 11 11 00 00 02 00 00 00 4d 00 00 00");

    HwDatablockFsynTcxoRefCalValue fsyn;
    fsyn.setCount(200);
    EXPECT_EQ(hex(fsyn.getByteArrayData().mid(8, 4)), "c8 00 00 00");
    EXPECT_TRUE(fsyn.verifyChecksum());
    HwSDatablockFsynTcxoRefCalValue counted = sealedRecord(15001, 0x1234, 0);
    ASSERT_EQ(fsyn.setBlock(&counted), 0);
    EXPECT_EQ(fsyn.getCount(), 0x34); // the low byte
    HwDatablockWexBaseboardCalibValue wex;
    wex.setCount(0x01020304u);
    EXPECT_EQ(hex(wex.getByteArrayData().mid(8, 4)), "04 03 02 01");
    EXPECT_TRUE(wex.verifyChecksum());
    EXPECT_TRUE(services.errors.signalled.empty());

    HwDatablockDacIfFullScale dac;
    EXPECT_EQ(hex(dac.getByteArrayData()), "d4 30 0c 00 00 00 00 00 00 00 00 00");
    dac.setFullScaleValue(-123456);
    EXPECT_EQ(hex(dac.getByteArrayData().mid(8)), "c0 1d fe ff");
    EXPECT_EQ(dac.getFullScaleValue(), -123456);
    EXPECT_TRUE(dac.verifyChecksum());
    HwSDatablockDacIfFullScale dacRecord{12500, 12, 0, 0, 5};
    EXPECT_EQ(dac.setBlock(&dacRecord), 1);
    expectRejected(services, 1040001, "   HwDatablockDacIfFullScale");
    EXPECT_EQ(dac.getFullScaleValue(), -123456);
    dacRecord = sealed(stored(HwSDatablockDacIfFullScale{12500, 12, 0, 0, -123456}, {{8, 4, 1}}));
    ASSERT_EQ(dac.setBlock(&dacRecord), 0);
    EXPECT_EQ(dac.getByteArrayData(), recordBytes(dacRecord));
    EXPECT_EQ(printed(dac), golden("calib/DacIfFullScale.txt"));

    dac.resizeData(10); // the value no longer fits
    EXPECT_EQ(dac.getFullScaleValue(), 0);
    const QByteArray shortImage = dac.getByteArrayData();
    dac.setFullScaleValue(1);
    EXPECT_EQ(dac.getByteArrayData(), shortImage);
}
