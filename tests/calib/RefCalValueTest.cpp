// The six single-value reference blocks: image, checked setter, import and text form.
#include "support/Blocks.h"

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

// Each class under its own accessor names, reached through one interface for the table.
struct RefCase {
    const char* name;
    unsigned short id;
    const char* failText;
    std::function<std::unique_ptr<HwDatablockRefCalValue>()> make;
    std::function<int(HwDatablockRefCalValue&, int, unsigned char)> set;
    std::function<int(HwDatablockRefCalValue&, unsigned char)> get;
};

template <typename T>
RefCase refCase(const char* name, unsigned short id, const char* failText,
                int (T::*set)(int, unsigned char), int (T::*get)(unsigned char) const) {
    return {
        name,
        id,
        failText,
        [] { return std::unique_ptr<HwDatablockRefCalValue>(new T); },
        [set](HwDatablockRefCalValue& b, int v, unsigned char i) {
            return (static_cast<T&>(b).*set)(v, i);
        },
        [get](HwDatablockRefCalValue& b, unsigned char i) { return (static_cast<T&>(b).*get)(i); }};
}

const char kOcxo[] = "store new ocxo- value failed";

std::vector<RefCase> allCases() {
    return {
        refCase<HwDatablockPymOcxoRefCalValue>("PymOcxoRefCalValue", 15002, kOcxo,
                                               &HwDatablockPymOcxoRefCalValue::setOcxoRefCalValue,
                                               &HwDatablockPymOcxoRefCalValue::getOcxoRefCalValue),
        refCase<HwDatablockFsynTcxoRefCalValue>(
            "FsynTcxoRefCalValue", 15001, kOcxo,
            &HwDatablockFsynTcxoRefCalValue::setOcxoRefCalValue,
            &HwDatablockFsynTcxoRefCalValue::getOcxoRefCalValue),
        refCase<HwDatablockSynexOcxoRefCalValue>(
            "SynexOcxoRefCalValue", 15000, kOcxo,
            &HwDatablockSynexOcxoRefCalValue::setOcxoRefCalValue,
            &HwDatablockSynexOcxoRefCalValue::getOcxoRefCalValue),
        refCase<HwDatablockSsynOcxoRefCalValue>(
            "SsynOcxoRefCalValue", 10000, kOcxo,
            &HwDatablockSsynOcxoRefCalValue::setOcxoRefCalValue,
            &HwDatablockSsynOcxoRefCalValue::getOcxoRefCalValue),
        refCase<HwDatablockDopMbrdPllDacCalibValue>(
            "DopMbrdPllDacCalibValue", 12280, "Dop Mbrd Pll Dac Reference value failed",
            &HwDatablockDopMbrdPllDacCalibValue::setDopMbrdPllDacCalibValue,
            &HwDatablockDopMbrdPllDacCalibValue::getDopMbrdPllDacCalibValue),
        refCase<HwDatablockWexBaseboardCalibValue>(
            "WexBaseboardCalibValue", 15605, "WEX baseboard calibration value failed",
            &HwDatablockWexBaseboardCalibValue::setBaseboardCalibValue,
            &HwDatablockWexBaseboardCalibValue::getBaseboardCalibValue),
    };
}

HwSDatablockRefCalValue sealedRecord(unsigned short id, unsigned int count, int value) {
    HwSDatablockRefCalValue record{id, 16, 0, 0, count, value};
    record = sealed(record);
    return record;
}

} // namespace

TEST(RefCalValue, NewBlockHoldsIdAndSizeAndZeros) {
    for (const RefCase& c : allCases()) {
        auto block = c.make();
        const QByteArray image = block->getByteArrayData();
        EXPECT_EQ(hex(image), hex(freshImage(c.id, 16))) << c.name;
        EXPECT_EQ(block->getId(), c.id) << c.name;
    }
    EXPECT_EQ(hex(HwDatablockSsynOcxoRefCalValue().getByteArrayData()),
              "10 27 10 00 00 00 00 00 00 00 00 00 00 00 00 00");
}

TEST(RefCalValue, SetterStoresIndexZeroOnlyAndKeepsTheChecksum) {
    ServiceRecorders services;
    for (const RefCase& c : allCases()) {
        auto block = c.make();
        EXPECT_EQ(c.set(*block, -70000, 0), 0) << c.name;
        QByteArray image = block->getByteArrayData();
        EXPECT_EQ(hex(image.mid(12)), "90 ee fe ff") << c.name;
        EXPECT_TRUE(block->verifyChecksum()) << c.name;
        EXPECT_EQ(c.get(*block, 0), -70000) << c.name;

        // Any other index is accepted and ignored, and reads as 0.
        EXPECT_EQ(c.set(*block, 1234, 1), 0) << c.name;
        EXPECT_EQ(c.set(*block, 1234, 255), 0) << c.name;
        EXPECT_EQ(block->getByteArrayData(), image) << c.name;
        EXPECT_EQ(c.get(*block, 1), 0) << c.name;
    }
    EXPECT_TRUE(services.errors.signalled.empty());
}

TEST(RefCalValue, StoreThatDoesNotReadBackIsReported) {
    ServiceRecorders services;
    for (const RefCase& c : allCases()) {
        services.errors.signalled.clear();
        auto block = c.make();
        // A header-only image (as the directory keeps its prototypes) has no value field.
        QByteArray header = freshImage(c.id, 8);
        sealChecksum(header);
        block->setData(header);
        EXPECT_EQ(c.set(*block, 5, 0), -1) << c.name;
        ASSERT_EQ(services.errors.signalled.size(), 1u) << c.name;
        EXPECT_EQ(services.errors.signalled[0].first, 1040002);
        EXPECT_EQ(services.errors.signalled[0].second, c.failText);
        EXPECT_EQ(block->getByteArrayData().size(), 8) << c.name;
        EXPECT_TRUE(block->verifyChecksum()) << c.name;
    }
}

TEST(RefCalValue, SetBlockVerifiesTheRecordAndNamesTheClass) {
    ServiceRecorders services;
    for (const RefCase& c : allCases()) {
        services.errors.signalled.clear();
        auto block = c.make();
        HwSDatablockRefCalValue record = sealedRecord(c.id, 0x01020304, -2);
        record.alignment = 8; // unsealed: the record is now wrong
        EXPECT_EQ(block->setBlock(&record), 1) << c.name;
        ASSERT_EQ(services.errors.signalled.size(), 1u) << c.name;
        EXPECT_EQ(services.errors.signalled[0].first, 1040001);
        EXPECT_EQ(services.errors.signalled[0].second, QString("   HwDatablock") + c.name);
        EXPECT_EQ(block->getByteArrayData(), freshImage(c.id, 16)) << c.name;

        record = sealedRecord(c.id, 0x01020304, -2);
        EXPECT_EQ(block->setBlock(&record), 0) << c.name;
        EXPECT_EQ(block->getByteArrayData(), recordBytes(record)) << c.name;
        EXPECT_EQ(c.get(*block, 0), -2) << c.name;
    }
}

TEST(RefCalValue, SwapBlockImportsWithoutChecking) {
    ServiceRecorders services;
    HwDatablockPymOcxoRefCalValue block;
    HwSDatablockPymOcxoRefCalValue record{15002, 16, 0x1111, 6, 2, 77};
    block.swapBlock(&record);
    EXPECT_EQ(hex(block.getByteArrayData()), "9a 3a 10 00 11 11 00 00 02 00 00 00 4d 00 00 00");
    EXPECT_TRUE(services.errors.signalled.empty());
}

TEST(RefCalValue, CountAccessors) {
    ServiceRecorders services;
    HwDatablockFsynTcxoRefCalValue fsyn;
    fsyn.setCount(200);
    EXPECT_EQ(hex(fsyn.getByteArrayData().mid(8, 4)), "c8 00 00 00");
    EXPECT_TRUE(fsyn.verifyChecksum());
    HwSDatablockFsynTcxoRefCalValue record = sealedRecord(15001, 0x1234, 0);
    ASSERT_EQ(fsyn.setBlock(&record), 0);
    EXPECT_EQ(fsyn.getCount(), 0x34); // the low byte

    HwDatablockWexBaseboardCalibValue wex;
    wex.setCount(0x01020304u);
    EXPECT_EQ(hex(wex.getByteArrayData().mid(8, 4)), "04 03 02 01");
    EXPECT_TRUE(wex.verifyChecksum());
}

TEST(RefCalValue, PrintsTheLowByteOfTheCountAndTheSignedValue) {
    ServiceRecorders services;
    for (const RefCase& c : allCases()) {
        auto block = c.make();
        HwSDatablockRefCalValue record = sealedRecord(c.id, 257, -70000);
        ASSERT_EQ(block->setBlock(&record), 0) << c.name;
        EXPECT_EQ(printed(*block), golden("calib/" + std::string(c.name) + ".txt")) << c.name;
    }
}
