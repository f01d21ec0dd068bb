// The indexed line form and the headed line form: exact output, reading back, bounds, the
// complaints written to standard output, and the reader that keeps them instead.
#include "TemplateTestSupport.h"
#include "support/Recorders.h"

#include <HwDatablockBaseTemplate.h>
#include <HwDatablockBaseTemplateIndex.h>

#include "templates/HeadedLineForm.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {
using AttCalVec = HwDatablockBaseTemplateIndex<int, int, 27, 20>;
const char* const kName = "RFBO_ATT_CAL_VEC_DATA";

const std::string kTooMany = "ERROR: Number of lines between ID and Count to large\n";
const std::string kNoId = "ERROR: FOUND NO ID !\n";
const std::string kNoCount = "ERROR: FOUND NO COUNT VALUES !\n";
const std::string kRowCount = "ERROR: Row value (COUNT) don't not equal with number of rows\n";
std::string badRow(int n) {
    return "ERROR: In Row =" + std::to_string(n) +
           " correspondent the number of columns not with the given value\n";
}

// Reads `text` into `block` and returns what the reader wrote to standard output.
template <class Block> std::string readCapturing(Block& block, const std::string& text) {
    std::istringstream in(text);
    testing::internal::CaptureStdout();
    block.searchascii(in, block);
    return testing::internal::GetCapturedStdout();
}

const HeadedLineForm kAttCalFreq = {"ATT-CAL-FREQ", "BLOCK_KIV_RFBO_ATT_CAL_FREQ", 2,
                                    "Number of lines between ID: and COUNT: to large!",
                                    "Number of rows read inadequate!"};
const HeadedLineForm kTempCompData = {"TEMP-COMP-DATA", "BLOCK_KIV_RFBO_TEMP_COMP_DATA", 51,
                                      "Number of lines between ID: and COUNT: too large!",
                                      "Number of rows read inadequate!"};

// A block that writes and reads the headed form in place of its own.
template <class Base> class Headed : public Base {
public:
    Headed(const char* name, int id, double factor, const HeadedLineForm& form)
        : Base(name, id, 0, factor, false), form(form) {}
    std::ostream& printToStream(std::ostream& out) override {
        return this->writeHeadedLineForm(out, form, *this);
    }
    std::istream& searchascii(std::istream& in, Headed& target) {
        return this->readHeadedLineForm(in, form, target);
    }
    TextReadStatus readSection(std::istream& in, Headed& target) {
        return this->readHeadedSection(in, form, target);
    }

private:
    const HeadedLineForm& form;
};
using KivAttCalFreq = Headed<HwDatablockBaseTemplate<double, double, 200, 1>>;
using KivTempCompData = Headed<HwDatablockBaseTemplateIndex<int, int, 80, 50>>;

KivAttCalFreq attCalFreq() {
    return KivAttCalFreq("BLOCK_KIV_RFBO_ATT_CAL_FREQ", 15760, 100, kAttCalFreq);
}

std::string headedSection(const std::string& betweenIdAndCount, const std::string& counts,
                          const std::string& rows) {
    return "#   title\nID:     BLOCK_KIV_RFBO_ATT_CAL_FREQ\n" + betweenIdAndCount +
           "COUNT:  " + counts + "\n" + rows + "\n";
}
} // namespace

TEST(LineFormOutput, IndexedRowsAndRoundTrip) {
    ServiceRecorders services;
    AttCalVec block(kName, 15843, 0, 1.0, false);
    const int cells[2][3] = {{1, 2, 3}, {-40, 0, 600}};
    for (unsigned r = 0; r < 2; ++r)
        for (unsigned c = 0; c < 3; ++c)
            block.setCalValue(cells[r][c], r, c);
    block.setIndex(5, 0);
    block.setIndex(-7, 1);
    block.setRowCount(2);
    block.setColCount(3);
    const std::string text = printed(block);
    EXPECT_EQ(text, fixture("line_index.txt"));

    AttCalVec twin(kName, 15843, 0, 1.0, false);
    EXPECT_EQ(readCapturing(twin, text), "");
    EXPECT_EQ(twin.getByteArrayData(), block.getByteArrayData());
    EXPECT_EQ(readCapturing(twin, text), "") << "a second read rewinds";
    EXPECT_EQ(twin.getByteArrayData(), block.getByteArrayData());
    EXPECT_TRUE(services.errors.signalled.empty());

    AttCalVec empty(kName, 15843, 0, 1.0, false);
    EXPECT_EQ(printed(empty), "ID:  RFBO_ATT_CAL_VEC_DATA\nCOUNT:  0*0\n\n");
}

TEST(LineFormRead, ComplaintsGoToStandardOutput) {
    ServiceRecorders services;
    AttCalVec block(kName, 15843, 0, 1.0, false);
    const std::string id = "ID:  RFBO_ATT_CAL_VEC_DATA\n";
    const std::string six = "a\nb\nc\nd\ne\nf\n";
    EXPECT_EQ(readCapturing(block, id + six + "COUNT:  1*1\n1: 5\n"), kTooMany);
    EXPECT_EQ(block.getCalValue(0, 0), 5) << "the search goes on";
    EXPECT_EQ(readCapturing(block, id + six + "g\nCOUNT:  1*1\n1: 5\n"), kTooMany + kTooMany);
    EXPECT_EQ(readCapturing(block, id + "# comments\n#\n\na\nb\nc\nd\ne\nCOUNT:  1*1\n1: 5\n"), "")
        << "comment and empty lines are not counted";

    EXPECT_EQ(readCapturing(block, id + "COUNT:  2*3\n1: 1 2 3\n2: 4 5\n"), badRow(2));
    EXPECT_EQ(readCapturing(block, id + "COUNT:  3*1\n1: 5\n"), kRowCount);
    EXPECT_EQ(readCapturing(block, id + "\n\n"), kNoCount);
    EXPECT_EQ(block.getId(), 15843u);
    EXPECT_EQ(block.getRowCount(), 0u);
    EXPECT_EQ(readCapturing(block, "COUNT:  1*1\n1: 5\n"), kNoId);
    EXPECT_EQ(block.getId(), 0u);
    EXPECT_EQ(block.getCalValue(0, 0), 0);
    EXPECT_TRUE(block.verifyChecksum());
    // The comment is cut before the id keyword and the name are looked for.
    EXPECT_EQ(readCapturing(block, "# ID:  RFBO_ATT_CAL_VEC_DATA\nCOUNT:  1*1\n1: 5\n"), kNoId);
    EXPECT_EQ(readCapturing(block, "ID:  RFBO_ATT_CAL_VEC_DATA # note\nCOUNT:  1*1\n1: 5\n"), "");
    EXPECT_EQ(block.getCalValue(0, 0), 5);
    EXPECT_TRUE(services.errors.signalled.empty());
}

TEST(LineFormRead, RowsTakeTheirIndexAndValuesAsWritten) {
    ServiceRecorders services;
    AttCalVec block(kName, 15843, 0, 1.0, false);
    // A row with index 3 and two values under a count line of three columns.
    EXPECT_EQ(readCapturing(block, "ID:  RFBO_ATT_CAL_VEC_DATA\nCOUNT:  1*3\n3: \t10\t20\n"),
              badRow(1));
    EXPECT_EQ(block.getIndex(0), 3);
    EXPECT_EQ(block.getCalValue(0, 0), 10);
    EXPECT_EQ(block.getCalValue(0, 1), 20);
    EXPECT_EQ(block.getCalValue(0, 2), 0);
    EXPECT_EQ(block.getColCount(), 3u);

    // Three decimals of zeros belong to an integer; "5.5" ends the row after the 5. A line
    // without ":" ends the rows.
    EXPECT_EQ(readCapturing(block, "ID: RFBO_ATT_CAL_VEC_DATA\nCOUNT: 2*2\n"
                                   "-1: 7.000 8.000\n2: 5.5 9\nend\n3: 1 1\n"),
              badRow(2));
    EXPECT_EQ(block.getIndex(0), -1);
    EXPECT_EQ(block.getCalValue(0, 1), 8);
    EXPECT_EQ(block.getCalValue(1, 0), 5);
    EXPECT_EQ(block.getCalValue(1, 1), 0);
    EXPECT_EQ(block.getIndex(2), 0);

    // Values are divided by the factor and cut toward zero; a factor of 0 stores them as read.
    AttCalVec halves(kName, 15843, 0, 2.0, false);
    readCapturing(halves, "ID: RFBO_ATT_CAL_VEC_DATA\nCOUNT: 1*2\n0: 7 -7\n");
    const QByteArray image = halves.getByteArrayData();
    EXPECT_EQ(getU32(image, 16), 3u);
    EXPECT_EQ(getU32(image, 20), static_cast<unsigned>(-3));
    AttCalVec unscaled(kName, 15843, 0, 0.0, false);
    readCapturing(unscaled, "ID: RFBO_ATT_CAL_VEC_DATA\nCOUNT: 1*1\n0: 7\n");
    EXPECT_EQ(getU32(unscaled.getByteArrayData(), 16), 7u);
}

TEST(LineFormRead, CountsAndRowsAreBoundedByTheCapacity) {
    ServiceRecorders services;
    AttCalVec block(kName, 15843, 0, 1.0, false);
    std::string text = "ID:  RFBO_ATT_CAL_VEC_DATA\nCOUNT:  30*25\n";
    for (int r = 0; r < 30; ++r) {
        text += std::to_string(100 + r) + ":";
        for (int c = 0; c < 25; ++c)
            text += "\t" + std::to_string(r * 1000 + c);
        text += "\n";
    }
    EXPECT_EQ(readCapturing(block, text), "");
    EXPECT_EQ(block.getRowCount(), 27u);
    EXPECT_EQ(block.getColCount(), 20u);
    EXPECT_EQ(block.getCalValue(26, 19), 26019);
    EXPECT_EQ(block.getCalValue(1, 0), 1000);
    EXPECT_EQ(block.getIndex(26), 126);
    EXPECT_EQ(block.getByteArrayData().size(), 2284);
    EXPECT_TRUE(block.verifyChecksum());

    EXPECT_EQ(readCapturing(block, "ID: RFBO_ATT_CAL_VEC_DATA\nCOUNT: -4*-1\n"), kRowCount);
    EXPECT_EQ(block.getRowCount(), 0u);
    EXPECT_EQ(block.getColCount(), 0u);
}

TEST(HeadedLineForm, OutputWithItsHeader) {
    KivAttCalFreq block = attCalFreq();
    block.setCalValue(1.5, 0, 0);
    block.setCalValue(-2.25, 1, 0);
    block.setRowCount(2);
    block.setColCount(1);
    EXPECT_EQ(printed(block), fixture("headed.txt"));

    KivAttCalFreq empty = attCalFreq();
    const std::string header = fixture("headed.txt").substr(0, fixture("headed.txt").find("  1:"));
    std::string expected = header;
    expected.replace(expected.find("2 * 1"), 5, "0 * 0");
    EXPECT_EQ(printed(empty), expected + "\n\n");
}

TEST(HeadedLineForm, ReadsBackWhatItWrites) {
    ServiceRecorders services;
    KivAttCalFreq block = attCalFreq();
    block.setCalValue(0.0625, 0, 0);
    block.setCalValue(-1234.5, 1, 0);
    block.setCalValue(3, 2, 0);
    block.setRowCount(3);
    block.setColCount(1);
    KivAttCalFreq twin = attCalFreq();
    EXPECT_EQ(readCapturing(twin, printed(block)), "");
    EXPECT_EQ(twin.getByteArrayData(), block.getByteArrayData());

    // An indexed table takes the row numbers as its indexes.
    KivTempCompData data("BLOCK_KIV_RFBO_TEMP_COMP_DATA", 15771, 1.0, kTempCompData);
    data.setCalValue(-17, 0, 49);
    data.setCalValue(8, 1, 0);
    data.setRowCount(2);
    data.setColCount(50);
    KivTempCompData dataTwin("BLOCK_KIV_RFBO_TEMP_COMP_DATA", 15771, 1.0, kTempCompData);
    EXPECT_EQ(readCapturing(dataTwin, printed(data)), "");
    EXPECT_EQ(dataTwin.getCalValue(0, 49), -17);
    EXPECT_EQ(dataTwin.getCalValue(1, 0), 8);
    EXPECT_EQ(dataTwin.getIndex(0), 1);
    EXPECT_EQ(dataTwin.getIndex(1), 2);
    EXPECT_EQ(dataTwin.getColCount(), 50u);
    // Decimals written into an integer table are cut toward zero.
    readCapturing(dataTwin, "ID: BLOCK_KIV_RFBO_TEMP_COMP_DATA\nCOUNT: 1 * 2\n1: 5.75 -5.75\n");
    EXPECT_EQ(dataTwin.getCalValue(0, 0), 5);
    EXPECT_EQ(dataTwin.getCalValue(0, 1), -5);
}

TEST(HeadedLineForm, KeyLineCountLineAndComplaints) {
    ServiceRecorders services;
    KivAttCalFreq block = attCalFreq();
    const std::string row = "  1:  250.0\n";
    EXPECT_EQ(readCapturing(block, headedSection("", "1 * 1", row)), "");
    EXPECT_EQ(block.getCalValue(0, 0), 250.0);
    EXPECT_EQ(block.getId(), 15760u);
    // The key alone opens an id line as well; a shorter or a later key does not.
    EXPECT_EQ(readCapturing(block, "BLOCK_KIV_RFBO_ATT_CAL_FREQ\nCOUNT: 1 * 1\n1: 100\n"), "");
    EXPECT_EQ(block.getCalValue(0, 0), 100.0);
    EXPECT_EQ(readCapturing(block, "ID: BLOCK_KIV_RFBO_ATT_CAL\nCOUNT: 1 * 1\n1: 100\n"), kNoId);
    EXPECT_EQ(readCapturing(block, "x BLOCK_KIV_RFBO_ATT_CAL_FREQ\nCOUNT: 1 * 1\n1: 100\n"), kNoId);

    const std::string tooMany = "ERROR: Number of lines between ID: and COUNT: to large!\n";
    EXPECT_EQ(readCapturing(block, headedSection("a\nb\n", "1 * 1", row)), "");
    EXPECT_EQ(readCapturing(block, headedSection("a\nb\n  COUNT: 1 * 1\n", "1 * 1", row)), tooMany)
        << "the count keyword must open its line";
    EXPECT_EQ(readCapturing(block, headedSection("", "1 * 2", row)),
              "ERROR: In Row =1: Number of columns read inadequate!\n");
    EXPECT_EQ(readCapturing(block, headedSection("", "2 * 1", row)),
              "ERROR: Number of rows read inadequate!\n");
    EXPECT_EQ(readCapturing(block, "ID:     BLOCK_KIV_RFBO_ATT_CAL_FREQ\n"), kNoCount);
}

namespace {
// Reads `text` with readSection; nothing may reach standard output.
template <class Block> TextReadStatus readSection(Block& block, const std::string& text) {
    std::istringstream in(text);
    testing::internal::CaptureStdout();
    const TextReadStatus status = block.readSection(in, block);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    return status;
}
} // namespace

TEST(LineFormReadSection, ComplaintsAreKeptWithTheirLinesAndSummarised) {
    ServiceRecorders services;
    AttCalVec block(kName, 15843, 0, 1.0, false);
    const std::string id = "ID:  RFBO_ATT_CAL_VEC_DATA\n";
    TextReadStatus status = readSection(block, id + "COUNT:  2*3\n1: 1 2 3\n# note\n2: 4 5\n");
    EXPECT_TRUE(status.ok());
    ASSERT_EQ(status.complaints.size(), 1u);
    EXPECT_EQ(status.complaints[0].line, 5);
    EXPECT_EQ(status.complaints[0].text + "\n", badRow(2));
    EXPECT_EQ(status.message(), "ok; line 5: " + badRow(2).substr(0, badRow(2).size() - 1));
    EXPECT_EQ(block.getCalValue(1, 1), 5) << "complaints do not stop the load";

    status = readSection(block, id + "\nCOUNT:  3*1\n1: 5\n");
    ASSERT_EQ(status.complaints.size(), 1u);
    EXPECT_EQ(status.complaints[0].line, 3) << "a row count complaint is the count line's";
    EXPECT_EQ(status.complaints[0].text + "\n", kRowCount);

    // 1005 junk lines: 1000 complaints, of which five are kept; searchascii prints them all.
    std::string junk;
    for (int i = 0; i < 1005; ++i)
        junk += "junk\n";
    const std::string text = id + junk + "COUNT:  1*1\n7: 9\n";
    status = readSection(block, text);
    EXPECT_TRUE(status.ok());
    ASSERT_EQ(status.complaints.size(), 5u);
    EXPECT_EQ(status.complaints[0].line, 7);
    EXPECT_EQ(status.complaints[4].line, 11);
    EXPECT_EQ(status.moreComplaints, 995);
    const std::string tooMany = kTooMany.substr(0, kTooMany.size() - 1);
    std::string expected = "ok";
    for (int line = 7; line <= 11; ++line)
        expected += "; line " + std::to_string(line) + ": " + tooMany;
    EXPECT_EQ(status.message(), expected + "; and 995 more lines like this");
    EXPECT_EQ(block.getIndex(0), 7);
    std::string printedAll;
    for (int i = 0; i < 1000; ++i)
        printedAll += kTooMany;
    EXPECT_EQ(readCapturing(block, text), printedAll);
}

TEST(LineFormReadSection, RefusesWhatSearchasciiLoadsAnyway) {
    ServiceRecorders services;
    AttCalVec block(kName, 15843, 0, 1.0, false);
    block.setCalValue(42, 0, 0);
    const QByteArray before = block.getByteArrayData();
    const std::string id = "ID:  RFBO_ATT_CAL_VEC_DATA\n";
    struct Case {
        std::string text;
        TextReadStatus::Code code;
        std::string key;
        long long line;
        std::string message;
    };
    const Case cases[] = {
        {"COUNT:  1*1\n1: 5\n", TextReadStatus::MissingKey, kName, 2,
         "line 2: can not find 'RFBO_ATT_CAL_VEC_DATA'; line 2: " +
             kNoId.substr(0, kNoId.size() - 1)},
        {id + "\n\n", TextReadStatus::MissingKey, "COUNT:", 3,
         "line 3: can not find 'COUNT:'; line 3: " + kNoCount.substr(0, kNoCount.size() - 1)},
        {id + "COUNT:  28*20\n", TextReadStatus::CountTooHigh, "", 2,
         "line 2: row count 28 above the capacity 27; line 2: " +
             kRowCount.substr(0, kRowCount.size() - 1)},
        {id + "COUNT:  0*21\n", TextReadStatus::CountTooHigh, "", 2,
         "line 2: column count 21 above the capacity 20"},
        {id + "COUNT:  0*-1\n", TextReadStatus::CountNegative, "", 2,
         "line 2: column count -1 is negative"},
    };
    for (const Case& c : cases) {
        const TextReadStatus status = readSection(block, c.text);
        EXPECT_EQ(status.code, c.code) << c.text;
        EXPECT_EQ(status.key, c.key) << c.text;
        EXPECT_EQ(status.line, c.line) << c.text;
        EXPECT_EQ(status.message(), c.message) << c.text;
        EXPECT_EQ(block.getByteArrayData(), before) << c.text;
    }
    // At the capacity is fine.
    EXPECT_TRUE(readSection(block, id + "COUNT:  0*20\n").ok());
    EXPECT_EQ(block.getColCount(), 20u);

    // The headed form through the protected reader.
    KivAttCalFreq headed = attCalFreq();
    const TextReadStatus status =
        readSection(headed, headedSection("a\nb\nc\n", "2 * 1", "  1:  250.0\n"));
    EXPECT_EQ(status.message(),
              "ok; line 5: ERROR: Number of lines between ID: and COUNT: to large!; line 6: "
              "ERROR: Number of rows read inadequate!");
    EXPECT_EQ(headed.getCalValue(0, 0), 250.0);
}

namespace {
// `text` with its first occurrence of `from` replaced by `to`.
std::string replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t at = text.find(from);
    if (at != std::string::npos)
        text.replace(at, from.size(), to);
    return text;
}
} // namespace

// Corrupt counts print the count line as stored and then only the rows the image holds; the
// readers refuse the text by its count line.
TEST(BoundedPrinting, LineFormsStopAtTheCapacity) {
    ServiceRecorders services;
    AttCalVec block(kName, 15843, 0, 1.0, false);
    block.setCalValue(9, 26, 19);
    block.setIndex(3, 26);
    block.setRowCount(27);
    block.setColCount(20);
    const std::string full = printed(block);
    block.setRowCount(0xFFFFFFFFu);
    block.setColCount(0xFFFFFFFFu);
    const std::string text = printed(block);
    EXPECT_EQ(text, replaced(full, "COUNT:  27*20", "COUNT:  4294967295*4294967295"));
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 2 + 27 + 1);
    std::string last = "3: ";
    for (int c = 0; c < 19; ++c)
        last += "\t0.000";
    EXPECT_EQ(text.substr(text.size() - last.size() - 8), last + "\t9.000\n\n");

    AttCalVec twin(kName, 15843, 0, 1.0, false);
    std::istringstream in(text);
    const TextReadStatus status = twin.readSection(in, twin);
    EXPECT_EQ(status.code, TextReadStatus::CountTooHigh);
    EXPECT_EQ(status.line, 2);

    // Within the capacity's cell count, counts above one capacity still print their zeros.
    block.setRowCount(2);
    block.setColCount(21);
    EXPECT_NE(printed(block).find("\t0.000\t0.000\n"), std::string::npos);

    KivAttCalFreq headed = attCalFreq();
    headed.setCalValue(1.5, 199, 0);
    headed.setRowCount(200);
    headed.setColCount(1);
    const std::string headedFull = printed(headed);
    headed.setRowCount(0xFFFFFFFFu);
    EXPECT_EQ(printed(headed), replaced(headedFull, "COUNT:  200 * 1", "COUNT:  4294967295 * 1"));
    EXPECT_NE(headedFull.find("200:  " + std::string(11, ' ') + "150.0000000000\n\n"),
              std::string::npos);
}
