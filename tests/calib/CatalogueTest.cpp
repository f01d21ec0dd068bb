// The calibration catalogue: classes named by the caller, the headed line form of the RF board
// blocks, the TCXO table, and every block kept as an opaque image.
#include "templates/TemplateTestSupport.h"

#include <BlockCatalogue.h>
#include <HwCalibTableBlocks.h>
#include <HwDatablockMbrdExtLevCalDataFreq_Enh.h> // each opaque class has a header of its own
#include <HwOpaqueCalibBlocks.h>

#include <QFileInfo>
#include <functional>
#include <memory>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {
// The image of a fresh block of the class after reading the printout of `source`.
template <typename Block> QByteArray readBack(Block& source) {
    Block fresh;
    EXPECT_EQ(readText(fresh, printed(source)), "");
    return fresh.getByteArrayData();
}

// The headed reader's complaints about `linesBetween` lines before the count and a missing row.
template <typename Block> std::string complaints(const char* key, int linesBetween) {
    std::string file = "ID:     " + std::string(key) + "\n";
    for (int i = 0; i < linesBetween; ++i)
        file += "stray\n";
    Block block;
    return readText(block, file + "COUNT:  2 * 1\n  1:  5.0\n\n");
}
struct OpaqueRow {
    const char* name;
    unsigned id;
    std::function<std::unique_ptr<HwDatablock>()> make;
};

const OpaqueRow kRows[] = {
#define EPROM_OPAQUE_BLOCK(ClassName, firstId)                                                     \
    {#ClassName, firstId, [] { return std::unique_ptr<HwDatablock>(new ClassName); }},
#include <HwOpaqueCalibBlocks.def>
#undef EPROM_OPAQUE_BLOCK
};
} // namespace

// The facts of each class are its catalogue row's; those named by the caller take name and
// instance.
TEST(CalibCatalogue, ClassesCarryTheirFactsAndTheRfBoardBlocksTheHeadedLineForm) {
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

    HwDatablockOroRfboRfLevelMaxData level; // hundredths of a dB print with their factor
    const int hundredths[] = {-1234, 550, 0, -321, 123, 1975};
    for (unsigned i = 0; i < 6; ++i)
        level.setCalValue(hundredths[i], i / 3, i % 3);
    level.setRowCount(2);
    level.setColCount(3);
    EXPECT_EQ(printed(level), "ID:  RFBO_RFLEVEL_MAX_DATA\nCOUNT:  2*3\n"
                              "1: \t-12.340\t5.500\t0.000\n2: \t-3.210\t1.230\t19.750\n\n");

    // The headed line form of the RF board blocks.
    HwDatablockKivRfboAttCalFreq freq; // 100 Hz units
    freq.setCalValue(1000.0, 0, 0);
    freq.setCalValue(2500.5, 1, 0);
    freq.setRowCount(2);
    freq.setColCount(1);
    EXPECT_EQ(printed(freq), golden("calib/kiv_att_cal_freq.txt"));
    EXPECT_EQ(readBack(freq), freq.getByteArrayData());
    HwDatablockKivRfboAttRegAttenuation attenuation;
    attenuation.setCalValue(0.25f, 0, 0);
    attenuation.setCalValue(31.75f, 0, 1);
    attenuation.setRowCount(1);
    attenuation.setColCount(2);
    EXPECT_EQ(printed(attenuation), golden("calib/kiv_attreg_attenuation.txt"));
    EXPECT_EQ(readBack(attenuation), attenuation.getByteArrayData());

    // Each class complains with its own texts and limit of lines (the frequency table's are
    // pinned with the headed line form).
    const std::string error = "ERROR: ";
    const std::string rows = error + "Number of rows read inadequate!\n";
    const std::string tooLarge = error + "Number of lines between ID: and COUNT: too large!\n";
    const std::string registerComplaints =
        error + "Number of lines between ID and Count to large\n" + error +
        "Row value (COUNT) don't not equal with number of rows\n";
    EXPECT_EQ(complaints<HwDatablockKivRfboTempCompFreq>("BLOCK_KIV_RFBO_TEMP_COMP_FREQ", 3),
              tooLarge + rows);
    EXPECT_EQ(complaints<HwDatablockKivRfboTempCompData>("BLOCK_KIV_RFBO_TEMP_COMP_DATA", 51),
              rows);
    EXPECT_EQ(
        complaints<HwDatablockKivRfboAttRegAttenuation>("BLOCK_KIV_RFBO_ATTREG_ATTENUATION", 6),
        registerComplaints);
    EXPECT_EQ(complaints<HwDatablockKivRfboAttRegData>("BLOCK_KIV_RFBO_ATTREG_DATA", 6),
              registerComplaints);

    // The register table prints the plain table form but reads the headed one.
    HwDatablockKivRfboAttRegData registers;
    registers.setCalValue(0x1F, 0, 1);
    registers.setRowCount(1);
    registers.setColCount(2);
    EXPECT_EQ(printed(registers), "ID:  KIV_RFBO_ATTREG_DATA\nCOUNT:  1*2\n1: \t0.000\t31.000\n\n");
    std::ostringstream headed;
    registers.conv2ascii(headed, registers);
    EXPECT_NE(headed.str().find("ID:     BLOCK_KIV_RFBO_ATTREG_DATA\n"), std::string::npos);
    HwDatablockKivRfboAttRegData back;
    EXPECT_EQ(readSection(back, headed.str()).message(), "ok");
    EXPECT_EQ(back.getByteArrayData(), registers.getByteArrayData());
    const TextReadStatus status = readSection(back, printed(registers));
    EXPECT_EQ(status.code, TextReadStatus::MissingKey);
    EXPECT_EQ(status.key, "BLOCK_KIV_RFBO_ATTREG_DATA");
    EXPECT_EQ(status.line, 4);

    // An indexed table of the family: one line past the limit of its own.
    HwDatablockKivRfboTempCompData data;
    const QByteArray before = data.getByteArrayData();
    std::string file = "ID:     BLOCK_KIV_RFBO_TEMP_COMP_DATA\n";
    for (int i = 0; i < 52; ++i)
        file += "stray\n";
    EXPECT_EQ(readSection(data, file + "COUNT:  1 * 51\n").message(),
              "line 54: column count 51 above the capacity 50; line 53: ERROR: Number of lines "
              "between ID: and COUNT: too large!; line 54: ERROR: Number of rows read inadequate!");
    EXPECT_EQ(data.getByteArrayData(), before);
}

TEST(CalibCatalogue, TcxoTableAndOpaqueBlocks) {
    ServiceRecorders services;
    HwDatablockOroRfboTcxoCal tcxo;
    tcxo.setRowCount(12);
    tcxo.setColCount(3);
    EXPECT_EQ(tcxo.getRowCount(), 8u);
    EXPECT_EQ(tcxo.getColCount(), 3u);
    EXPECT_EQ(tcxo.setTcxoValue(-4711, 7), 0);
    EXPECT_EQ(hex(tcxo.getByteArrayData().mid(16 + 7 * 4, 4)), "99 ed ff ff");
    EXPECT_TRUE(tcxo.verifyChecksum());
    const QByteArray before = tcxo.getByteArrayData();
    EXPECT_EQ(tcxo.setTcxoValue(1, 8), -1);
    EXPECT_EQ(tcxo.setTcxoValue(1, -1), -1);
    EXPECT_EQ(tcxo.getByteArrayData(), before);
    EXPECT_TRUE(services.errors.signalled.empty());

    // Their first ids are checked against the directory's own registrations in the catalogue's.
    // Past the header they are plain blocks: their dump and setData are the base class's.
    ASSERT_EQ(sizeof kRows / sizeof kRows[0], 78u);
    for (const OpaqueRow& row : kRows) {
        EXPECT_TRUE(QFileInfo(QString(EPROM_SOURCE_DIR "/include/%1.h").arg(row.name)).isFile())
            << row.name;
        auto block = row.make();
        EXPECT_EQ(hex(block->getByteArrayData()),
                  hex(sealed(freshImage(static_cast<unsigned short>(row.id), 8))))
            << row.name;
        EXPECT_FALSE(block->getStopConversionOnError());
        if (row.id != 0) { // the catalogue makes the same class for the id and calls it opaque
            EXPECT_EQ(typeid(*blockCatalogue::makeBlock(row.id, QByteArray())), typeid(*block));
            EXPECT_EQ(blockCatalogue::kindOf(row.id), BlockKind::Opaque) << row.name;
        }
    }
    HwDatablockWEXDelay stopping(true);
    EXPECT_TRUE(stopping.getStopConversionOnError());
}
