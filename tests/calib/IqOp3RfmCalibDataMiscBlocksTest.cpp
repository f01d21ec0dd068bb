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

// The record of the golden printout: tolerances, full scale, state count, PMAX, UIQ, LCON, DET.
const HwSDatablockIqOp3RfmCalibDataMisc kSample = sealed(stored(
    HwSDatablockIqOp3RfmCalibDataMisc{
        10301, 168, 0, 0, 640, 200, 64, 383,  2.5f,        13,   1280.0f, 1280.9f, -640.0f, 0, 0,
        0,     0,   0, 0, 0,   0,   0,  0.5f, 1.23456789f, 1e8f, 0,       0,       0,       0, 0,
        0,     0,   0, 0, 640, 127, 0,  0,    0,           0,    0,       0,       0,       0, 0,
        65535, 3,   0, 0, 0,   0,   0,  0,    0,           0,    0,       0,       65535},
    {{8, 2, 4}, {16, 4, 26}, {120, 2, 24}}));

// The scalar fields and the last element of each array.
const struct {
    const char* what;
    std::function<void(Misc&)> set;
    int offset;
    QByteArray bytes; // what the setter stores there
} kFields[] = {
    {"lev pre", [](Misc& b) { b.setToleranceLevPre(0x0102); }, 8, bytesOf({2, 1})},
    {"lev att 15", [](Misc& b) { b.setToleranceLevAtt_15(0x0304); }, 10, bytesOf({4, 3})},
    {"lev att 30", [](Misc& b) { b.setToleranceLevAtt_30_45(0x0506); }, 12, bytesOf({6, 5})},
    {"det att", [](Misc& b) { b.setToleranceDetAtt(0x0708); }, 14, bytesOf({8, 7})},
    {"full scale", [](Misc& b) { b.setDetFullScale(-1.5f); }, 16, bytesOf({0, 0, 0xc0, 0xbf})},
    {"states", [](Misc& b) { b.setNumberOfOperatingStates(8); }, 20, bytesOf({8, 0, 0, 0})},
    {"pmax 11", [](Misc& b) { b.setPmaxBz(7, 11); }, 68, bytesOf({0, 0, 0xe0, 0x40})},
    {"uiq 11", [](Misc& b) { b.setUiqBz(0.25f, 11); }, 116, bytesOf({0, 0, 0x80, 0x3e})},
    {"lcon 11", [](Misc& b) { b.setLconReserveBz(0xA3A4, 11); }, 142, bytesOf({0xA4, 0xA3})},
    {"det 11", [](Misc& b) { b.setDetReserveBz(0xB3B4, 11); }, 166, bytesOf({0xB4, 0xB3})}};

} // namespace

TEST(IqOp3RfmCalibDataMisc, FieldsShortImagesAndTheTextForm) {
    ServiceRecorders services;
    Misc block;
    EXPECT_EQ(block.getByteArrayData(),
              bytesOf({0x3d, 0x28, 0xa8, 0, 0, 0, 0, 0}) + QByteArray(160, 0));
    for (const auto& field : kFields) {
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
    // A huge state count prints up to the last indexable state.
    block.setNumberOfOperatingStates(0xFFFFFFFFu);
    const std::string text = printed(block);
    EXPECT_NE(text.find("COUNT_BZ:        4294967295\n"), std::string::npos);
    EXPECT_NE(text.find("\nDET_RESERVE_BZ255:             0\t dB\n"), std::string::npos);
    EXPECT_EQ(text.find("BZ256"), std::string::npos);

    for (int length : {8, 300}) {
        Misc shortBlock;
        shortBlock.resizeData(static_cast<unsigned>(length));
        ASSERT_EQ(shortBlock.setBlock(&kSample), 0);
        EXPECT_EQ(shortBlock.getByteArrayData(), recordBytes(kSample)) << length;
        EXPECT_TRUE(shortBlock.verifyChecksum());
        EXPECT_EQ(printed(shortBlock), golden("calib/IqOp3RfmCalibDataMisc.txt"));
    }
    // Ends right after the first UIQ value: later fields are missing. PMAX is cut to 16 bits.
    Misc shortBlock;
    QByteArray shortImage = shortBlock.getByteArrayData().left(76);
    putAt<float>(shortImage, 24, 1280.9f);
    putAt<float>(shortImage, 28, -1.0f);
    putAt<float>(shortImage, 32, 65537.5f);
    putAt<float>(shortImage, 72, 3.0f);
    load(shortBlock, shortImage);
    EXPECT_EQ(shortBlock.getPmaxBz(0), 1280);
    EXPECT_EQ(shortBlock.getPmaxBz(1), 0xFFFF);
    EXPECT_EQ(shortBlock.getPmaxBz(2), 1);
    EXPECT_EQ(shortBlock.getUiqBz(0), 3.0f);
    EXPECT_EQ(shortBlock.getUiqBz(1), 0.0f);
    EXPECT_EQ(shortBlock.getDetReserveBz(0), 0);
    shortBlock.setUiqBz(1.0f, 1);
    shortBlock.setDetReserveBz(9, 0);
    EXPECT_EQ(shortBlock.getByteArrayData(), shortImage);
}

namespace {
using V20 = HwDatablockIqOp3RfmCalibDataMiscV20;
// clang-format off
#define FIELD(name) {&V20::set##name, &V20::get##name}
// In the order of the image: floats from byte 8, then 16-bit values from byte 108.
const struct {
    void (V20::*set)(float);
    float (V20::*get)() const;
} kFloats[] = {
    FIELD(LmaxLow), FIELD(LmaxMed), FIELD(LmaxHigh), FIELD(LmaxOvr), FIELD(LcalSensLow),
    FIELD(LcalSensMed), FIELD(LcalSensHigh), FIELD(LcalSensOvr), FIELD(VcalSensLow),
    FIELD(VcalSensMed), FIELD(VcalSensHigh), FIELD(VcalSensOvr), FIELD(LrangeCwNorm),
    FIELD(LrangeCwOvr), FIELD(LrangeIqNorm), FIELD(LrangeIqOvr), FIELD(Uiq),
    FIELD(LconReserveCwNorm), FIELD(LconReserveCwOvr), FIELD(LconReserveIqNorm),
    FIELD(LconReserveIqOvr), FIELD(LpreCalLevCwNorm), FIELD(LpreCalLevCwOvr),
    FIELD(LpreCalLevIqNorm), FIELD(LpreCalLevIqOvr)};
const struct {
    void (V20::*set)(short);
    short (V20::*get)() const;
} kShorts[] = {FIELD(DetattLow), FIELD(DetattMed), FIELD(DetattHigh), FIELD(DetattOvr)};
// clang-format on
#undef FIELD
} // namespace

TEST(IqOp3RfmCalibDataMiscV20, EveryFieldHasItsOwnOffsetAndPaddedLabel) {
    ServiceRecorders services;
    V20 block;
    QByteArray expected = freshImage(10315, 116);
    EXPECT_EQ(hex(block.getByteArrayData()), hex(expected));
    // Field k of the floats holds (k + 1) * 1.25, the 16-bit fields -1, 32767, -32768 and 0.
    for (int k = 0; k < 25; ++k) {
        (block.*kFloats[k].set)(1.25f * (k + 1));
        putAt<float>(expected, 8 + 4 * k, 1.25f * (k + 1));
        EXPECT_EQ((block.*kFloats[k].get)(), 1.25f * (k + 1)) << k;
        EXPECT_TRUE(block.verifyChecksum());
    }
    const short shorts[] = {-1, 32767, -32768, 0};
    for (int k = 0; k < 4; ++k) {
        (block.*kShorts[k].set)(shorts[k]);
        putAt<short>(expected, 108 + 2 * k, shorts[k]);
        EXPECT_EQ((block.*kShorts[k].get)(), shorts[k]) << k;
    }
    sealChecksum(expected);
    EXPECT_EQ(hex(block.getByteArrayData()), hex(expected));
    EXPECT_EQ(printed(block), golden("calib/IqOp3RfmCalibDataMiscV20.txt"));
}
