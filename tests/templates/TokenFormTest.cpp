// The token form: exact output of every table kind, reading sections back, the reader's exits on
// malformed files, and readSection that reports them instead.
#include "TemplateTestSupport.h"

#include <HwDatablockBaseTemplate.h>
#include <HwDatablockBaseTemplateExtended.h>
#include <HwDatablockBaseTemplateIndex.h>
#include <HwDatablockBaseTemplateWexW.h>

#include "templates/HwDatablockTemplate.h"

#include <algorithm>
#include <type_traits>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {
template <class Raw, class Value, int Rows, int Cols>
using Base = HwDatablockBaseTemplate<Raw, Value, Rows, Cols>;
using AlcFreq = Base<unsigned int, double, 10, 1>;
using AlcData = Base<int, int, 4, 10>;
using Extended = HwDatablockBaseTemplateExtended<int, int, 10, 4, 350>;
using WexW = HwDatablockBaseTemplateWexW<float, double, 50, 7>;
using Misc = HwDatablockTemplate<MiscData<int, 10, 1>, int, double, 10, 1>;
const char* const kExtended = "RFBO_EXT_CAL_VEC_USER_DATA";

template <class Block>
Block& fill(Block& block, unsigned rows, unsigned cols, std::initializer_list<double> values) {
    unsigned i = 0;
    for (double v : values) {
        using Raw = std::remove_reference_t<decltype(block.getBlock()->values[0][0])>;
        block.setCalValue(static_cast<Raw>(v), i / cols, i % cols);
        ++i;
    }
    block.setRowCount(rows);
    block.setColCount(cols);
    return block;
}

AlcFreq alcFreq() {
    AlcFreq block("RFBO_ALC_FREQ", 15730, 0, 100, false);
    return fill(block, 3, 1, {100000, 200000, 300050});
}

AlcData alcData() {
    AlcData block("RFBO_ALC_DATA", 15731, 0, 1.0, false);
    return fill(block, 2, 4, {1, -2, 3, 40, -100, 0, 7, 123456});
}

// Prints a filled block and reads it back with searchascii and readSection into fresh twins.
template <class Block>
void expectRoundTrip(const char* name, int id, double factor, unsigned rows, unsigned cols,
                     std::initializer_list<double> values) {
    SCOPED_TRACE(name);
    ServiceRecorders services;
    std::string blockName = name; // the WexW kind takes a writable name
    Block source(&blockName[0], id, 0, factor, false);
    const std::string text = printed(fill(source, rows, cols, values));
    Block twin(&blockName[0], id, 0, factor, false);
    EXPECT_EQ(readText(twin, text), "");
    EXPECT_EQ(hex(twin.getByteArrayData()), hex(source.getByteArrayData())) << text;
    Block reported(&blockName[0], id, 0, factor, false);
    EXPECT_EQ(readSection(reported, text).message(), "ok");
    EXPECT_EQ(hex(reported.getByteArrayData()), hex(source.getByteArrayData()));
    EXPECT_TRUE(services.errors.signalled.empty());
}
} // namespace

TEST(TokenForm, EveryKindAndShapeOfTableUpToTheCapacityAndRoundTrips) {
    AlcFreq freq = alcFreq();
    EXPECT_EQ(printed(freq), golden("templates/token_vector.txt"));
    AlcData data = alcData();
    EXPECT_EQ(printed(data), golden("templates/token_table.txt"));
    AlcData other("OTHER_NAME", 1, 0, 1.0, false);
    std::ostringstream converted; // conv2ascii names this block with the source's cells
    other.conv2ascii(converted, data);
    EXPECT_EQ(converted.str(), "ID:  OTHER_NAME" + golden("templates/token_table.txt").substr(18));
    AlcData empty("RFBO_ALC_DATA", 15731, 0, 1.0, false);
    EXPECT_EQ(printed(empty), "ID:  RFBO_ALC_DATA\nCOUNT:  0*0\n\n");
    // Equal counts still give one line per row; more rows than columns one line per cell.
    EXPECT_EQ(printed(fill(data, 2, 2, {1, -2})), "ID:  RFBO_ALC_DATA\nCOUNT:  2*2\n1: \t1.000\t"
                                                  "-2.000\n2: \t-100.000\t0.000\n\n");
    data.setRowCount(3);
    EXPECT_EQ(printed(data), "ID:  RFBO_ALC_DATA\nCOUNT:  3*2\n1:  1.000\n1:  -2.000\n"
                             "2:  -100.000\n2:  0.000\n3:  0.000\n3:  0.000\n\n");

    Extended extended(kExtended, 16003, 0, 1.0, false);
    for (int i = 0; i < 10; ++i) {
        std::string text = "DESC" + std::to_string(i) + "___________";
        extended.setDescriptor(i, text);
    }
    EXPECT_EQ(printed(fill(extended, 2, 3, {1, 2, 3, 4, 5, -6})),
              golden("templates/token_extended.txt"));
    char name[] = "IQ_IMBALANCE";
    WexW wexw(name, 15606, 0, 1.0, false);
    EXPECT_EQ(printed(fill(wexw, 2, 1, {0.5, -1.25})), golden("templates/token_wexw.txt"));
    Misc misc("PYM_DCON_VTRIM_VALUE", 12310, 0, 0.25, false);
    EXPECT_EQ(printed(fill(misc, 3, 1, {6, -1, 2147483647})), golden("templates/token_misc.txt"));
    // A value wider than the 20-character buffer is cut at its end.
    HwDatablockTemplate<MiscData<int, 1, 1>, int, double, 1, 1> big("PYM_DCON_LEVELPRE2", 12311, 0,
                                                                    1e9, false);
    EXPECT_EQ(printed(fill(big, 1, 1, {1000000})),
              "ID:  PYM_DCON_LEVELPRE2\nCOUNT:  1*1\n1: \t1000000000000000.00\n\n");

    // Corrupt counts print as stored, then only the rows and columns of the capacity.
    data = alcData();
    data.setRowCount(1);
    data.setColCount(11); // within the cell count: zeros for the missing cells
    EXPECT_NE(printed(data).find("\t40.000\t0.000\t0.000\t0.000\t0.000\t0.000\t0.000\t0.000\n"),
              std::string::npos);
    data.setRowCount(4);
    data.setColCount(10);
    const std::string full = printed(data);
    data.setRowCount(0xFFFFFFFFu);
    data.setColCount(0xFFFFFFFFu);
    EXPECT_EQ(printed(data), replaced(full, "COUNT:  4*10", "COUNT:  4294967295*4294967295"));
    // One line per cell when the rows outnumber the columns: at most the 40 cells held.
    data.setColCount(3);
    const std::string vector = printed(data);
    EXPECT_EQ(std::count(vector.begin(), vector.end(), '\n'), 2 + 4 * 3 + 1);
    EXPECT_EQ(vector.substr(vector.size() - 22), "\n4:  0.000\n4:  0.000\n\n");
    // Rows without columns print no row lines (not empty lines without end) and read back.
    data.setColCount(0);
    EXPECT_EQ(printed(data), "ID:  RFBO_ALC_DATA\nCOUNT:  4294967295*0\n\n");
    data.setRowCount(3);
    EXPECT_TRUE(readSection(data, printed(data)).ok());

    expectRoundTrip<Base<char, double, 12, 1>>("CHARS", 15850, 1, 3, 1, {-128, 127, 5});
    expectRoundTrip<Base<short, short, 6, 1>>("SHORTS", 15690, 1, 6, 1, {-32768, 32767, 0, -1});
    expectRoundTrip<Base<unsigned short, double, 64, 50>>("LEVCON", 15853, 1, 2, 3,
                                                          {65535, 0, 1, 2, 3, 4});
    expectRoundTrip<Base<int, int, 5, 350>>("INTS", 15726, 1, 2, 2,
                                            {-2147483647, 2147483647, -9, 100});
    expectRoundTrip<Base<int, double, 2, 128>>("LEVEL", 15716, 0.01, 2, 2, {-1234, 1234, 99, 5});
    expectRoundTrip<Base<unsigned, unsigned, 50, 4>>("WORDS", 15799, 1, 1, 2, {4000000000.0, 1});
    expectRoundTrip<Base<unsigned, double, 750, 1>>("FREQ", 16000, 100, 2, 1, {4000000000.0, 1});
    expectRoundTrip<Base<float, float, 50, 4>>("FLOATS", 15798, 1, 2, 2, {1.5, -0.25, 1000.125, 0});
    expectRoundTrip<Base<double, double, 200, 1>>("DOUBLES", 15760, 1, 2, 1, {0.125, -1e6});
    expectRoundTrip<WexW>("IQ_IMBALANCE", 15606, 1, 2, 7,
                          {0.5, -1.25, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 0.0625});
    expectRoundTrip<Misc>("PYM_DCON_VTRIM_VALUE", 12310, 0.25, 3, 1, {6, -1, 2147483647});
}

TEST(TokenFormRead, DescriptorsValuesAndSectionsInAnyOrder) {
    ServiceRecorders services;
    Extended extended(kExtended, 16003, 0, 1.0, false);
    std::string shortText = "AB"; // the rest stays zero bytes and is printed so
    extended.setDescriptor(0, shortText);
    extended.setDescriptor(9, shortText);
    Extended target(kExtended, 16003, 0, 1.0, false);
    readText(target, printed(fill(extended, 1, 2, {7, -8})));
    EXPECT_EQ(hex(target.getByteArrayData()), hex(extended.getByteArrayData()));

    // Without the key for descriptor 2 the reading of descriptors stops, the section does not.
    readText(target, "ID:  RFBO_EXT_CAL_VEC_USER_DATA\nDESCRIPTOR1: ONE\n"
                     "DESCRIPTOR3: THREE\nCOUNT:  1*1\n1: \t4\n");
    std::string got;
    target.getDescriptor(0, got);
    target.getDescriptor(2, got);
    EXPECT_EQ(got, "ONE             " + std::string(16, '\0'));
    EXPECT_EQ(target.getCalValue(0, 0), 4);
    readText(target, "ID: RFBO_EXT_CAL_VEC_USER_DATA DESCRIPTOR1: ABCDEFGHIJKLMNOPQRST COUNT: 0*0");
    got.clear();
    target.getDescriptor(0, got);
    EXPECT_EQ(got, "ABCDEFGHIJKLMNOP");
    EXPECT_TRUE(target.verifyChecksum());

    HwDatablockBaseTemplate<int, double, 2, 128> levels("L", 15716, 0, 0.01, false);
    readText(levels, "ID:  L\nCOUNT:  1*3\n1: \t0.019\t-0.019\t-12.34\n");
    EXPECT_EQ(hex(levels.getByteArrayData().mid(16, 12)),
              "01 00 00 00 ff ff ff ff 2e fb ff ff"); // 1, -1, -1234
    EXPECT_TRUE(levels.verifyChecksum());
    // "12.5" stops the reading, later cells get 0.
    AlcData data("RFBO_ALC_DATA", 15731, 0, 1.0, false);
    readText(data, "ID:  RFBO_ALC_DATA\nCOUNT:  1*3\n1: \t12.5\t7\t8\n");
    EXPECT_EQ(hex(data.getByteArrayData().mid(8, 20)),
              "01 00 00 00 03 00 00 00 0c 00 00 00 00 00 00 00 00 00 00 00");

    AlcFreq freq = alcFreq();
    AlcData alc = alcData();
    using Indexed = HwDatablockBaseTemplateIndex<int, int, 27, 20>;
    Indexed indexed("RFBO_ATT_CAL_VEC_DATA", 15843, 0, 1, false);
    indexed.setIndex(3, 0);
    fill(indexed, 1, 1, {9});
    AlcFreq decoy("RFBO_ALC_FREQ_X", 1, 0, 1, false); // a longer name is another block
    std::stringstream file(printed(decoy) + printed(alc) + printed(indexed) + printed(freq));
    AlcFreq freqIn("RFBO_ALC_FREQ", 15730, 0, 100, false);
    AlcData dataIn("RFBO_ALC_DATA", 15731, 0, 1.0, false);
    Indexed indexedIn("RFBO_ATT_CAL_VEC_DATA", 15843, 0, 1, false);
    freqIn.searchascii(file, freqIn);
    dataIn.searchascii(file, dataIn);
    indexedIn.searchascii(file, indexedIn);
    EXPECT_EQ(freqIn.getByteArrayData(), freq.getByteArrayData());
    EXPECT_EQ(dataIn.getByteArrayData(), alc.getByteArrayData());
    EXPECT_EQ(indexedIn.getByteArrayData(), indexed.getByteArrayData());
    freqIn.setCalValue(1, 0, 0);
    freqIn.searchascii(file, freqIn);
    EXPECT_EQ(freqIn.getByteArrayData(), freq.getByteArrayData());

    // The name may stand anywhere behind the first "ID:"; a count at the capacity is read.
    readText(dataIn, "ID: SOMETHING_ELSE words RFBO_ALC_DATA COUNT: 4*1 1: 1 2: 2 3: 3 4: 5");
    EXPECT_EQ(dataIn.getCalValue(3, 0), 5);
    EXPECT_EQ(dataIn.getRowCount(), 4u);
    // A negative count passes searchascii, not readSection.
    readText(dataIn, "ID: RFBO_ALC_DATA\nCOUNT:  1*-1\n1: 5\n");
    EXPECT_EQ(dataIn.getColCount(), 0xFFFFFFFFu);
    // Without the name (and not strict) the block becomes an empty table of id 0.
    readText(alc, "ID:  RFBO_ALC_FREQ\nCOUNT:  1*1\n1:  5\n");
    QByteArray emptyTable = freshImage(0, 176);
    sealChecksum(emptyTable);
    EXPECT_EQ(hex(alc.getByteArrayData()), hex(emptyTable));
    EXPECT_TRUE(services.errors.signalled.empty());
}

// searchascii ends the process on a malformed section (for a missing id or name only when the
// block stops conversions on errors); readSection reports the same with its line instead.
TEST(TokenFormReadDeathTest, MalformedSectionsEndTheProcessOrAreReported) {
    ServiceRecorders services;
    using S = TextReadStatus;
    const S::Code missing = S::MissingKey, high = S::CountTooHigh, negative = S::CountNegative;
    const std::string id = "ID: RFBO_ALC_DATA\n";
    const struct {
        std::string text;
        int exitCode; // of searchascii, 0 when it does not end the process
        S::Code code;
        std::string key;
        std::string message;
    } cases[] = {
        {"COUNT: 1*1\n1: 5\n", 1, missing, "ID:", "line 2: can not find 'ID:'"},
        {"", 0, missing, "ID:", "can not find 'ID:'"},
        {"ID: RFBO_ALC_FREQ\nCOUNT: 1*1\n1: 5", 1, missing, "RFBO_ALC_DATA",
         "line 3: can not find 'RFBO_ALC_DATA'"},
        {id + "1*1\n1: 5\n", 1, missing, "COUNT:", "line 3: can not find 'COUNT:'"},
        {id + "COUNT: 1 1\n1: 5\n", 1, missing, "*", "line 3: can not find '*'"},
        {id + "COUNT: 2*1\n1: 5\n\n", 1, missing, ":", "line 4: can not find ':'"},
        {"# head\n" + id + "\nCOUNT:  5*1\n1: 5\n", 2, high, "",
         "line 4: row count 5 above the capacity 4"},
        {id + "COUNT:  4*11\n", 2, high, "", "line 2: column count 11 above the capacity 10"},
        {id + "COUNT:  4294967295*1\n1: 5\n", 0, negative, "",
         "line 2: row count 4294967295 is negative (-1)"},
        {id + "\nCOUNT:  1*-1\n1: 5\n", 0, negative, "",
         "line 3: column count 4294967295 is negative (-1)"},
        {id + "COUNT: 1*x\n", 0, S::BadValue, "", "line 2: column count could not be read"},
        {id + "COUNT: 2*3\n1: 1 2 3\n2: 4 5\n", 0, S::BadValue, "",
         "line 4: value in row 2, column 3 is missing"},
        {id + "COUNT: 1*2\n1: 7\n  abc 8\n", 0, S::BadValue, "",
         "line 4: value 'abc' in row 1, column 2 could not be read"},
        {id + "COUNT: 1*3\n1: \t12.5\t7\t8\n", 0, S::BadValue, "",
         "line 3: value '12.5' in row 1, column 1 could not be read"},
        {id + "COUNT: 2*3\n1: 1 2\n2: 4 5 6\n", 0, S::BadValue, "",
         "line 4: value '2:' in row 1, column 3 could not be read"}};
    for (const auto& c : cases) {
        // A failed read leaves the target alone; nothing reaches either standard stream.
        AlcData block("RFBO_ALC_DATA", 15731, 0, 1.0, false);
        block.setCalValue(99, 3, 9);
        const QByteArray before = block.getByteArrayData();
        testing::internal::CaptureStderr();
        const TextReadStatus status = readSection(block, c.text);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
        EXPECT_EQ(status.code, c.code) << c.text;
        EXPECT_EQ(status.key, c.key) << c.text;
        EXPECT_EQ(status.message(), c.message) << c.text;
        EXPECT_TRUE(status.complaints.empty());
        EXPECT_EQ(block.getByteArrayData(), before) << c.text;
        if (c.exitCode == 0)
            continue;
        AlcData strict("RFBO_ALC_DATA", 15731, 0, 1.0, c.key == "ID:" || c.key == "RFBO_ALC_DATA");
        std::istringstream in(c.text);
        const std::string key = c.key == "*" ? "\\*" : c.key;
        EXPECT_EXIT(strict.searchascii(in, strict), testing::ExitedWithCode(c.exitCode),
                    c.exitCode == 1 ? "^can not find string:  " + key + "  in ASCII-File\n$"
                                    : "^ count of Block RFBO_ALC_DATA is too high\n$")
            << c.text;
    }
    // A stream that can not be rewound holds no section, whatever follows in it.
    std::string text = "ID:  RFBO_ALC_DATA\nCOUNT:  1*1\n1: \t5.000\n\n";
    Unseekable buffer(text);
    std::istream in(&buffer);
    AlcData data("RFBO_ALC_DATA", 15731, 0, 1.0, false);
    EXPECT_EQ(data.readSection(in, data).message(), "can not find 'ID:'");
    EXPECT_TRUE(in.fail());
    EXPECT_TRUE(services.errors.signalled.empty());
}
