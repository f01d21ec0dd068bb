// The table-based calibration catalogue: name, id, factor and size of chosen classes, the
// text form of each template kind with its factor, the headed line form (also read by readSection)
// and the TCXO table.
#include "support/Blocks.h"

#include <HwCalibTableBlocks.h>

#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <sstream>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {

// What every catalogue block reports about itself through its common operations.
struct Facts {
    unsigned id;
    unsigned size;
    std::string name;
    double factor;
    int instance;
};

template <typename Block> Facts factsOf(Block& block) {
    return {block.getId(), block.getBlockSize(), block.getName(), block.getFactor(),
            block.getInstance()};
}

template <typename Block> Facts make() {
    Block block(false);
    return factsOf(block);
}

struct Row {
    std::function<Facts()> construct;
    const char* name;
    unsigned id;
    double factor;
    unsigned size;
};

// One class of each template kind and the unusual factors and names; sizes worked out by hand
// from each layout.
const Row kRows[] = {
    {make<HwDatablockSAttCTempFreq>, "SATT_TEMP_FREQ", 11305, 100, 216},
    {make<HwDatablockMbrdExtCalUserDataA>, "EXT_CAL_USER_DATA_A", 14805, 1, 15776},
    {make<HwDatablockStereocoderCo>, "STEREOCODER_CO", 15690, 1, 28},
    {make<HwDatablockOroRfboDetTuneFreq>, "RFBO_DET_TUNE_FREQ", 15705, 100, 528},
    {make<HwDatablockOroRfboRfLevelMaxData>, "RFBO_RFLEVEL_MAX_DATA", 15716, 0.01, 1040},
    {make<HwDatablockOroRfboAttCalData>, "RFBO_ATT_CAL_DATA", 15721, 1, 21724},
    {make<HwDatablockOroRfboSHFreq>, "RFBO_S_H_FREQ", 15755, 10, 616},
    {make<HwDatablockKivRfboAttCalFreq>, "BLOCK_KIV_RFBO_ATT_CAL_FREQ", 15760, 100, 1616},
    {make<HwDatablockKivRfboTempCompFreq>, "BLOCK_KIV_RFBO_TEMP_COMP_FREQ", 15770, 1, 416},
    {make<HwDatablockTeshVectorAlcData>, "VECTOR_ALC_DATA", 15811, 100, 528},
    {make<HwDatablockTeshRfboAttCalVecFreq>, "RFBO_ATT_CAL_VEC_FREQ", 15842, 1, 96},
    {make<HwDatablockTeshRfboExtCalVecUserData>, "RFBO_EXT_CAL_VEC_USER_DATA", 16003, 1, 5776},
};

} // namespace

TEST(CalibCatalogue, ClassesCarryTheirNameIdFactorAndSize) {
    for (const Row& row : kRows) {
        const Facts facts = row.construct();
        EXPECT_EQ(facts.name, row.name);
        EXPECT_EQ(facts.id, row.id) << row.name;
        EXPECT_EQ(facts.size, row.size) << row.name;
        EXPECT_DOUBLE_EQ(facts.factor, row.factor) << row.name;
        EXPECT_EQ(facts.instance, 0) << row.name;
    }
}

TEST(CalibCatalogue, CallerNamedClassesTakeNameAndInstance) {
    char wexName[] = "WEX_IQ_RF_IMBALANCE";
    HwDatablockWexWiqRfImbalanceData wex(wexName, 2, false);
    EXPECT_STREQ(wex.getName(), "WEX_IQ_RF_IMBALANCE");
    EXPECT_EQ(wex.getId(), 15608u); // id + instance
    EXPECT_EQ(wex.getBlockSize(), 1416);
    EXPECT_EQ(wex.getInstance(), 2);
    HwDatablockTeshVectorLevconTempData levcon("VECTOR_LEVCON_TEMP_DATA", 9, true);
    EXPECT_EQ(levcon.getId(), 15862u);
    EXPECT_EQ(levcon.getBlockSize(), 6416);
    EXPECT_TRUE(levcon.getStopConversionOnError());
}

namespace {

// Prints `source`, reads the text into a fresh block of the same class and returns its image.
template <typename Block> QByteArray readBack(Block& source, Block& fresh) {
    std::stringstream text(printed(source));
    fresh.searchascii(text, fresh);
    return fresh.getByteArrayData();
}

} // namespace

TEST(CalibCatalogue, EachTemplateKindPrintsWithItsFactor) {
    ServiceRecorders services;
    HwDatablockOroRfboAlcFreq freq; // vector, factor 100
    freq.setRowCount(3);
    freq.setColCount(1);
    const unsigned points[] = {100000, 2500000, 60000000}; // 10 MHz, 250 MHz, 6 GHz in 100 Hz
    for (unsigned r = 0; r < 3; ++r)
        freq.setCalValue(points[r], r, 0);
    EXPECT_DOUBLE_EQ(freq.getCalValue(0, 0), 10000000.0);
    EXPECT_EQ(printed(freq), "ID:  RFBO_ALC_FREQ\nCOUNT:  3*1\n1:  10000000.000\n"
                             "2:  250000000.000\n3:  6000000000.000\n\n");

    HwDatablockOroRfboRfLevelMaxData level; // 2 x 128 of hundredths of a dB
    level.setRowCount(2);
    level.setColCount(3);
    const int hundredths[2][3] = {{-1234, 550, 0}, {-321, 123, 1975}};
    for (unsigned r = 0; r < 2; ++r)
        for (unsigned c = 0; c < 3; ++c)
            level.setCalValue(hundredths[r][c], r, c);
    EXPECT_DOUBLE_EQ(level.getCalValue(0, 0), -12.34);
    EXPECT_EQ(printed(level), "ID:  RFBO_RFLEVEL_MAX_DATA\nCOUNT:  2*3\n"
                              "1: \t-12.340\t5.500\t0.000\n2: \t-3.210\t1.230\t19.750\n\n");
    HwDatablockOroRfboRfLevelMaxData levelBack;
    EXPECT_EQ(readBack(level, levelBack), level.getByteArrayData());
    // 19.99 dB divided by 0.01 is 1998.99...: the reader cuts toward zero, it does not round
    level.setCalValue(1999, 1, 2);
    readBack(level, levelBack);
    EXPECT_EQ(levelBack.getCalValue(1, 2), 19.98);

    HwDatablockOroRfboAttCalData indexed; // rows carry an index of their own
    indexed.setRowCount(2);
    indexed.setColCount(2);
    indexed.setIndex(-10, 0);
    indexed.setIndex(30, 1);
    indexed.setCalValue(7, 0, 0);
    indexed.setCalValue(-8, 0, 1);
    indexed.setCalValue(9, 1, 0);
    indexed.setCalValue(10, 1, 1);
    EXPECT_EQ(printed(indexed), "ID:  RFBO_ATT_CAL_DATA\nCOUNT:  2*2\n"
                                "-10: \t7.000\t-8.000\n30: \t9.000\t10.000\n\n");

    char wexName[] = "WEX_IQ_RF_IMBALANCE";
    HwDatablockWexWiqRfImbalanceData wex(wexName, 0, false);
    wex.setRowCount(1);
    wex.setColCount(2);
    wex.setCalValue(0.5f, 0, 0);
    wex.setCalValue(-1.25f, 0, 1);
    EXPECT_EQ(printed(wex), "ID:  WEX_IQ_RF_IMBALANCE\nCOUNT:  1*2\n"
                            "1: \t0.5000000000\t-1.2500000000\n\n");
}

namespace {

// The complaints the headed line form reader writes for a section with too many lines between
// the id and the count line and one row fewer than announced.
template <typename Block> std::string complaints(const char* key, int linesBetween) {
    std::string file = "ID:     " + std::string(key) + "\n";
    for (int i = 0; i < linesBetween; ++i)
        file += "stray\n";
    file += "COUNT:  2 * 1\n  1:  5.0\n\n";
    std::stringstream in(file);
    Block block;
    testing::internal::CaptureStdout();
    block.searchascii(in, block);
    return testing::internal::GetCapturedStdout();
}

} // namespace

TEST(CalibCatalogue, HeadedLineFormOfTheRfBoardBlocks) {
    ServiceRecorders services;
    HwDatablockKivRfboAttCalFreq freq; // 100 Hz units
    freq.setRowCount(2);
    freq.setColCount(1);
    freq.setCalValue(1000.0, 0, 0);
    freq.setCalValue(2500.5, 1, 0);
    EXPECT_EQ(printed(freq), golden("calib/kiv_att_cal_freq.txt"));
    HwDatablockKivRfboAttCalFreq freqBack;
    EXPECT_EQ(readBack(freq, freqBack), freq.getByteArrayData());

    HwDatablockKivRfboAttRegAttenuation attenuation;
    attenuation.setRowCount(1);
    attenuation.setColCount(2);
    attenuation.setCalValue(0.25f, 0, 0);
    attenuation.setCalValue(31.75f, 0, 1);
    EXPECT_EQ(printed(attenuation), golden("calib/kiv_attreg_attenuation.txt"));
    HwDatablockKivRfboAttRegAttenuation attenuationBack;
    EXPECT_EQ(readBack(attenuation, attenuationBack), attenuation.getByteArrayData());

    // the register table prints the plain table form but reads the headed one
    HwDatablockKivRfboAttRegData registers;
    registers.setRowCount(1);
    registers.setColCount(1);
    registers.setCalValue(0x1F, 0, 0);
    EXPECT_EQ(printed(registers), "ID:  KIV_RFBO_ATTREG_DATA\nCOUNT:  1*1\n1: \t31.000\n\n");
    std::ostringstream headed;
    registers.conv2ascii(headed, registers);
    EXPECT_NE(headed.str().find("ID:     BLOCK_KIV_RFBO_ATTREG_DATA\n"), std::string::npos);

    const std::string error = "ERROR: ";
    EXPECT_EQ(complaints<HwDatablockKivRfboAttCalFreq>("BLOCK_KIV_RFBO_ATT_CAL_FREQ", 3),
              error + "Number of lines between ID: and COUNT: to large!\n" + error +
                  "Number of rows read inadequate!\n");
    EXPECT_EQ(complaints<HwDatablockKivRfboAttCalFreq>("BLOCK_KIV_RFBO_ATT_CAL_FREQ", 2),
              error + "Number of rows read inadequate!\n");
    EXPECT_EQ(complaints<HwDatablockKivRfboTempCompFreq>("BLOCK_KIV_RFBO_TEMP_COMP_FREQ", 3),
              error + "Number of lines between ID: and COUNT: too large!\n" + error +
                  "Number of rows read inadequate!\n");
    EXPECT_EQ(complaints<HwDatablockKivRfboTempCompData>("BLOCK_KIV_RFBO_TEMP_COMP_DATA", 51),
              error + "Number of rows read inadequate!\n");
    EXPECT_EQ(complaints<HwDatablockKivRfboTempCompData>("BLOCK_KIV_RFBO_TEMP_COMP_DATA", 52),
              error + "Number of lines between ID: and COUNT: too large!\n" + error +
                  "Number of rows read inadequate!\n");
    EXPECT_EQ(
        complaints<HwDatablockKivRfboAttRegAttenuation>("BLOCK_KIV_RFBO_ATTREG_ATTENUATION", 6),
        error + "Number of lines between ID and Count to large\n" + error +
            "Row value (COUNT) don't not equal with number of rows\n");
    EXPECT_EQ(complaints<HwDatablockKivRfboAttRegData>("BLOCK_KIV_RFBO_ATTREG_DATA", 6),
              error + "Number of lines between ID and Count to large\n" + error +
                  "Row value (COUNT) don't not equal with number of rows\n");
}

TEST(CalibCatalogue, RfBoardBlocksReadTheirHeadedSectionsBackWithReadSection) {
    ServiceRecorders services;
    // The register table reads the headed form, not the plain form it prints.
    HwDatablockKivRfboAttRegData registers;
    registers.setRowCount(1);
    registers.setColCount(2);
    registers.setCalValue(0x1F, 0, 1);
    std::stringstream headed;
    registers.conv2ascii(headed, registers);
    HwDatablockKivRfboAttRegData back;
    testing::internal::CaptureStdout();
    TextReadStatus status = back.readSection(headed, back);
    EXPECT_TRUE(status.ok()) << status.message();
    EXPECT_EQ(back.getByteArrayData(), registers.getByteArrayData());
    std::istringstream plain(printed(registers));
    status = back.readSection(plain, back);
    EXPECT_EQ(status.code, TextReadStatus::MissingKey);
    EXPECT_EQ(status.key, "BLOCK_KIV_RFBO_ATTREG_DATA");
    EXPECT_EQ(status.line, 4);

    // An indexed table of the family: complaints with the limit of its own.
    HwDatablockKivRfboTempCompData data;
    const QByteArray before = data.getByteArrayData();
    std::string file = "ID:     BLOCK_KIV_RFBO_TEMP_COMP_DATA\n";
    for (int i = 0; i < 52; ++i)
        file += "stray\n";
    std::istringstream in(file + "COUNT:  1 * 51\n");
    status = data.readSection(in, data);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(status.message(), "line 54: column count 51 above the capacity 50; line 53: ERROR: "
                                "Number of lines between ID: and COUNT: too large!; line 54: "
                                "ERROR: Number of rows read inadequate!");
    EXPECT_EQ(data.getByteArrayData(), before);
}

TEST(CalibCatalogue, TcxoTableClampsCountsAndChecksItsValues) {
    ServiceRecorders services;
    HwDatablockOroRfboTcxoCal tcxo;
    tcxo.setRowCount(12);
    tcxo.setColCount(3);
    EXPECT_EQ(tcxo.getRowCount(), 8u);
    EXPECT_EQ(tcxo.getColCount(), 3u);
    EXPECT_TRUE(tcxo.verifyChecksum());

    EXPECT_EQ(tcxo.setTcxoValue(-4711, 7), 0);
    EXPECT_EQ(hex(tcxo.getByteArrayData().mid(16 + 7 * 4, 4)), "99 ed ff ff");
    EXPECT_TRUE(tcxo.verifyChecksum());
    const QByteArray before = tcxo.getByteArrayData();
    EXPECT_EQ(tcxo.setTcxoValue(1, 8), -1);
    EXPECT_EQ(tcxo.setTcxoValue(1, -1), -1);
    EXPECT_EQ(tcxo.getByteArrayData(), before);
    EXPECT_TRUE(services.errors.signalled.empty());
}
