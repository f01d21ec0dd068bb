// Loading images: setBlock and swapBlock, the variants' own loading rules and readbin from a
// binary stream.
#include "TemplateTestSupport.h"

#include <HwDatablockBaseTemplate.h>
#include <HwDatablockBaseTemplateExtended.h>
#include <HwDatablockBaseTemplateIndex.h>
#include <HwDatablockBaseTemplateWexW.h>

#include "templates/HwDatablockTemplate.h"
#include "templates/HwDatablockTemplateWithoutChecksum.h"

#include <gtest/gtest.h>
#include <sstream>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {
using AlcData = HwDatablockBaseTemplate<int, int, 4, 10>;             // 176 bytes
using AlcFreq = HwDatablockBaseTemplate<unsigned int, double, 10, 1>; // 56 bytes

// Two rows of three columns; cell (r, c) holds 100 * r + c + 1, (3, 9) holds -1.
QByteArray alcImage(unsigned id = 15731) {
    QByteArray image = tableImage(176, id, 2, 3);
    for (int r = 0; r < 2; ++r)
        for (int c = 0; c < 3; ++c)
            putAt<int>(image, 16 + (r * 10 + c) * 4, 100 * r + c + 1);
    putAt<int>(image, 16 + 39 * 4, -1);
    sealChecksum(image);
    return image;
}

// A frequency vector image of `rows` rows with `value` at `offset`, sealed.
QByteArray freqImage(int size, unsigned rows, int offset, unsigned value) {
    QByteArray image = tableImage(size, 15730, rows, 1);
    putAt<unsigned>(image, offset, value);
    sealChecksum(image);
    return image;
}

// A binary stream of `bytes` read by readbin past the id word, as the caller has read it.
void readFrom(std::istringstream& in, const QByteArray& bytes, AlcFreq& block) {
    in.str(bytes.toStdString());
    in.clear();
    in.seekg(2);
    block.readbin(in, block);
}
} // namespace

TEST(TableSetBlock, HeaderIsRebuiltButTheGivenChecksumStays) {
    ServiceRecorders services;
    AlcData block("RFBO_ALC_DATA", 15731, 0, 1.0, false);
    QByteArray image = alcImage();
    putAt<unsigned short>(image, 2, 100); // a size word of its own and a non-zero alignment
    putAt<unsigned short>(image, 6, 4);
    putAt<unsigned>(image, 8, 9); // counts above the capacity are kept as given
    putAt<unsigned>(image, 12, 70000);
    sealChecksum(image);
    block.resizeData(8); // as a prototype of the block directory is kept
    ASSERT_EQ(block.setBlock(record<AlcData>(image)), 0);
    const QByteArray loaded = block.getByteArrayData();
    EXPECT_EQ(hex(loaded.left(8)), "73 3d b0 00 " + hex(image.mid(4, 2)) + " 00 00");
    EXPECT_EQ(loaded.mid(8), image.mid(8));
    EXPECT_FALSE(block.verifyChecksum()) << "the image's own checksum no longer fits";

    image = alcImage(15799); // swapBlock copies without the check
    putAt<unsigned short>(image, 4, static_cast<unsigned short>(word(image, 4) + 1));
    block.swapBlock(record<AlcData>(image));
    EXPECT_EQ(block.getByteArrayData(), image);
    EXPECT_EQ(block.getCalValue(3, 9), -1);
    EXPECT_TRUE(services.errors.signalled.empty());
}

TEST(TableSetBlock, IndexAndDescriptorsAreCopiedWithTheCells) {
    ServiceRecorders services;
    using Indexed = HwDatablockBaseTemplateIndex<int, int, 27, 20>;
    Indexed indexed("RFBO_ATT_CAL_VEC_DATA", 15843, 0, 1.0, false);
    QByteArray image = tableImage(2284, 15843, 1, 1);
    putAt<int>(image, 16, 5);
    putAt<int>(image, 2176, -10); // index of row 0
    putAt<int>(image, 2280, 33);  // index of row 26
    sealChecksum(image);
    ASSERT_EQ(indexed.setBlock(record<Indexed>(image)), 0);
    EXPECT_EQ(indexed.getByteArrayData(), image);
    EXPECT_EQ(indexed.getIndex(0), -10);
    EXPECT_EQ(indexed.getIndex(26), 33);

    using Extended = HwDatablockBaseTemplateExtended<short, int, 10, 13, 600>;
    Extended extended("EXT_CAL_USER_DATA_A", 14805, 0, 1.0, false);
    QByteArray withText = tableImage(15776, 14805, 1, 2, 168);
    withText.replace(8, 16, "XXXXXXXXXXXXXXXX");
    withText.replace(8 + 9 * 16, 5, "LAST_");
    putAt<short>(withText, 176, -2); // cell (0, 0)
    sealChecksum(withText);
    ASSERT_EQ(extended.setBlock(record<Extended>(withText)), 0);
    EXPECT_EQ(extended.getByteArrayData(), withText);
    EXPECT_EQ(extended.getCalValue(0, 0), -2);

    // Only the given characters are replaced; descriptors are appended to the text.
    std::string text = "AB";
    extended.setDescriptor(0, text);
    std::string got = ">";
    extended.getDescriptor(0, got);
    extended.getDescriptor(9, got);
    EXPECT_EQ(got, ">ABXXXXXXXXXXXXXXLAST_" + std::string(11, '\0'));
    std::string longer = "0123456789abcdefTAIL";
    extended.setDescriptor(1, longer);
    extended.setDescriptor(10, longer); // past the descriptors: nothing
    extended.setDescriptor(-1, longer);
    got = "keep";
    extended.getDescriptor(10, got);
    extended.getDescriptor(-1, got);
    EXPECT_EQ(got, "keep");
    const QByteArray now = extended.getByteArrayData();
    EXPECT_EQ(now.mid(24, 16), QByteArray("0123456789abcdef"));
    EXPECT_EQ(now.mid(40), withText.mid(40));
    EXPECT_TRUE(sumsToZero(now));
}

TEST(TableSetBlock, WexWCopiesWithoutTestAndComputesItsOwnChecksum) {
    ServiceRecorders services;
    using WexW = HwDatablockBaseTemplateWexW<float, double, 50, 7>;
    char name[] = "IQ_IMBALANCE";
    WexW block(name, 15606, 0, 1.0, false);
    QByteArray image = tableImage(1416, 15606, 1, 1);
    putAt<float>(image, 16, 1.25f);
    putAt<unsigned short>(image, 4, 0x1234); // wrong on purpose
    EXPECT_EQ(block.setBlock(record<WexW>(image)), 0);
    EXPECT_TRUE(services.errors.signalled.empty());
    EXPECT_EQ(block.getCalValue(0, 0), 1.25);
    EXPECT_TRUE(block.verifyChecksum());

    char other[] = "OTHER";
    WexW assigned(other, 1, 1, 2.0, true);
    assigned = block;
    EXPECT_EQ(assigned.getByteArrayData(), block.getByteArrayData());
    EXPECT_EQ(assigned.getFactor(), 1.0);
    EXPECT_EQ(assigned.getInstance(), 0);
    EXPECT_EQ(printed(assigned), printed(block)); // the name came along
    EXPECT_EQ(WexW(block).getByteArrayData(), block.getByteArrayData());
}

TEST(TableSetBlock, WithoutChecksumCarriesTheChecksumWordUntouched) {
    ServiceRecorders services;
    using Counter = HwDatablockTemplateWithoutChecksum<MiscData<unsigned char, 1, 2048>,
                                                       unsigned char, double, 1, 2048>;
    Counter block("PYM_MWIF_SATT_COUNTER", 11304, 0, 1.0, false);
    QByteArray image = tableImage(2064, 11304, 1, 3);
    putAt<unsigned short>(image, 4, 0x1234);
    image[16] = static_cast<char>(200);
    EXPECT_EQ(block.setBlock(record<Counter>(image)), 0);
    EXPECT_EQ(block.getByteArrayData(), image);
    EXPECT_EQ(block.getCalValue(0, 0), 200.0);
    block.setCalValue(7, 0, 2047);
    block.setRowCount(5);
    block.removeValuesFromCol(0, 0, 0);
    EXPECT_EQ(block.getChecksum(), 0x1234);
    EXPECT_EQ(static_cast<unsigned char>(block.getByteArrayData()[16 + 2047]), 7);
    EXPECT_TRUE(services.errors.signalled.empty());
}

TEST(TableReadbin, ReadsTheBlockBehindItsIdWord) {
    ServiceRecorders services;
    AlcData reader("RFBO_ALC_DATA", 15731, 0, 1.0, false);
    AlcData target("RFBO_ALC_DATA", 15731, 0, 1.0, false);
    const QByteArray first = alcImage();
    QByteArray second = alcImage();
    putAt<int>(second, 16, 77);
    sealChecksum(second);
    std::istringstream in(("xy" + first + second + "z").toStdString());
    in.seekg(4);
    reader.readbin(in, target);
    EXPECT_EQ(target.getByteArrayData(), first);
    EXPECT_EQ(in.tellg(), std::streampos(2 + 176));
    in.seekg(2, std::ios::cur);
    reader.readbin(in, target);
    EXPECT_EQ(target.getByteArrayData(), second);
    EXPECT_EQ(in.get(), 'z');
    EXPECT_EQ(reader.getRowCount(), 0u) << "the reader itself stays as it was";
}

TEST(TableReadbin, SizeWordDecidesHowMuchIsRead) {
    ServiceRecorders services;
    AlcFreq block("RFBO_ALC_FREQ", 15730, 0, 100, false);
    std::istringstream in;
    // Fewer bytes than the block: padded with zeros, the block keeps its own size.
    const QByteArray shortImage = freqImage(20, 1, 16, 12345);
    readFrom(in, shortImage + "rest", block);
    QByteArray padded = shortImage + QByteArray(36, '\0');
    putAt<unsigned short>(padded, 2, 56);
    EXPECT_EQ(block.getByteArrayData(), padded);
    EXPECT_EQ(in.get(), 'r');
    // More bytes than the block: all are consumed.
    readFrom(in, freqImage(60, 2, 20, 7) + "!", block);
    EXPECT_EQ(block.getByteArrayData().size(), 56);
    EXPECT_EQ(block.getCalValue(1, 0), 700.0);
    EXPECT_EQ(in.get(), '!');
    // A stream that ends early fills nothing past what was read.
    const QByteArray cut = freqImage(56, 3, 16, 1);
    readFrom(in, cut.left(24), block);
    EXPECT_EQ(block.getByteArrayData(), cut);
    EXPECT_TRUE(services.errors.signalled.empty());

    // Nothing to read or a bad checksum leaves the target alone.
    for (const QByteArray& bytes :
         {QByteArray(), QByteArray("\x38"), tableImage(56, 15730, 3, 1)}) {
        in.str(bytes.toStdString());
        in.clear();
        if (bytes.size() > 2)
            in.seekg(2);
        block.readbin(in, block);
        EXPECT_EQ(block.getByteArrayData(), cut) << bytes.size();
    }
    ASSERT_EQ(services.errors.signalled.size(), 1u);
    EXPECT_EQ(services.errors.signalled[0].second, QString("15730"));
}
