// IQ modulator misc blocks, first form and version 2.0: field layout, short images, text form.
#include "support/Blocks.h"

#include <HwDatablockIqOp3RfmCalibDataMisc.h>
#include <HwDatablockIqOp3RfmCalibDataMiscV20.h>

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

namespace {

using V20 = HwDatablockIqOp3RfmCalibDataMiscV20;

struct FloatField {
    void (V20::*set)(float);
    float (V20::*get)() const;
    int offset;
};

struct ShortField {
    void (V20::*set)(short);
    short (V20::*get)() const;
    int offset;
};

const FloatField kFloats[] = {
    {&V20::setLmaxLow, &V20::getLmaxLow, 8},
    {&V20::setLmaxMed, &V20::getLmaxMed, 12},
    {&V20::setLmaxHigh, &V20::getLmaxHigh, 16},
    {&V20::setLmaxOvr, &V20::getLmaxOvr, 20},
    {&V20::setLcalSensLow, &V20::getLcalSensLow, 24},
    {&V20::setLcalSensMed, &V20::getLcalSensMed, 28},
    {&V20::setLcalSensHigh, &V20::getLcalSensHigh, 32},
    {&V20::setLcalSensOvr, &V20::getLcalSensOvr, 36},
    {&V20::setVcalSensLow, &V20::getVcalSensLow, 40},
    {&V20::setVcalSensMed, &V20::getVcalSensMed, 44},
    {&V20::setVcalSensHigh, &V20::getVcalSensHigh, 48},
    {&V20::setVcalSensOvr, &V20::getVcalSensOvr, 52},
    {&V20::setLrangeCwNorm, &V20::getLrangeCwNorm, 56},
    {&V20::setLrangeCwOvr, &V20::getLrangeCwOvr, 60},
    {&V20::setLrangeIqNorm, &V20::getLrangeIqNorm, 64},
    {&V20::setLrangeIqOvr, &V20::getLrangeIqOvr, 68},
    {&V20::setUiq, &V20::getUiq, 72},
    {&V20::setLconReserveCwNorm, &V20::getLconReserveCwNorm, 76},
    {&V20::setLconReserveCwOvr, &V20::getLconReserveCwOvr, 80},
    {&V20::setLconReserveIqNorm, &V20::getLconReserveIqNorm, 84},
    {&V20::setLconReserveIqOvr, &V20::getLconReserveIqOvr, 88},
    {&V20::setLpreCalLevCwNorm, &V20::getLpreCalLevCwNorm, 92},
    {&V20::setLpreCalLevCwOvr, &V20::getLpreCalLevCwOvr, 96},
    {&V20::setLpreCalLevIqNorm, &V20::getLpreCalLevIqNorm, 100},
    {&V20::setLpreCalLevIqOvr, &V20::getLpreCalLevIqOvr, 104},
};

const ShortField kShorts[] = {
    {&V20::setDetattLow, &V20::getDetattLow, 108},
    {&V20::setDetattMed, &V20::getDetattMed, 110},
    {&V20::setDetattHigh, &V20::getDetattHigh, 112},
    {&V20::setDetattOvr, &V20::getDetattOvr, 114},
};

const short kShortValues[] = {-1, 32767, -32768, 0};

// Field k of the floats holds (k + 1) * 1.25, the 16-bit fields kShortValues.
void fillAll(V20& block) {
    float value = 1.25f;
    for (const FloatField& field : kFloats) {
        (block.*field.set)(value);
        value += 1.25f;
    }
    const short* shortValue = kShortValues;
    for (const ShortField& field : kShorts)
        (block.*field.set)(*shortValue++);
}

} // namespace

TEST(IqOp3RfmCalibDataMiscV20, NewBlockHoldsIdAndSizeAndZeros) {
    V20 block;
    const QByteArray image = block.getByteArrayData();
    ASSERT_EQ(image.size(), 116);
    EXPECT_EQ(hex(image.left(8)), "4b 28 74 00 00 00 00 00");
    EXPECT_EQ(image.mid(8), QByteArray(108, '\0'));
}

TEST(IqOp3RfmCalibDataMiscV20, EveryFieldHasItsOwnOffset) {
    ServiceRecorders services;
    V20 block;
    for (const FloatField& field : kFloats) {
        const QByteArray before = block.getByteArrayData();
        const float value = 1000.0f + field.offset;
        (block.*field.set)(value);
        const QByteArray after = block.getByteArrayData();
        EXPECT_EQ(valueAt<float>(after, field.offset), value) << field.offset;
        EXPECT_EQ((block.*field.get)(), value) << field.offset;
        // Only the field and the checksum change.
        EXPECT_EQ(after.left(4) + after.mid(6, field.offset - 6) + after.mid(field.offset + 4),
                  before.left(4) + before.mid(6, field.offset - 6) + before.mid(field.offset + 4));
        EXPECT_TRUE(block.verifyChecksum());
    }
    for (const ShortField& field : kShorts) {
        (block.*field.set)(static_cast<short>(-field.offset));
        EXPECT_EQ(valueAt<short>(block.getByteArrayData(), field.offset), -field.offset);
        EXPECT_EQ((block.*field.get)(), -field.offset);
        EXPECT_TRUE(block.verifyChecksum());
    }
    EXPECT_EQ(block.getByteArrayData().size(), 116);
}

TEST(IqOp3RfmCalibDataMiscV20, PrintsEveryFieldWithItsPaddedLabel) {
    ServiceRecorders services;
    V20 block;
    fillAll(block);
    EXPECT_EQ(printed(block), golden("calib/IqOp3RfmCalibDataMiscV20.txt"));
}
