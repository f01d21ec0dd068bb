// The indexed line form and the headed line form: exact output, reading back, bounds, the
// complaints written to standard output, and readSection that keeps them instead.
#include "TemplateTestSupport.h"

#include <HwCalibTableBlocks.h>
#include <HwDatablockBaseTemplateIndex.h>

#include <algorithm>
#include <tuple>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {
using AttCalVec = HwDatablockBaseTemplateIndex<int, int, 27, 20>;
const char* const kName = "RFBO_ATT_CAL_VEC_DATA";
const std::string kId = "ID:  RFBO_ATT_CAL_VEC_DATA\n";

// The complaints as printed, without their line end.
const std::string kTooMany = "ERROR: Number of lines between ID and Count to large";
const std::string kNoId = "ERROR: FOUND NO ID !";
const std::string kNoCount = "ERROR: FOUND NO COUNT VALUES !";
const std::string kRowCount = "ERROR: Row value (COUNT) don't not equal with number of rows";
std::string badRow(int n) {
    return "ERROR: In Row =" + std::to_string(n) +
           " correspondent the number of columns not with the given value";
}

AttCalVec attCalVec(double factor = 1.0) {
    return AttCalVec(kName, 15843, 0, factor, false);
}

std::string headedSection(const std::string& betweenIdAndCount, const std::string& counts) {
    return "#   title\nID:     BLOCK_KIV_RFBO_ATT_CAL_FREQ\n" + betweenIdAndCount +
           "COUNT:  " + counts + "\n  1:  250.0\n\n";
}
} // namespace

TEST(LineForm, IndexedRowsRoundTripComplaintsAndValuesAsWritten) {
    ServiceRecorders services;
    AttCalVec source = attCalVec();
    EXPECT_EQ(printed(source), kId + "COUNT:  0*0\n\n");
    const int cells[2][3] = {{1, 2, 3}, {-40, 0, 600}};
    for (unsigned r = 0; r < 2; ++r)
        for (unsigned c = 0; c < 3; ++c)
            source.setCalValue(cells[r][c], r, c);
    source.setIndex(5, 0);
    source.setIndex(-7, 1);
    source.setRowCount(2);
    source.setColCount(3);
    const std::string printout = printed(source);
    EXPECT_EQ(printout, golden("templates/line_index.txt"));
    AttCalVec twin = attCalVec();
    for (int pass = 0; pass < 2; ++pass) { // a second read rewinds
        EXPECT_EQ(readText(twin, printout), "");
        EXPECT_EQ(twin.getByteArrayData(), source.getByteArrayData());
    }
    // Complaints go to standard output; rows take their index and values as written.
    AttCalVec block = attCalVec();
    const std::string six = "a\nb\nc\nd\ne\nf\n";
    const std::string row = "COUNT:  1*1\n1: 5\n";
    const struct {
        std::string text;
        std::string complaints;
        int cell;                                       // (0, 0) after the read
    } cases[] = {{kId + six + row, kTooMany + "\n", 5}, // the search goes on
                 {kId + six + "g\n" + row, kTooMany + "\n" + kTooMany + "\n", 5},
                 {kId + "# comments\n#\n\na\nb\nc\nd\ne\n" + row, "", 5}, // not counted
                 {kId + "COUNT:  2*3\n1: 1 2 3\n2: 4 5\n", badRow(2) + "\n", 1},
                 {kId + "COUNT:  3*1\n1: 5\n", kRowCount + "\n", 5},
                 {kId + "COUNT:1*1\n1: 5\n", "", 5}, // no blank after the keyword
                 // The comment is cut before the id keyword and the name are looked for.
                 {"# ID:  RFBO_ATT_CAL_VEC_DATA\n" + row, kNoId + "\n", 0},
                 {"ID:  RFBO_ATT_CAL_VEC_DATA # note\n" + row, "", 5}};
    for (const auto& c : cases) {
        EXPECT_EQ(readText(block, c.text), c.complaints) << c.text;
        EXPECT_EQ(block.getCalValue(0, 0), c.cell) << c.text;
    }
    EXPECT_EQ(readText(block, kId + "\n\n"), kNoCount + "\n");
    EXPECT_EQ(block.getId(), 15843u);
    EXPECT_EQ(block.getRowCount(), 0u);
    EXPECT_EQ(readText(block, row), kNoId + "\n");
    EXPECT_EQ(block.getId(), 0u);
    EXPECT_TRUE(block.verifyChecksum());
    // A row with index 3 and two values under a count line of three columns.
    EXPECT_EQ(readText(block, kId + "COUNT:  1*3\n3: \t10\t20\n"), badRow(1) + "\n");
    EXPECT_EQ(block.getIndex(0), 3);
    EXPECT_EQ(hex(block.getByteArrayData().mid(8, 20)),
              "01 00 00 00 03 00 00 00 0a 00 00 00 14 00 00 00 00 00 00 00");
    // "7.000" is an integer, "5.5" ends the row after the 5, a line without ':' ends the rows.
    EXPECT_EQ(readText(block, kId + "COUNT: 2*2\n-1: 7.000 8.000\n2: 5.5 9\nend\n3: 1 1\n"),
              badRow(2) + "\n");
    EXPECT_EQ(block.getIndex(0), -1);
    EXPECT_EQ(block.getCalValue(0, 1), 8);
    EXPECT_EQ(block.getCalValue(1, 0), 5);
    EXPECT_EQ(block.getCalValue(1, 1), 0);
    EXPECT_EQ(block.getIndex(2), 0);
    // Values are divided by the factor and cut toward zero; a factor of 0 stores them as read.
    AttCalVec halves = attCalVec(2.0);
    readText(halves, kId + "COUNT: 1*2\n0: 7 -7\n");
    EXPECT_EQ(hex(halves.getByteArrayData().mid(16, 8)), "03 00 00 00 fd ff ff ff");
    AttCalVec unscaled = attCalVec(0.0);
    readText(unscaled, kId + "COUNT: 1*1\n0: 7\n");
    EXPECT_EQ(valueAt<int>(unscaled.getByteArrayData(), 16), 7);

    // Counts and rows are bounded by the capacity.
    std::string text = kId + "COUNT:  30*25\n";
    for (int r = 0; r < 30; ++r) {
        text += std::to_string(100 + r) + ":";
        for (int c = 0; c < 25; ++c)
            text += "\t" + std::to_string(r * 1000 + c);
        text += "\n";
    }
    EXPECT_EQ(readText(block, text), "");
    EXPECT_EQ(block.getRowCount(), 27u);
    EXPECT_EQ(block.getColCount(), 20u);
    EXPECT_EQ(block.getCalValue(26, 19), 26019);
    EXPECT_EQ(block.getCalValue(1, 0), 1000);
    EXPECT_EQ(block.getIndex(26), 126);
    EXPECT_EQ(block.getByteArrayData().size(), 2284);
    EXPECT_TRUE(block.verifyChecksum());
    EXPECT_EQ(readText(block, kId + "COUNT: -4*-1\n"), kRowCount + "\n");
    EXPECT_EQ(block.getRowCount(), 0u);
    EXPECT_EQ(block.getColCount(), 0u);
}

TEST(HeadedLineForm, ReadsBackWhatItWritesAndComplains) {
    ServiceRecorders services;
    HwDatablockKivRfboAttCalFreq empty;
    const std::string full = golden("calib/kiv_att_cal_freq.txt");
    EXPECT_EQ(printed(empty),
              replaced(full.substr(0, full.find("  1:")), "2 * 1", "0 * 0") + "\n\n");
    HwDatablockKivRfboTempCompData data;
    data.setCalValue(-17, 0, 49);
    data.setCalValue(8, 1, 0);
    data.setRowCount(2);
    data.setColCount(50);
    HwDatablockKivRfboTempCompData twin;
    EXPECT_EQ(readText(twin, printed(data)), "");
    EXPECT_EQ(printed(twin), printed(data));
    EXPECT_EQ(twin.getIndex(0), 1);
    EXPECT_EQ(twin.getIndex(1), 2);
    // Decimals written into an integer table are cut toward zero.
    readText(twin, "ID: BLOCK_KIV_RFBO_TEMP_COMP_DATA\nCOUNT: 1 * 2\n1: 5.75 -5.75\n");
    EXPECT_EQ(twin.getCalValue(0, 0), 5);
    EXPECT_EQ(twin.getCalValue(0, 1), -5);

    HwDatablockKivRfboAttCalFreq block;
    EXPECT_EQ(readText(block, headedSection("", "1 * 1")), "");
    EXPECT_EQ(block.getCalValue(0, 0), 250.0);
    EXPECT_EQ(block.getId(), 15760u);
    // The key alone opens an id line as well; a shorter or a later key does not.
    EXPECT_EQ(readText(block, "BLOCK_KIV_RFBO_ATT_CAL_FREQ\nCOUNT: 1 * 1\n1: 100\n"), "");
    EXPECT_EQ(block.getCalValue(0, 0), 100.0);
    EXPECT_EQ(readText(block, "ID: BLOCK_KIV_RFBO_ATT_CAL\nCOUNT: 1 * 1\n1: 100\n"), kNoId + "\n");
    EXPECT_EQ(readText(block, "x BLOCK_KIV_RFBO_ATT_CAL_FREQ\nCOUNT: 1 * 1\n1: 100\n"),
              kNoId + "\n");
    EXPECT_EQ(readText(block, headedSection("a\nb\n", "1 * 1")), "");
    EXPECT_EQ(readText(block, headedSection("a\nb\n  COUNT: 1 * 1\n", "1 * 1")),
              "ERROR: Number of lines between ID: and COUNT: to large!\n")
        << "the count keyword must open its line";
    EXPECT_EQ(readText(block, headedSection("", "1 * 2")),
              "ERROR: In Row =1: Number of columns read inadequate!\n");
    EXPECT_EQ(readText(block, "ID:     BLOCK_KIV_RFBO_ATT_CAL_FREQ\n"), kNoCount + "\n");
    // readSection keeps the complaints with their lines.
    EXPECT_EQ(readSection(block, headedSection("a\nb\nc\n", "2 * 1")).message(),
              "ok; line 5: ERROR: Number of lines between ID: and COUNT: to large!; line 6: "
              "ERROR: Number of rows read inadequate!");
    EXPECT_EQ(block.getCalValue(0, 0), 250.0);
}

TEST(LineFormReadSection, KeepsComplaintsRefusesBadCountsAndCorruptCountsPrintBounded) {
    ServiceRecorders services;
    AttCalVec block = attCalVec();
    TextReadStatus status = readSection(block, kId + "COUNT:  2*3\n1: 1 2 3\n# note\n2: 4 5\n");
    EXPECT_EQ(status.message(), "ok; line 5: " + badRow(2));
    EXPECT_EQ(block.getCalValue(1, 1), 5) << "complaints do not stop the load";
    EXPECT_EQ(readSection(block, kId + "\nCOUNT:  3*1\n1: 5\n").message(),
              "ok; line 3: " + kRowCount)
        << "a row count complaint is the count line's";

    // 1005 junk lines: 1000 complaints, of which five are kept; searchascii prints them all.
    std::string junk;
    for (int i = 0; i < 1005; ++i)
        junk += "junk\n";
    const std::string text = kId + junk + "COUNT:  1*1\n7: 9\n";
    status = readSection(block, text);
    std::string expected = "ok";
    for (int line = 7; line <= 11; ++line)
        expected += "; line " + std::to_string(line) + ": " + kTooMany;
    EXPECT_EQ(status.message(), expected + "; and 995 more lines like this");
    EXPECT_EQ(block.getIndex(0), 7);
    std::string printedAll;
    for (int i = 0; i < 1000; ++i)
        printedAll += kTooMany + "\n";
    EXPECT_EQ(readText(block, text), printedAll);

    block.setCalValue(42, 0, 0);
    const QByteArray before = block.getByteArrayData();
    using S = TextReadStatus;
    // The text, the status code and key and the message, with the complaints.
    const std::tuple<std::string, S::Code, std::string, std::string> cases[] = {
        {"COUNT:  1*1\n1: 5\n", S::MissingKey, kName,
         "line 2: can not find 'RFBO_ATT_CAL_VEC_DATA'; line 2: " + kNoId},
        {kId + "\n\n", S::MissingKey,
         "COUNT:", "line 3: can not find 'COUNT:'; line 3: " + kNoCount},
        {kId + "COUNT:  28*20\n", S::CountTooHigh, "",
         "line 2: row count 28 above the capacity 27; line 2: " + kRowCount},
        {kId + "COUNT:  0*21\n", S::CountTooHigh, "",
         "line 2: column count 21 above the capacity 20"},
        {kId + "COUNT:  0*-1\n", S::CountNegative, "", "line 2: column count -1 is negative"}};
    for (const auto& [text, code, key, message] : cases) {
        const TextReadStatus status = readSection(block, text);
        EXPECT_EQ(status.code, code) << text;
        EXPECT_EQ(status.key, key) << text;
        EXPECT_EQ(status.message(), message) << text;
        EXPECT_EQ(block.getByteArrayData(), before) << text;
    }
    EXPECT_TRUE(readSection(block, kId + "COUNT:  0*20\n").ok()); // at the capacity is fine
    EXPECT_EQ(block.getColCount(), 20u);

    // Corrupt counts print as stored, then only the rows the image holds; readSection refuses them.
    AttCalVec corrupt = attCalVec();
    corrupt.setCalValue(9, 26, 19);
    corrupt.setIndex(3, 26);
    corrupt.setRowCount(27);
    corrupt.setColCount(20);
    const std::string full = printed(corrupt);
    corrupt.setRowCount(0xFFFFFFFFu);
    corrupt.setColCount(0xFFFFFFFFu);
    const std::string printout = printed(corrupt);
    EXPECT_EQ(printout, replaced(full, "COUNT:  27*20", "COUNT:  4294967295*4294967295"));
    EXPECT_EQ(std::count(printout.begin(), printout.end(), '\n'), 2 + 27 + 1);
    std::string last = "3: ";
    for (int c = 0; c < 19; ++c)
        last += "\t0.000";
    EXPECT_EQ(printout.substr(printout.size() - last.size() - 8), last + "\t9.000\n\n");
    AttCalVec reader = attCalVec();
    EXPECT_EQ(readSection(reader, printout).code, TextReadStatus::CountTooHigh);
    // Within the capacity's cell count, counts above one capacity still print their zeros.
    corrupt.setRowCount(2);
    corrupt.setColCount(21);
    EXPECT_NE(printed(corrupt).find("\t0.000\t0.000\n"), std::string::npos);

    HwDatablockKivRfboAttCalFreq headed;
    headed.setCalValue(1.5, 199, 0);
    headed.setRowCount(200);
    headed.setColCount(1);
    const std::string headedFull = printed(headed);
    headed.setRowCount(0xFFFFFFFFu);
    EXPECT_EQ(printed(headed), replaced(headedFull, "COUNT:  200 * 1", "COUNT:  4294967295 * 1"));
    EXPECT_NE(headedFull.find("200:  " + std::string(11, ' ') + "150.0000000000\n\n"),
              std::string::npos);
}
