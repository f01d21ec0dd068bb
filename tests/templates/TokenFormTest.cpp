// The token form: exact output of every table kind, reading sections back (also among other
// sections and twice from one stream), the reader's exits on malformed files, and the reader
// that reports them instead.
#include "TemplateTestSupport.h"
#include "support/Recorders.h"

#include <HwDatablockBaseTemplate.h>
#include <HwDatablockBaseTemplateExtended.h>
#include <HwDatablockBaseTemplateIndex.h>
#include <HwDatablockBaseTemplateWexW.h>

#include "templates/HwDatablockTemplate.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>
#include <type_traits>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {
using AlcFreq = HwDatablockBaseTemplate<unsigned int, double, 10, 1>;
using AlcData = HwDatablockBaseTemplate<int, int, 4, 10>;
using Extended = HwDatablockBaseTemplateExtended<int, int, 10, 4, 350>;
using WexW = HwDatablockBaseTemplateWexW<float, double, 50, 7>;
using Misc = HwDatablockTemplate<MiscData<int, 10, 1>, int, double, 10, 1>;

AlcFreq alcFreq() {
    AlcFreq block("RFBO_ALC_FREQ", 15730, 0, 100, false);
    block.setCalValue(100000, 0, 0);
    block.setCalValue(200000, 1, 0);
    block.setCalValue(300050, 2, 0);
    block.setRowCount(3);
    block.setColCount(1);
    return block;
}

AlcData alcData() {
    AlcData block("RFBO_ALC_DATA", 15731, 0, 1.0, false);
    const int cells[2][4] = {{1, -2, 3, 40}, {-100, 0, 7, 123456}};
    for (unsigned r = 0; r < 2; ++r)
        for (unsigned c = 0; c < 4; ++c)
            block.setCalValue(cells[r][c], r, c);
    block.setRowCount(2);
    block.setColCount(4);
    return block;
}

// Prints a block and reads the text back into a fresh twin: both images must be equal.
template <class Block, class... Args> void expectRoundTrip(Block& source, Args... args) {
    ServiceRecorders services;
    std::stringstream text;
    source.printToStream(text);
    Block twin(args...);
    twin.searchascii(text, twin);
    EXPECT_EQ(hex(twin.getByteArrayData()), hex(source.getByteArrayData())) << text.str();
    Block reported(args...);
    const TextReadStatus status = reported.readSection(text, reported);
    EXPECT_TRUE(status.ok()) << status.message();
    EXPECT_EQ(hex(reported.getByteArrayData()), hex(source.getByteArrayData()));
    EXPECT_TRUE(services.errors.signalled.empty());
}

template <class Block>
void fill(Block& block, unsigned rows, unsigned cols, std::initializer_list<double> values) {
    unsigned i = 0;
    for (double v : values) {
        using Raw = std::remove_reference_t<decltype(block.getBlock()->values[0][0])>;
        block.setCalValue(static_cast<Raw>(v), i / cols, i % cols);
        ++i;
    }
    block.setRowCount(rows);
    block.setColCount(cols);
}
} // namespace

TEST(TokenFormOutput, VectorsTablesAndEmptyTables) {
    AlcFreq freq = alcFreq();
    EXPECT_EQ(printed(freq), fixture("token_vector.txt"));
    AlcData data = alcData();
    EXPECT_EQ(printed(data), fixture("token_table.txt"));

    AlcData empty("RFBO_ALC_DATA", 15731, 0, 1.0, false);
    EXPECT_EQ(printed(empty), "ID:  RFBO_ALC_DATA\nCOUNT:  0*0\n\n");

    // Equal counts still give one line per row; more rows than columns one line per cell.
    data.setRowCount(2);
    data.setColCount(2);
    EXPECT_EQ(printed(data), "ID:  RFBO_ALC_DATA\nCOUNT:  2*2\n1: \t1.000\t-2.000\n"
                             "2: \t-100.000\t0.000\n\n");
    data.setRowCount(3);
    EXPECT_EQ(printed(data), "ID:  RFBO_ALC_DATA\nCOUNT:  3*2\n1:  1.000\n1:  -2.000\n"
                             "2:  -100.000\n2:  0.000\n3:  0.000\n3:  0.000\n\n");
    // Counts above the capacity print zeros for the missing cells.
    data.setRowCount(1);
    data.setColCount(11);
    const std::string wide = printed(data);
    EXPECT_NE(wide.find("\t40.000\t0.000\t0.000\t0.000\t0.000\t0.000\t0.000\t0.000\n"),
              std::string::npos)
        << wide;
}

TEST(TokenFormOutput, Conv2asciiNamesThisBlockWithTheSourceCells) {
    AlcData data = alcData();
    AlcData other("OTHER_NAME", 1, 0, 1.0, false);
    std::ostringstream out;
    other.conv2ascii(out, data);
    EXPECT_EQ(out.str(), "ID:  OTHER_NAME" + fixture("token_table.txt").substr(18));
}

TEST(TokenFormOutput, VariantsAndMiscTables) {
    Extended extended("RFBO_EXT_CAL_VEC_USER_DATA", 16003, 0, 1.0, false);
    for (int i = 0; i < 10; ++i) {
        std::string text = "DESC" + std::to_string(i) + "___________";
        extended.setDescriptor(i, text);
    }
    fill(extended, 2, 3, {1, 2, 3, 4, 5, -6});
    EXPECT_EQ(printed(extended), fixture("token_extended.txt"));

    char name[] = "IQ_IMBALANCE";
    WexW wexw(name, 15606, 0, 1.0, false);
    fill(wexw, 2, 1, {0.5, -1.25});
    EXPECT_EQ(printed(wexw), fixture("token_wexw.txt"));

    Misc misc("PYM_DCON_VTRIM_VALUE", 12310, 0, 0.25, false);
    fill(misc, 3, 1, {6, -1, 2147483647});
    EXPECT_EQ(printed(misc), fixture("token_misc.txt"));
    // A value wider than the 20-character buffer is cut at its end.
    HwDatablockTemplate<MiscData<int, 1, 1>, int, double, 1, 1> big("PYM_DCON_LEVELPRE2", 12311, 0,
                                                                    1e9, false);
    fill(big, 1, 1, {1000000});
    EXPECT_EQ(printed(big), "ID:  PYM_DCON_LEVELPRE2\nCOUNT:  1*1\n1: \t1000000000000000.00\n\n");
}

TEST(TokenFormRead, RoundTripsForEveryValueType) {
    HwDatablockBaseTemplate<char, double, 12, 1> chars("VECTOR_LEVCON_TEMP", 15850, 0, 1, false);
    fill(chars, 3, 1, {-128, 127, 5});
    expectRoundTrip(chars, "VECTOR_LEVCON_TEMP", 15850, 0, 1.0, false);

    HwDatablockBaseTemplate<short, short, 6, 1> shorts("STEREOCODER_CO", 15690, 0, 1, false);
    fill(shorts, 6, 1, {-32768, 32767, 0, 1, -1, 2});
    expectRoundTrip(shorts, "STEREOCODER_CO", 15690, 0, 1.0, false);

    HwDatablockBaseTemplate<unsigned short, double, 64, 50> levcon("LEVCON", 15853, 1, 1, false);
    fill(levcon, 2, 3, {65535, 0, 1, 2, 3, 4});
    expectRoundTrip(levcon, "LEVCON", 15853, 1, 1.0, false);

    HwDatablockBaseTemplate<int, int, 5, 350> ints("RFBO_EXT_CAL_DATA", 15726, 0, 1, false);
    fill(ints, 2, 3, {-2147483647, 2147483647, 0, 9, -9, 100});
    expectRoundTrip(ints, "RFBO_EXT_CAL_DATA", 15726, 0, 1.0, false);

    HwDatablockBaseTemplate<int, double, 2, 128> levels("RFBO_RFLEVEL_MAX_DATA", 15716, 0, 0.01,
                                                        false);
    fill(levels, 2, 2, {-1234, 1234, 99, 5});
    expectRoundTrip(levels, "RFBO_RFLEVEL_MAX_DATA", 15716, 0, 0.01, false);

    HwDatablockBaseTemplate<unsigned int, unsigned int, 50, 4> words("KIV_RFBO_ATTREG_DATA", 15799,
                                                                     0, 1, false);
    fill(words, 1, 4, {4000000000.0, 1, 2, 3});
    expectRoundTrip(words, "KIV_RFBO_ATTREG_DATA", 15799, 0, 1.0, false);

    HwDatablockBaseTemplate<unsigned int, double, 750, 1> freq("RFBO_EXT_CAL_USER_FREQ", 16000, 0,
                                                               100, false);
    fill(freq, 2, 1, {4000000000.0, 1});
    expectRoundTrip(freq, "RFBO_EXT_CAL_USER_FREQ", 16000, 0, 100.0, false);

    HwDatablockBaseTemplate<float, float, 50, 4> floats("KIV_RFBO_ATTREG_ATTENUATION", 15798, 0, 1,
                                                        false);
    fill(floats, 2, 2, {1.5, -0.25, 1000.125, 0});
    expectRoundTrip(floats, "KIV_RFBO_ATTREG_ATTENUATION", 15798, 0, 1.0, false);

    HwDatablockBaseTemplate<double, double, 200, 1> doubles("BLOCK_KIV_RFBO_ATT_CAL_FREQ", 15760, 0,
                                                            1, false);
    fill(doubles, 2, 1, {0.125, -1e6});
    expectRoundTrip(doubles, "BLOCK_KIV_RFBO_ATT_CAL_FREQ", 15760, 0, 1.0, false);

    char name[] = "IQ_IMBALANCE";
    WexW wexw(name, 15606, 0, 1.0, false);
    fill(wexw, 2, 7, {0.5, -1.25, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 0.0625});
    expectRoundTrip(wexw, name, 15606, 0, 1.0, false);

    Misc misc("PYM_DCON_VTRIM_VALUE", 12310, 0, 0.25, false);
    fill(misc, 3, 1, {6, -1, 2147483647});
    expectRoundTrip(misc, "PYM_DCON_VTRIM_VALUE", 12310, 0, 0.25, false);
}

TEST(TokenFormRead, ExtendedDescriptors) {
    Extended extended("RFBO_EXT_CAL_VEC_USER_DATA", 16003, 0, 1.0, false);
    std::string short_text = "AB";
    extended.setDescriptor(0, short_text); // the rest stays zero bytes and is printed so
    std::string spaced = "LEVEL_A";
    extended.setDescriptor(9, spaced);
    fill(extended, 1, 2, {7, -8});
    expectRoundTrip(extended, "RFBO_EXT_CAL_VEC_USER_DATA", 16003, 0, 1.0, false);

    // Without the key for descriptor 2 the reading of descriptors stops, the section does not.
    ServiceRecorders services;
    std::istringstream in("ID:  RFBO_EXT_CAL_VEC_USER_DATA\nDESCRIPTOR1: ONE\n"
                          "DESCRIPTOR3: THREE\nCOUNT:  1*1\n1: \t4\n");
    Extended target("RFBO_EXT_CAL_VEC_USER_DATA", 16003, 0, 1.0, false);
    target.searchascii(in, target);
    std::string got;
    target.getDescriptor(0, got);
    EXPECT_EQ(got, "ONE             ");
    got.clear();
    target.getDescriptor(2, got);
    EXPECT_EQ(got, std::string(16, '\0'));
    EXPECT_EQ(target.getCalValue(0, 0), 4);
    EXPECT_EQ(target.getRowCount(), 1u);

    std::istringstream longWord("ID: RFBO_EXT_CAL_VEC_USER_DATA DESCRIPTOR1: "
                                "ABCDEFGHIJKLMNOPQRST COUNT: 0*0");
    target.searchascii(longWord, target);
    got.clear();
    target.getDescriptor(0, got);
    EXPECT_EQ(got, "ABCDEFGHIJKLMNOP");
    EXPECT_TRUE(target.verifyChecksum());
}

TEST(TokenFormRead, ValuesAreUnscaledByTruncation) {
    ServiceRecorders services;
    HwDatablockBaseTemplate<int, double, 2, 128> levels("L", 15716, 0, 0.01, false);
    std::istringstream in("ID:  L\nCOUNT:  1*3\n1: \t0.019\t-0.019\t-12.34\n");
    levels.searchascii(in, levels);
    const QByteArray image = levels.getByteArrayData();
    EXPECT_EQ(getU32(image, 16), 1u);
    EXPECT_EQ(getU32(image, 20), 0xFFFFFFFFu);
    EXPECT_EQ(getU32(image, 24), static_cast<unsigned>(-1234));
    EXPECT_EQ(getU16(image, 0), 15716u);
    EXPECT_TRUE(levels.verifyChecksum());

    // An integer table reads integers: "12.5" stops the reading, later cells get 0.
    AlcData data("RFBO_ALC_DATA", 15731, 0, 1.0, false);
    std::istringstream decimals("ID:  RFBO_ALC_DATA\nCOUNT:  1*3\n1: \t12.5\t7\t8\n");
    data.searchascii(decimals, data);
    EXPECT_EQ(data.getCalValue(0, 0), 12);
    EXPECT_EQ(data.getCalValue(0, 1), 0);
    EXPECT_EQ(data.getCalValue(0, 2), 0);
    EXPECT_EQ(data.getColCount(), 3u);
}

TEST(TokenFormRead, SectionsInAnyOrderAndTwiceFromOneStream) {
    ServiceRecorders services;
    AlcFreq freq = alcFreq();
    AlcData data = alcData();
    HwDatablockBaseTemplateIndex<int, int, 27, 20> indexed("RFBO_ATT_CAL_VEC_DATA", 15843, 0, 1,
                                                           false);
    indexed.setIndex(3, 0);
    indexed.setCalValue(9, 0, 0);
    indexed.setRowCount(1);
    indexed.setColCount(1);
    AlcFreq decoy("RFBO_ALC_FREQ_X", 1, 0, 1, false); // a longer name is another block
    std::stringstream file;
    decoy.printToStream(file);
    data.printToStream(file);
    indexed.printToStream(file);
    freq.printToStream(file);

    AlcFreq freqIn("RFBO_ALC_FREQ", 15730, 0, 100, false);
    AlcData dataIn("RFBO_ALC_DATA", 15731, 0, 1.0, false);
    HwDatablockBaseTemplateIndex<int, int, 27, 20> indexedIn("RFBO_ATT_CAL_VEC_DATA", 15843, 0, 1,
                                                             false);
    freqIn.searchascii(file, freqIn);
    dataIn.searchascii(file, dataIn);
    indexedIn.searchascii(file, indexedIn);
    EXPECT_EQ(freqIn.getByteArrayData(), freq.getByteArrayData());
    EXPECT_EQ(dataIn.getByteArrayData(), data.getByteArrayData());
    EXPECT_EQ(indexedIn.getByteArrayData(), indexed.getByteArrayData());
    freqIn.setCalValue(1, 0, 0);
    freqIn.searchascii(file, freqIn);
    EXPECT_EQ(freqIn.getByteArrayData(), freq.getByteArrayData());

    // The name may stand anywhere behind the first "ID:".
    std::istringstream loose("ID: SOMETHING_ELSE words RFBO_ALC_DATA COUNT: 1*1 1: 5");
    dataIn.searchascii(loose, dataIn);
    EXPECT_EQ(dataIn.getCalValue(0, 0), 5);
    EXPECT_EQ(dataIn.getRowCount(), 1u);
}

TEST(TokenFormRead, MissingNameLoadsAnEmptyTableUnlessStrict) {
    ServiceRecorders services;
    AlcData data = alcData();
    std::istringstream in("ID:  RFBO_ALC_FREQ\nCOUNT:  1*1\n1:  5\n");
    data.searchascii(in, data);
    const QByteArray image = data.getByteArrayData();
    EXPECT_EQ(image.size(), 176);
    EXPECT_EQ(data.getId(), 0u);
    EXPECT_EQ(data.getBlockSize(), 176);
    EXPECT_EQ(data.getRowCount(), 0u);
    EXPECT_EQ(data.getColCount(), 0u);
    EXPECT_EQ(image.mid(16), QByteArray(160, '\0'));
    EXPECT_TRUE(data.verifyChecksum());
    EXPECT_TRUE(services.errors.signalled.empty());
}

TEST(TokenFormReadDeathTest, MalformedSectionsEndTheProcess) {
    AlcData loose("RFBO_ALC_DATA", 15731, 0, 1.0, false);
    AlcData strict("RFBO_ALC_DATA", 15731, 0, 1.0, true);
    const auto read = [](AlcData& block, const char* text) {
        std::istringstream in(text);
        block.searchascii(in, block);
    };
    EXPECT_EXIT(read(strict, "COUNT: 1*1 1: 5"), testing::ExitedWithCode(1),
                "^can not find string:  ID:  in ASCII-File\n$");
    EXPECT_EXIT(read(strict, "ID: RFBO_ALC_FREQ COUNT: 1*1 1: 5"), testing::ExitedWithCode(1),
                "^can not find string:  RFBO_ALC_DATA  in ASCII-File\n$");
    EXPECT_EXIT(read(loose, "ID: RFBO_ALC_DATA 1*1 1: 5"), testing::ExitedWithCode(1),
                "^can not find string:  COUNT:  in ASCII-File\n$");
    EXPECT_EXIT(read(loose, "ID: RFBO_ALC_DATA COUNT: 1 1 1: 5"), testing::ExitedWithCode(1),
                "^can not find string:  \\*  in ASCII-File\n$");
    EXPECT_EXIT(read(loose, "ID: RFBO_ALC_DATA COUNT: 2*1 1: 5 2 6"), testing::ExitedWithCode(1),
                "^can not find string:  :  in ASCII-File\n$");
    EXPECT_EXIT(read(loose, "ID: RFBO_ALC_DATA COUNT: 5*1 1: 5"), testing::ExitedWithCode(2),
                "^ count of Block RFBO_ALC_DATA is too high\n$");
    EXPECT_EXIT(read(loose, "ID: RFBO_ALC_DATA COUNT: 4*11 1: 5"), testing::ExitedWithCode(2),
                "^ count of Block RFBO_ALC_DATA is too high\n$");
}

TEST(TokenFormReadDeathTest, CountsAtTheCapacityAndNegativeCountsPass) {
    ServiceRecorders services;
    AlcData data("RFBO_ALC_DATA", 15731, 0, 1.0, false);
    std::istringstream full("ID: RFBO_ALC_DATA COUNT: 4*1 1: 1 2: 2 3: 3 4: 4");
    data.searchascii(full, data);
    EXPECT_EQ(data.getCalValue(3, 0), 4);
    // A count read as unsigned but compared as signed passes the check; the file runs out
    // of rows before the count does, which ends the process as a missing ":".
    EXPECT_EXIT(
        {
            std::istringstream in("ID: RFBO_ALC_DATA COUNT: 4294967295*1 1: 1");
            data.searchascii(in, data);
        },
        testing::ExitedWithCode(1), "can not find string:  :  in ASCII-File");
}

namespace {
// Reads `text` with readSection into a filled block that must stay as it was unless the read
// is ok; nothing may be written to either standard stream.
TextReadStatus readReported(const std::string& text, bool strict = false) {
    AlcData block("RFBO_ALC_DATA", 15731, 0, 1.0, strict);
    block.setCalValue(99, 3, 9);
    const QByteArray before = block.getByteArrayData();
    std::istringstream in(text);
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const TextReadStatus status = block.readSection(in, block);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    if (!status.ok()) {
        EXPECT_EQ(block.getByteArrayData(), before) << "a failed read leaves the target alone";
    }
    EXPECT_TRUE(status.complaints.empty());
    return status;
}

void expectFailure(const std::string& text, TextReadStatus::Code code, const std::string& key,
                   long long line, const std::string& message) {
    const TextReadStatus status = readReported(text);
    EXPECT_EQ(status.code, code) << text;
    EXPECT_EQ(status.key, key) << text;
    EXPECT_EQ(status.line, line) << text;
    EXPECT_EQ(status.message(), message) << text;
}
} // namespace

TEST(TokenFormReadSection, ReportsWhatSearchasciiEndsTheProcessFor) {
    ServiceRecorders services;
    const TextReadStatus ok = readReported("ID: RFBO_ALC_DATA\nCOUNT: 1*2\n1: 5.000 -6\n");
    EXPECT_TRUE(ok.ok());
    EXPECT_EQ(ok.message(), "ok");

    using S = TextReadStatus;
    // Keys not found: the line is where the search ended, the last line of the text.
    expectFailure("COUNT: 1*1\n1: 5\n", S::MissingKey, "ID:", 2, "line 2: can not find 'ID:'");
    expectFailure("", S::MissingKey, "ID:", 0, "can not find 'ID:'");
    // The name is demanded whether or not the block stops conversions on errors.
    expectFailure("ID: RFBO_ALC_FREQ\nCOUNT: 1*1\n1: 5", S::MissingKey, "RFBO_ALC_DATA", 3,
                  "line 3: can not find 'RFBO_ALC_DATA'");
    expectFailure("ID: RFBO_ALC_DATA\n1*1\n1: 5\n", S::MissingKey, "COUNT:", 3,
                  "line 3: can not find 'COUNT:'");
    expectFailure("ID: RFBO_ALC_DATA\nCOUNT: 1 1\n1: 5\n", S::MissingKey, "*", 3,
                  "line 3: can not find '*'");
    expectFailure("ID: RFBO_ALC_DATA\nCOUNT: 2*1\n1: 5\n\n", S::MissingKey, ":", 4,
                  "line 4: can not find ':'");
    // Counts: the line of the count line.
    expectFailure("# head\nID: RFBO_ALC_DATA\n\nCOUNT:  5*1\n1: 5\n", S::CountTooHigh, "", 4,
                  "line 4: row count 5 above the capacity 4");
    expectFailure("ID: RFBO_ALC_DATA\nCOUNT:  4*11\n", S::CountTooHigh, "", 2,
                  "line 2: column count 11 above the capacity 10");
    expectFailure("ID: RFBO_ALC_DATA\nCOUNT:  4294967295*1\n1: 5\n", S::CountNegative, "", 2,
                  "line 2: row count 4294967295 is negative (-1)");
    expectFailure("ID: RFBO_ALC_DATA\n\nCOUNT:  1*-1\n1: 5\n", S::CountNegative, "", 3,
                  "line 3: column count 4294967295 is negative (-1)");
    expectFailure("ID: RFBO_ALC_DATA\nCOUNT: 1*x\n", S::BadValue, "", 2,
                  "line 2: column count could not be read");
    // Values that searchascii stores as garbage.
    expectFailure("ID: RFBO_ALC_DATA\nCOUNT: 2*3\n1: 1 2 3\n2: 4 5\n", S::BadValue, "", 4,
                  "line 4: value in row 2, column 3 is missing");
    expectFailure("ID: RFBO_ALC_DATA\nCOUNT: 1*2\n1: 7\n  abc 8\n", S::BadValue, "", 4,
                  "line 4: value 'abc' in row 1, column 2 could not be read");
    expectFailure("ID: RFBO_ALC_DATA\nCOUNT: 1*3\n1: \t12.5\t7\t8\n", S::BadValue, "", 3,
                  "line 3: value '12.5' in row 1, column 1 could not be read");
    expectFailure("ID: RFBO_ALC_DATA\nCOUNT: 2*3\n1: 1 2\n2: 4 5 6\n", S::BadValue, "", 4,
                  "line 4: value '2:' in row 1, column 3 could not be read");
    EXPECT_TRUE(services.errors.signalled.empty());
}

TEST(TokenFormReadSection, NegativeCountsPassSearchascii) {
    ServiceRecorders services;
    AlcData data("RFBO_ALC_DATA", 15731, 0, 1.0, false);
    std::istringstream in("ID: RFBO_ALC_DATA\nCOUNT:  1*-1\n1: 5\n");
    data.searchascii(in, data);
    EXPECT_EQ(data.getColCount(), 0xFFFFFFFFu);
    EXPECT_EQ(data.getCalValue(0, 0), 5);
    EXPECT_EQ(data.readSection(in, data).code, TextReadStatus::CountNegative);
    EXPECT_EQ(data.getColCount(), 0xFFFFFFFFu);
}

// Counts that describe more cells than the table holds print the count line as stored and the
// rows and columns of the capacity only; within the capacity's cell count nothing changes.
TEST(BoundedPrinting, TokenFormStopsAtTheCapacity) {
    AlcData data = alcData();
    data.setRowCount(4);
    data.setColCount(10);
    const std::string full = printed(data);
    const std::string fullCounts = "COUNT:  4*10";
    data.setRowCount(5);
    std::string expected = full;
    expected.replace(expected.find(fullCounts), fullCounts.size(), "COUNT:  5*10");
    EXPECT_EQ(printed(data), expected);

    data.setRowCount(0xFFFFFFFFu);
    data.setColCount(0xFFFFFFFFu);
    expected = full;
    expected.replace(expected.find(fullCounts), fullCounts.size(), "COUNT:  4294967295*4294967295");
    EXPECT_EQ(printed(data), expected);

    // One line per cell when the rows outnumber the columns: at most the 40 cells held.
    data.setColCount(3);
    const std::string vector = printed(data);
    EXPECT_EQ(std::count(vector.begin(), vector.end(), '\n'), 2 + 4 * 3 + 1);
    EXPECT_EQ(vector.substr(vector.size() - 22), "\n4:  0.000\n4:  0.000\n\n");

    // A row count with no columns would print empty lines without end.
    data.setColCount(0);
    EXPECT_EQ(printed(data), "ID:  RFBO_ALC_DATA\nCOUNT:  4294967295*0\n\n");
    // Rows without columns print no row lines, and that printout reads back.
    data.setRowCount(3);
    EXPECT_EQ(printed(data), "ID:  RFBO_ALC_DATA\nCOUNT:  3*0\n\n");
    EXPECT_TRUE(readReported(printed(data)).ok());
}

// A stream that can not be rewound holds no section for the readers, whatever follows in it.
TEST(TokenFormReadSection, StreamThatCanNotRewindHoldsNothing) {
    struct Unseekable : std::streambuf {
        explicit Unseekable(std::string& text) { setg(&text[0], &text[0], &text[0] + text.size()); }
    };
    std::string text = "ID:  RFBO_ALC_DATA\nCOUNT:  1*1\n1: \t5.000\n\n";
    Unseekable buffer(text);
    std::istream in(&buffer);
    AlcData data("RFBO_ALC_DATA", 15731, 0, 1.0, false);
    const TextReadStatus status = data.readSection(in, data);
    EXPECT_EQ(status.code, TextReadStatus::MissingKey);
    EXPECT_EQ(status.message(), "can not find 'ID:'");
    EXPECT_TRUE(in.fail());
}
