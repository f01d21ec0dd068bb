// The self-describing block: both header layouts, types, CRC field, element texts, debug pages,
// access.
#include "SampleImages.h"

#include <IHwDatablockAccess.h>

#include <gtest/gtest.h>
#include <sstream>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {

// The sample's header moved to the short layout: no CRC-32, everything two bytes earlier.
QByteArray shortImage() {
    return bytesOf({
        0x21,   0x4E,    0x18, 0x00, 0,      0,      // id 20001, size 24, checksum
        1,      0,       0x99, 0x99, 0xFF,   0xFB,   // alignment 1, reserved, update index -5
        0x01,   0x2C,    0x00, 0x02, STRING, CHAR10, // 300 rows, 2 columns, id types
        DOUBLE, FIX16D3, 0,    0,    0,      0,      // column types, data
    });
}

HwSDataBlockCfg sampleCfg() {
    HwSDataBlockCfg cfg;
    cfg.blockName = QStringLiteral("FREQ_RESPONSE");
    cfg.date = QStringLiteral("2019-04-01");
    cfg.sector = 3;
    cfg.address = 0x1A40;
    cfg.columnDescriptions = QStringLiteral("Count;Label;Gain correction");
    return cfg;
}

} // namespace

TEST(HwDatablock2Edition, DebugPagesAsGolden) {
    HwDatablock2Edition block;
    load(block, pageImage());
    std::ostringstream summary, detail, complete, viaPrint;
    block.printDebugPageHeading(summary, true);
    block.printDebugPageSummary(summary, sampleCfg());
    block.printDebugPageHeading(detail, false);
    block.printDebugPageDetail(detail, sampleCfg());
    block.printDebugPageComplete(complete, sampleCfg());
    block.printToStream2Edition(viaPrint, sampleCfg());
    EXPECT_EQ(summary.str(), golden("directory/summary.txt"));
    EXPECT_EQ(detail.str(), golden("directory/detail.txt"));
    EXPECT_EQ(complete.str(), golden("directory/complete.txt"));
    EXPECT_EQ(viaPrint.str(), complete.str());

    // A cut image shows the identifiers it holds whole, and no piece of the next one.
    load(block, pageImage().left(31));
    std::ostringstream cut;
    block.printDebugPageDetail(cut, HwSDataBlockCfg());
    EXPECT_NE(cut.str().find("\n# COL         10          \nDESC:"), std::string::npos);

    // A sound image whose last column holds no values (type NONE) still shows that column.
    load(block, bytesOf({
                    0x21,  0x4E, 0x20, 0x00, 0,    0,    0,    0, // id 20001, size 32
                    0,     0,    0,    0,    0,    0,             // CRC-32, update index
                    0x00,  0x02, 0x00, 0x02, NONE, NONE, // 2 rows, 2 columns, no identifiers
                    INT32, NONE, 0,    0,                // column types, padding to 24
                    0x2A,  0,    0,    0,    0xFF, 0xFF, 0xFF, 0xFF, // rows 0 and 1: 42, -1
                }));
    std::ostringstream none;
    block.printDebugPageComplete(none, HwSDataBlockCfg());
    const std::string page = none.str();
    EXPECT_EQ(page.substr(page.find("DESC:")),
              "DESC:       \nTYPE: INT32 NONE\n0     42    \n1     -1    \n\n");
}

TEST(HwDatablock2Edition, ReadsBothHeaderLayoutsAndTruncatedHeadersAsZero) {
    HwDatablock2Edition block;
    EXPECT_EQ(hex(block.getByteArrayData()), "00 00 0c 00 00 00 00 00 00 00 00 00");
    EXPECT_TRUE(block.getStopConversionOnError());
    load(block, pageImage());
    EXPECT_EQ(block.getNumberOfColumns(7), 3); // the block index is ignored
    EXPECT_EQ(block.getColumnIdType(), UINT16);
    EXPECT_EQ(block.getColumnType(2), FIX32D4);
    EXPECT_EQ(block.getColumnType(3), NONE); // past the column count: data bytes are not types
    EXPECT_EQ(block.getColumnType(-1), NONE);
    EXPECT_EQ(block.getSizeOfRowIdType(), 2);
    EXPECT_EQ(block.getSizeOfColumnIdType(), 2);

    load(block, shortImage());
    EXPECT_FLOAT_EQ(block.getUpdateIndex(), -0.05f);
    EXPECT_EQ(block.getNumberOfRows(0), 300);
    EXPECT_EQ(block.getNumberOfColumns(0), 2);
    EXPECT_EQ(block.getRowIdType(), STRING);
    EXPECT_EQ(block.getColumnIdType(), CHAR10);
    EXPECT_EQ(block.getColumnType(0), DOUBLE);
    EXPECT_EQ(block.getColumnType(1), FIX16D3);
    EXPECT_EQ(block.getSizeOfRowIdType(), 0);
    EXPECT_EQ(block.getSizeOfColumnIdType(), 10);

    // The same bytes with alignment 0 are read as the long layout.
    QByteArray asLong = shortImage();
    asLong[6] = 0;
    load(block, asLong);
    EXPECT_EQ(block.getNumberOfRows(0), 2);
    EXPECT_FLOAT_EQ(block.getUpdateIndex(), 3.0f); // 0x012C = 300 hundredths

    // Header fields cut by the image end read as zero.
    const QByteArray full = pageImage();
    for (int n = 0; n <= 22; ++n) {
        load(block, full.left(n));
        EXPECT_EQ(block.getNumberOfRows(0), n >= 16 ? 2 : 0) << n;
        EXPECT_EQ(block.getNumberOfColumns(0), n >= 18 ? 3 : 0) << n;
        EXPECT_EQ(block.getRowIdType(), n >= 19 ? FIX16D1 : NONE) << n;
        EXPECT_EQ(block.getColumnType(2), n >= 23 ? FIX32D4 : NONE) << n;
        EXPECT_EQ(block.getUpdateIndex(), n >= 14 ? 1.05f : 0.0f) << n;
    }
}

// The odd rows of the type table; the others show in the printed and walked tests.
TEST(HwDatablock2Edition, TypeNamesKeepTheirQuirks) {
    EXPECT_STREQ(HwDatablock2Edition::getTypeString(FIX32D1), "INT16");
    EXPECT_STREQ(HwDatablock2Edition::getTypeString(FIX32D2), "INT16");
    EXPECT_STREQ(HwDatablock2Edition::getTypeString(LONG_DOUBLE), "LONG DOUBLE");
    EXPECT_STREQ(HwDatablock2Edition::getTypeString(ETypeId(26)), "NONE");
    EXPECT_STREQ(HwDatablock2Edition::getTypeString(ETypeId(255)), "NONE");
    EXPECT_EQ(HwDatablock2Edition::size_in_byte(FIX32D1), 4);
    EXPECT_EQ(HwDatablock2Edition::size_in_byte(ETypeId(26)), 0);
}

TEST(HwDatablock2Edition, SetChecksum32WritesOnlyInsideTheImage) {
    HwDatablock2Edition block;
    EXPECT_TRUE(block.setChecksum32(0x11223344));
    EXPECT_EQ(hex(block.getByteArrayData().mid(8)), "44 33 22 11");
    EXPECT_EQ(block.getChecksum32(), 0x11223344u);

    const QByteArray four = bytesOf({1, 2, 3, 4});
    load(block, four);
    EXPECT_TRUE(block.setChecksum32(0xAABBCCDD));
    EXPECT_EQ(block.getByteArrayData(), four);

    load(block, QByteArray(10, '\0'));
    EXPECT_TRUE(block.setChecksum32(0xAABBCCDD));
    EXPECT_EQ(hex(block.getByteArrayData()), "00 00 00 00 00 00 00 00 dd cc");
}

// Printed by the block and turned to text by the generic access, which takes the element's bytes
// as they are held and adds no padding.
TEST(HwDatablock2Edition, EveryElementTypePrintedAndAsAccessText) {
    struct Case {
        ETypeId type;
        QByteArray bytes;
        const char* text;
        int advance;
        const char* accessText; // when it differs from `text`
    };
    const Case cases[] = {
        {UINT8, bytesOf({0xFF}), "255", 1, nullptr},
        {INT8, bytesOf({0xFF}), "-1", 1, nullptr},
        {UINT16, bytesOf({0x34, 0x12}), "4660", 2, nullptr},
        {INT16, bytesOf({0xFE, 0xFF}), "-2", 2, nullptr},
        {UINT32, bytesOf({0xFF, 0xFF, 0xFF, 0xFF}), "4294967295", 4, nullptr},
        {INT32, bytesOf({0x00, 0x00, 0x00, 0x80}), "-2147483648", 4, nullptr},
        {UINT64, bytesOf({0, 0, 0, 0, 0, 0, 0, 0x80}), "9223372036854775808", 8, nullptr},
        {INT64, bytesOf({0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}), "-1", 8, nullptr},
        {FLOAT, bytesOf({0x00, 0x00, 0xC0, 0x3F}), "1.5", 4, nullptr},
        {DOUBLE, bytesOf({0x18, 0x2D, 0x44, 0x54, 0xFB, 0x21, 0x09, 0x40}), "3.14159", 8, nullptr},
        {LONG_DOUBLE, bytesOf({0, 0, 0, 0, 0, 0, 0, 0xC0, 0xFF, 0x3F}), "1.5", 10, nullptr},
        {FIX16D1, bytesOf({0xFB, 0xFF}), "-0.5", 2, nullptr},
        {FIX16D4, bytesOf({0x7B, 0x00}), "0.0123", 2, nullptr},
        {FIX32D1, bytesOf({0xA0, 0x86, 0x01, 0x00}), "10000.0", 4, nullptr},
        {FIX32D1, bytesOf({0xF1, 0xFF}), "6552.1", 4, "-1.5"}, // two bytes held: sign-extended
        {FIX32D2, bytesOf({0x9C, 0xFF, 0xFF, 0xFF}), "-1.00", 4, nullptr},
        {FIX32D4, bytesOf({0x39, 0x30, 0x00, 0x00}), "1.2345", 4, nullptr},
        {CHAR, bytesOf({'x'}), "x", 1, nullptr},
        {CHAR5, bytesOf({'a', 'b', 0, 'z', 'z'}), "ab    ", 5, "ab"},
        {CHAR10, QByteArray("0123456789"), "0123456789", 10, nullptr},
        {STRING, QByteArray("text"), "text", 0, nullptr},
        {NONE, bytesOf({0x41}), "", 0, nullptr},
        {ETypeId(40), bytesOf({0x41}), "", 0, nullptr},
    };
    HwDatablock2Edition block;
    HwSBlockDescription table;
    table.rowCount = 1;
    for (const Case& c : cases) {
        QByteArray buffer = c.bytes;
        buffer.append(QByteArray(24, '\0')); // room past the element, and a zero after a text
        auto* p = reinterpret_cast<unsigned char*>(buffer.data());
        std::ostringstream out;
        out << 2.5 << ' ';
        EXPECT_EQ(block.printDataTypeToStream(out, p, c.type) - p, c.advance) << int(c.type);
        out << ' ' << 2.5; // the stream's own format is left as it was
        EXPECT_EQ(out.str(), std::string("2.5 ") + c.text + " 2.5") << int(c.type);
        table.colTypes.push_back(c.type);
        table.values.push_back({c.bytes});
    }
    std::ostringstream out;
    EXPECT_EQ(block.printDataTypeToStream(out, nullptr, INT32), nullptr);

    CommonDatablockAccess access(nullptr, nullptr, false);
    table.colCount = quint32(table.colTypes.size());
    access.addBlock(table);
    testing::internal::CaptureStderr();
    const QStringList texts = access.getDataInStringVector(0).value(0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "CommonDatablockAccess::convValue: type (0) not supported\n"
              "CommonDatablockAccess::convValue: type (40) not supported\n");
    ASSERT_EQ(texts.size(), int(std::size(cases)));
    for (int i = 0; i < texts.size(); ++i)
        EXPECT_EQ(texts[i].toStdString(), cases[i].accessText ? cases[i].accessText : cases[i].text)
            << int(cases[i].type);
}

TEST(HwDatablock2Edition, ServesTheAccessInterface) {
    HwDatablock2Edition block;
    QByteArray image = pageImage();
    image[2] = static_cast<char>(0xFF); // size field 0x00FF, beyond the 64-byte image
    load(block, image);
    IHwDatablockAccess* access = &block;
    EXPECT_EQ(access->getBlockSize(0), 64); // never more than the image holds
    EXPECT_EQ(block.getBlockSize(), 255);
    EXPECT_EQ(access->getData(0), block.getData());
    EXPECT_FALSE(access->isListFormat());
    access->setListFormat(true);
    EXPECT_EQ(access->computeChecksum32(), block.HwDatablock::computeChecksum32());

    HwDatablock2Edition copy = block; // copies image, list flag and the rest
    EXPECT_EQ(copy.getByteArrayData(), block.getByteArrayData());
    EXPECT_TRUE(copy.isListFormat());
}
