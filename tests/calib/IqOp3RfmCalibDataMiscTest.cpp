// IQ modulator misc block, first form: image layout, setters, record import and text form.
#include "CalibTestSupport.h"
#include "support/Recorders.h"

#include <HwDatablockIqOp3RfmCalibDataMisc.h>

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
    sealRecord(record);
    return record;
}

} // namespace

TEST(IqOp3RfmCalibDataMisc, NewBlockHoldsIdAndSizeAndZeros) {
    Misc block;
    const QByteArray image = block.getByteArrayData();
    ASSERT_EQ(image.size(), 168);
    EXPECT_EQ(hex(image.left(8)), "3d 28 a8 00 00 00 00 00");
    EXPECT_EQ(image.mid(8), QByteArray(160, '\0'));
}

TEST(IqOp3RfmCalibDataMisc, SettersStoreAtTheirOffsetsAndRefreshTheChecksum) {
    ServiceRecorders services;
    Misc block;
    block.setToleranceLevPre(0x0102);
    block.setToleranceLevAtt_15(0x0304);
    block.setToleranceLevAtt_30_45(0x0506);
    block.setToleranceDetAtt(0x0708);
    block.setDetFullScale(-1.5f);
    block.setNumberOfOperatingStates(8);
    block.setPmaxBz(1280, 0);
    block.setPmaxBz(7, 11);
    block.setUiqBz(0.25f, 11);
    block.setLconReserveBz(0xA1A2, 0);
    block.setDetReserveBz(0xB1B2, 11);
    EXPECT_TRUE(block.verifyChecksum());

    const QByteArray image = block.getByteArrayData();
    EXPECT_EQ(hex(image.mid(8, 8)), "02 01 04 03 06 05 08 07");
    EXPECT_EQ(valueAt<float>(image, 16), -1.5f);
    EXPECT_EQ(valueAt<quint32>(image, 20), 8u);
    EXPECT_EQ(valueAt<float>(image, 24), 1280.0f);
    EXPECT_EQ(valueAt<float>(image, 24 + 44), 7.0f);
    EXPECT_EQ(valueAt<float>(image, 72 + 44), 0.25f);
    EXPECT_EQ(valueAt<quint16>(image, 120), 0xA1A2);
    EXPECT_EQ(valueAt<quint16>(image, 144 + 22), 0xB1B2);
    // The getters are read through the printed section's golden text.

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
    block.setDataWithoutChecksumCheck(reinterpret_cast<const unsigned char*>(image.constData()),
                                      static_cast<unsigned>(image.size()));
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
    block.setDataWithoutChecksumCheck(reinterpret_cast<const unsigned char*>(image.constData()),
                                      static_cast<unsigned>(image.size()));
    EXPECT_EQ(block.getUiqBz(0), 3.0f);
    EXPECT_EQ(block.getUiqBz(1), 0.0f);
    EXPECT_EQ(block.getDetReserveBz(0), 0);
    block.setUiqBz(1.0f, 1);
    block.setDetReserveBz(9, 0);
    EXPECT_EQ(block.getByteArrayData(), image);
}

TEST(IqOp3RfmCalibDataMisc, SetBlockImportsAGoodRecordAndRejectsABadOne) {
    ServiceRecorders services;
    HwSDatablockIqOp3RfmCalibDataMisc record = sampleRecord();
    record.alignment = 4; // forced to 0 on import, while the record's checksum is kept
    sealRecord(record);

    Misc block;
    EXPECT_EQ(block.setBlock(&record), 0);
    EXPECT_TRUE(services.errors.signalled.empty());
    QByteArray expected = bytesOfRecord(record);
    putAt<quint16>(expected, 6, 0);
    EXPECT_EQ(hex(block.getByteArrayData()), hex(expected));
    EXPECT_EQ(block.getChecksum(), record.checksum);
    EXPECT_EQ(block.getUiqBz(1), 1.23456789f);

    const QByteArray before = block.getByteArrayData();
    HwSDatablockIqOp3RfmCalibDataMisc broken = sampleRecord();
    broken.detReserveBz[5] ^= 1;
    EXPECT_EQ(block.setBlock(&broken), 1);
    EXPECT_EQ(block.setBlock(nullptr), 1);
    ASSERT_EQ(services.errors.signalled.size(), 2u);
    EXPECT_EQ(services.errors.signalled[0].first, 1040001);
    EXPECT_EQ(services.errors.signalled[0].second, "   HwDatablockIqOp3RfmCalibDataMisc");
    EXPECT_EQ(block.getByteArrayData(), before);
}

TEST(IqOp3RfmCalibDataMisc, SetBlockReplacesAShortOrLongImage) {
    ServiceRecorders services;
    const HwSDatablockIqOp3RfmCalibDataMisc record = sampleRecord();
    for (int length : {8, 300}) {
        Misc block;
        block.resizeData(static_cast<unsigned>(length));
        ASSERT_EQ(block.setBlock(&record), 0);
        EXPECT_EQ(block.getByteArrayData(), bytesOfRecord(record)) << length;
        EXPECT_TRUE(block.verifyChecksum());
    }
}

TEST(IqOp3RfmCalibDataMisc, PrintsTheCalibrationFileSection) {
    ServiceRecorders services;
    const HwSDatablockIqOp3RfmCalibDataMisc record = sampleRecord();
    Misc block;
    ASSERT_EQ(block.setBlock(&record), 0);
    EXPECT_EQ(printed(block), golden("IqOp3RfmCalibDataMisc.txt"));
}

TEST(IqOp3RfmCalibDataMisc, HugeStateCountStopsAtTheLastIndexableState) {
    Misc block;
    block.setNumberOfOperatingStates(0xFFFFFFFFu);
    const std::string text = printed(block);
    EXPECT_NE(text.find("COUNT_BZ:        4294967295\n"), std::string::npos);
    EXPECT_NE(text.find("\nDET_RESERVE_BZ255:             0\t dB\n"), std::string::npos);
    EXPECT_EQ(text.find("BZ256"), std::string::npos);
}
