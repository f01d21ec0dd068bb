// IQ modulator misc block, version 2.0: field offsets and text form.
#include "support/Blocks.h"

#include <HwDatablockIqOp3RfmCalibDataMiscV20.h>

#include <gtest/gtest.h>

using namespace Tupsim;
using namespace Tupsim::test;

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
