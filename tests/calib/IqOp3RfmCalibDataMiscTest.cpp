// IQ modulator misc block, first form: field layout, short images and text form.
#include "support/Blocks.h"

#include <HwDatablockIqOp3RfmCalibDataMisc.h>

#include <functional>
#include <gtest/gtest.h>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {

using Misc = HwDatablockIqOp3RfmCalibDataMisc;

HwSDatablockIqOp3RfmCalibDataMisc sampleRecord() {
    HwSDatablockIqOp3RfmCalibDataMisc record{};
    record.blockId = 10301;
    record.blockSize = 168;
    record.toleranceLevPre = 640;
    record.toleranceLevAtt_15 = 200;
    record.toleranceLevAtt_30_45 = 64;
    record.toleranceDetAtt = 383;
    record.detFullScale = 2.5f;
    record.countBz = 13;
    record.pmaxBz[0] = 1280.0f;
    record.pmaxBz[1] = 1280.9f;
    record.pmaxBz[2] = -640.0f;
    record.uiqBz[0] = 0.5f;
    record.uiqBz[1] = 1.23456789f;
    record.uiqBz[2] = 1e8f;
    record.lconReserveBz[0] = 640;
    record.lconReserveBz[1] = 127;
    record.lconReserveBz[11] = 65535;
    record.detReserveBz[0] = 3;
    record.detReserveBz[11] = 65535;
    return sealed(record);
}

QByteArray floatBytes(float value) {
    QByteArray out(4, '\0');
    putAt<float>(out, 0, value);
    return out;
}

struct Field {
    const char* what;
    std::function<void(Misc&)> set;
    int offset;
    QByteArray bytes; // what the setter stores there
};

// The first and the last element of each array.
const Field kFields[] = {
    {"lev pre", [](Misc& b) { b.setToleranceLevPre(0x0102); }, 8, bytesOf({2, 1})},
    {"lev att 15", [](Misc& b) { b.setToleranceLevAtt_15(0x0304); }, 10, bytesOf({4, 3})},
    {"lev att 30", [](Misc& b) { b.setToleranceLevAtt_30_45(0x0506); }, 12, bytesOf({6, 5})},
    {"det att", [](Misc& b) { b.setToleranceDetAtt(0x0708); }, 14, bytesOf({8, 7})},
    {"full scale", [](Misc& b) { b.setDetFullScale(-1.5f); }, 16, floatBytes(-1.5f)},
    {"states", [](Misc& b) { b.setNumberOfOperatingStates(8); }, 20, bytesOf({8, 0, 0, 0})},
    {"pmax 0", [](Misc& b) { b.setPmaxBz(1280, 0); }, 24, floatBytes(1280.0f)},
    {"pmax 11", [](Misc& b) { b.setPmaxBz(7, 11); }, 68, floatBytes(7.0f)},
    {"uiq 0", [](Misc& b) { b.setUiqBz(0.5f, 0); }, 72, floatBytes(0.5f)},
    {"uiq 11", [](Misc& b) { b.setUiqBz(0.25f, 11); }, 116, floatBytes(0.25f)},
    {"lcon 0", [](Misc& b) { b.setLconReserveBz(0xA1A2, 0); }, 120, bytesOf({0xA2, 0xA1})},
    {"lcon 11", [](Misc& b) { b.setLconReserveBz(0xA3A4, 11); }, 142, bytesOf({0xA4, 0xA3})},
    {"det 0", [](Misc& b) { b.setDetReserveBz(0xB1B2, 0); }, 144, bytesOf({0xB2, 0xB1})},
    {"det 11", [](Misc& b) { b.setDetReserveBz(0xB3B4, 11); }, 166, bytesOf({0xB4, 0xB3})},
};

} // namespace

TEST(IqOp3RfmCalibDataMisc, EverySetterStoresOnlyItsFieldAndRefreshesTheChecksum) {
    ServiceRecorders services;
    Misc block;
    EXPECT_EQ(block.getByteArrayData(),
              bytesOf({0x3d, 0x28, 0xa8, 0, 0, 0, 0, 0}) + QByteArray(160, 0));
    for (const Field& field : kFields) {
        QByteArray expected = block.getByteArrayData();
        field.set(block);
        const QByteArray image = block.getByteArrayData();
        expected.replace(field.offset, field.bytes.size(), field.bytes);
        expected.replace(4, 2, image.mid(4, 2));
        EXPECT_EQ(hex(image), hex(expected)) << field.what;
        EXPECT_TRUE(sumsToZero(image)) << field.what;
    }
    const QByteArray image = block.getByteArrayData();
    // Index 12 is one past the last operating state: ignored by setters, 0 for getters.
    block.setPmaxBz(1, 12);
    block.setUiqBz(1.0f, 12);
    block.setLconReserveBz(1, 12);
    block.setDetReserveBz(1, 255);
    EXPECT_EQ(block.getByteArrayData(), image);
    EXPECT_EQ(block.getUiqBz(12), 0.0f);
    EXPECT_EQ(block.getPmaxBz(12), 0);
    EXPECT_EQ(block.getLconReserveBz(12), 0);
    EXPECT_EQ(block.getDetReserveBz(12), 0);
    EXPECT_TRUE(services.errors.signalled.empty());
}

TEST(IqOp3RfmCalibDataMisc, PmaxIsTheStoredFloatCutTo16Bits) {
    Misc block;
    QByteArray image = block.getByteArrayData();
    putAt<float>(image, 24, 1280.9f);
    putAt<float>(image, 28, -1.0f);
    putAt<float>(image, 32, 65537.5f);
    load(block, image);
    EXPECT_EQ(block.getPmaxBz(0), 1280);
    EXPECT_EQ(block.getPmaxBz(1), 0xFFFF);
    EXPECT_EQ(block.getPmaxBz(2), 1);
}

TEST(IqOp3RfmCalibDataMisc, ShortImageReadsZeroAndIgnoresSetters) {
    ServiceRecorders services;
    Misc block;
    // Ends right after the first UIQ value: later fields are missing.
    QByteArray image = block.getByteArrayData().left(76);
    putAt<float>(image, 72, 3.0f);
    load(block, image);
    EXPECT_EQ(block.getUiqBz(0), 3.0f);
    EXPECT_EQ(block.getUiqBz(1), 0.0f);
    EXPECT_EQ(block.getDetReserveBz(0), 0);
    block.setUiqBz(1.0f, 1);
    block.setDetReserveBz(9, 0);
    EXPECT_EQ(block.getByteArrayData(), image);
}

TEST(IqOp3RfmCalibDataMisc, SetBlockReplacesAShortOrLongImage) {
    ServiceRecorders services;
    const HwSDatablockIqOp3RfmCalibDataMisc record = sampleRecord();
    for (int length : {8, 300}) {
        Misc block;
        block.resizeData(static_cast<unsigned>(length));
        ASSERT_EQ(block.setBlock(&record), 0);
        EXPECT_EQ(block.getByteArrayData(), recordBytes(record)) << length;
        EXPECT_TRUE(block.verifyChecksum());
    }
}

TEST(IqOp3RfmCalibDataMisc, PrintsTheCalibrationFileSection) {
    ServiceRecorders services;
    const HwSDatablockIqOp3RfmCalibDataMisc record = sampleRecord();
    Misc block;
    ASSERT_EQ(block.setBlock(&record), 0);
    EXPECT_EQ(printed(block), golden("calib/IqOp3RfmCalibDataMisc.txt"));
}

TEST(IqOp3RfmCalibDataMisc, HugeStateCountStopsAtTheLastIndexableState) {
    Misc block;
    block.setNumberOfOperatingStates(0xFFFFFFFFu);
    const std::string text = printed(block);
    EXPECT_NE(text.find("COUNT_BZ:        4294967295\n"), std::string::npos);
    EXPECT_NE(text.find("\nDET_RESERVE_BZ255:             0\t dB\n"), std::string::npos);
    EXPECT_EQ(text.find("BZ256"), std::string::npos);
}
