// The further calibration blocks kept as opaque images, checked row by row against their list.
#include "CalibTestSupport.h"
#include "support/Recorders.h"

#include <HwDatablockMbrdExtLevCalDataFreq_Enh.h> // each class also has a header of its own
#include <HwOpaqueCalibBlocks.h>

#include <QFileInfo>
#include <functional>
#include <gtest/gtest.h>
#include <memory>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {

struct OpaqueRow {
    std::string name;
    unsigned id;
    std::function<std::unique_ptr<HwDatablock>()> make;
};

std::vector<OpaqueRow> listedRows() {
    return {
#define EPROM_OPAQUE_BLOCK(ClassName, firstId)                                                     \
    {#ClassName, firstId, [] { return std::unique_ptr<HwDatablock>(new ClassName); }},
#include <HwOpaqueCalibBlocks.def>
#undef EPROM_OPAQUE_BLOCK
    };
}

// The classes and first directory ids every caller relies on, written out independently.
const char* const kExpected[] = {
    "HwDatablockSsynOpuDblCoefficient 10001",
    "HwDatablockSsynOpuLevelFreq 10002",
    "HwDatablockSsynOpuLevel 10003",
    "HwDatablockIqOp3RfmHarmonic 10300",
    "HwDatablockIqOp3RfmCalibDataFreq 10302",
    "HwDatablockIqOp3RfmCalibData 10303",
    "HwDatablockIqOp3RfmCalibDataV20 10316",
    "HwDatablockCwOp3AmGainFreq 10500",
    "HwDatablockCwOp3AmGainData 10501",
    "HwDatablockSAtt3CalibDataFreq 10601",
    "HwDatablockSAtt3CalibDataAtt 10602",
    "HwDatablockSAtt3CalibDataTemp 10603",
    "HwDatablockIqOp6PmaxBz 10900",
    "HwDatablockIqOp6CalibDataFreq 10901",
    "HwDatablockIqOp6CalibData 10902",
    "HwDatablockSAtt6CalibDataAtt 11001",
    "HwDatablockSAtt6CalibDataFreq 11200",
    "HwDatablockSAtt6CalibDataTemp 11202",
    "HwDatablockPymMwIfExtLevCalDataFreq 12040",
    "HwDatablockPymMwIfExtLevCalData 12041",
    "HwDatablockPymMwIfExtLevCalDataAbsCorr 12042",
    "HwDatablockPymMwIfExtLevCalDataRelCorr 12043",
    "HwDatablockPymAttCalDatFreq 12044",
    "HwDatablockPymAttCalDat 12045",
    "HwDatablockPymAttCalDatFreqSe 12046",
    "HwDatablockPymAttCalDatSe 12047",
    "HwDatablockMbrdExtLevCalDataFreq 12050",
    "HwDatablockMbrdExtLevCalData 12060",
    "HwDatablockMbrdExtLevCalDataFreq_Enh 12070",
    "HwDatablockMbrdExtLevCalData_Enh 12080",
    "HwDatablockMbrdExtLevCalDataFreq2Edition_Enh 12090",
    "HwDatablockMbrdExtLevCalData2Edition_Enh 12095",
    "HwDatablockMbrdIqImbalanceRfFreq 12100",
    "HwDatablockMbrdIqImbalanceRfEvenAmp 12110",
    "HwDatablockMbrdIqImbalanceRfEvenPh 12120",
    "HwDatablockMbrdIqImbalanceRfOddAmp 12130",
    "HwDatablockMbrdIqImbalanceRfOddPh 12140",
    "HwDatablockMbrdExtLevCalDataFreq2Edition 12150",
    "HwDatablockMbrdExtLevCalData2Edition 12160",
    "HwDatablockAttCalDataFreq2Edition 12170",
    "HwDatablockAttCalData2Edition 12180",
    "HwDatablockCwop3DetTuneFreq 12190",
    "HwDatablockCwop3DetTuneDac 12200",
    "HwDatablockMbrdRfResponseLpFreq 12210",
    "HwDatablockMbrdRfResponseIoPepInfo 12220",
    "HwDatablockMbrdRfResponseLpAmp 12230",
    "HwDatablockMbrdRfResponseLpPh 12240",
    "HwDatablockMbrdRfResponseBbFreq 12250",
    "HwDatablockMbrdRfResponseAttFreq 12260",
    "HwDatablockMbrdRfResponseAttAmpl 12270",
    "HwDatablockCwopDetLinCorrFreq 12290",
    "HwDatablockCwopDetLinCorrData 12292",
    "HwDatablockBbinsCompFilterTabsI 13000",
    "HwDatablockBbinsCompFilterTabsQ 13050",
    "HwDatablockBbinsUncalibratedFirAmplitudeI 13100",
    "HwDatablockBbinsUncalibratedFirPhiI 13101",
    "HwDatablockBbinsUncalibratedFirAmplitudeQ 13102",
    "HwDatablockBbinsUncalibratedFirPhiQ 13103",
    "HwDatablockDacbFrequencyCompFreq 13500",
    "HwDatablockDacbFrequencyCompAmp 13600",
    "HwDatablockDacbFrequencyCompPh 13700",
    "HwDatablockDacbFrequencyCompDt 13800",
    "HwDatablockDacbIqImbalanceFreq 13900",
    "HwDatablockDacbIqImbalanceAmp 14000",
    "HwDatablockDacbIqImbalancePh 14100",
    "HwDatablockDacbIqImbalanceSwapAmp 14200",
    "HwDatablockDacbIqImbalanceSwapPh 14300",
    "HwDatablockDacbFrequencyCompAmpRear 14400",
    "HwDatablockDacbFrequencyCompPhRear 14500",
    "HwDatablockDacbFrequencyCompDtRear 14600",
    "HwDatablockDacbIqImbalanceRearAmp 14700",
    "HwDatablockDacbIqImbalanceRearPh 14800",
    "HwDatablockDetLimiterMaxVoltFreq 15020",
    "HwDatablockDetLimiterMaxVoltData 15021",
    "HwDatablockAduLevCoarseCalibData 15650",
    "HwDatablockAduGainOffsetCalData 15652",
    "HwDatablockWEXDelay 0",
    "HwWexDatablockAnalogOutputCalibration 0",
};

} // namespace

TEST(OpaqueCalibBlocks, ListNamesEveryClassWithItsFirstIdAndHeader) {
    const std::vector<OpaqueRow> rows = listedRows();
    ASSERT_EQ(rows.size(), sizeof kExpected / sizeof kExpected[0]);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows[i].name + " " + std::to_string(rows[i].id), kExpected[i]);
        const QString header =
            QString(EPROM_SOURCE_DIR "/include/%1.h").arg(QString::fromStdString(rows[i].name));
        EXPECT_TRUE(QFileInfo(header).isFile()) << rows[i].name;
    }
}

TEST(OpaqueCalibBlocks, NewBlockIsAValidHeaderWithTheFirstId) {
    ServiceRecorders services;
    for (const OpaqueRow& row : listedRows()) {
        auto block = row.make();
        const unsigned short check = static_cast<unsigned short>(-(row.id + 8));
        EXPECT_EQ(block->getByteArrayData(), bytesOf({int(row.id & 0xFF), int(row.id >> 8), 8, 0,
                                                      check & 0xFF, check >> 8, 0, 0}))
            << row.name;
        EXPECT_TRUE(block->verifyChecksum()) << row.name;
        EXPECT_FALSE(block->getStopConversionOnError());
    }
    HwDatablockWEXDelay stopping(true);
    EXPECT_TRUE(stopping.getStopConversionOnError());
    EXPECT_EQ(hex(HwDatablockIqOp3RfmCalibData().getByteArrayData()), "3f 28 08 00 b9 d7 00 00");
}

TEST(OpaqueCalibBlocks, KeepTheImageAsGivenAndPrintItInHexForm) {
    ServiceRecorders services;
    for (const OpaqueRow& row : listedRows()) {
        // 70 bytes: the dump breaks after 61 of them.
        QByteArray image = freshImage(static_cast<unsigned short>(row.id), 70);
        for (int i = 8; i < image.size(); ++i)
            image[i] = static_cast<char>(i * 7);
        sealChecksum(image);

        auto block = row.make();
        EXPECT_TRUE(block->setData(image)) << row.name;
        EXPECT_EQ(block->getByteArrayData(), image) << row.name;
        EXPECT_EQ(printed(*block),
                  "\n" + image.left(61).toStdString() + "\n" + image.mid(61).toStdString() + "\n")
            << row.name;

        image[20] = static_cast<char>(image[20] + 1); // checksum now wrong: kept all the same
        EXPECT_FALSE(block->setData(image)) << row.name;
        EXPECT_EQ(block->getByteArrayData(), image) << row.name;
    }
}
