// Block record: header accessors on short images, setters, data transfers, dumps.
#include "support/Blocks.h"

#include <HwDatablock.h>

#include <gtest/gtest.h>
#include <sstream>

using namespace Tupsim;
using namespace Tupsim::test;

TEST(HwDatablock, FreshHeaderAndSettersThatKeepTheChecksumValid) {
    ServiceRecorders services;
    HwDatablock block(true);
    EXPECT_EQ(hex(block.getByteArrayData()), "00 00 08 00 00 00 00 00");
    EXPECT_EQ(block.getBlockSize(), 8);
    EXPECT_TRUE(block.getStopConversionOnError());
    EXPECT_EQ(block.getDataFormatTyp(), HwDataFormatReference);
    EXPECT_EQ(block.getDatablockClassTyp(), HwDatablockClassNone);
    block.setBlockId(10000);
    EXPECT_EQ(hex(block.getByteArrayData()), "10 27 08 00 e8 d8 00 00");
    block.setBlockSize(0x0C0A);
    EXPECT_EQ(hex(block.getByteArrayData()), "10 27 0a 0c e6 cc 00 00");
    block.setAlignment(4);
    EXPECT_EQ(block.getAlignment(), 4);
    EXPECT_TRUE(block.verifyChecksum());
    block.setChecksum(0x1111);
    EXPECT_EQ(hex(block.getByteArrayData()), "10 27 0a 0c 11 11 04 00");
    EXPECT_FALSE(block.verifyChecksum());

    load(block, bytesOf({0xFF, 0xFF, 0x40, 0x00})); // the end id reports size four
    EXPECT_EQ(block.getBlockSize(), 4);
    EXPECT_EQ(block.getMagicIdentifierEventCount(), 0x452D0004u);
}

TEST(HwDatablock, ShortImagesReadAsZeroAndSettersDoNothing) {
    ServiceRecorders services;
    HwDatablock block(false);
    // id 0x0201, size 0x0403, checksum 0x0605, alignment 0x0807, cut to each length
    const QByteArray full = bytesOf({0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08});
    load(block, full.left(1));
    EXPECT_EQ(block.getId(), 0u);
    block.setBlockId(0x1234);
    EXPECT_EQ(hex(block.getByteArrayData()), "01");
    load(block, full.left(3));
    EXPECT_EQ(block.getId(), 0x0201u);
    EXPECT_EQ(block.getBlockSize(), 0);
    block.setBlockSize(99);
    EXPECT_EQ(hex(block.getByteArrayData()), "01 02 03");
    load(block, full.left(5));
    EXPECT_EQ(block.getBlockSize(), 0x0403);
    EXPECT_EQ(block.getChecksum(), 0);
    load(block, full.left(7));
    EXPECT_EQ(block.getChecksum(), 0x0605);
    EXPECT_EQ(block.getAlignment(), 0);
    block.setAlignment(3);
    EXPECT_EQ(hex(block.getByteArrayData()), "01 02 03 04 05 06 07");
    load(block, QByteArray());
    EXPECT_EQ(block.getId(), 0u);
    EXPECT_EQ(block.getChecksum32(), 0u);
}

TEST(HwDatablock, DataTransfers) {
    ServiceRecorders services;
    HwDatablock block(false);
    EXPECT_FALSE(block.setData(static_cast<const unsigned char*>(nullptr), 4));
    EXPECT_TRUE(block.setDataWithoutChecksumCheck(static_cast<const unsigned char*>(nullptr), 4));
    EXPECT_FALSE(block.setData(static_cast<HwDatablock*>(nullptr)));
    EXPECT_FALSE(block.setDataWithoutChecksumCheck(static_cast<HwDatablock*>(nullptr)));
    EXPECT_EQ(hex(block.getByteArrayData()), "00 00 08 00 00 00 00 00");

    // A bad image is kept even though the check fails.
    QByteArray bad = bytesOf({0x02, 0x00, 0x08, 0x00, 0x00, 0x00, 0x00, 0x00});
    EXPECT_FALSE(block.setData(bad));
    EXPECT_EQ(block.getByteArrayData(), bad);

    // setData(other) reports the other block's check and takes its format.
    HwDatablock other(false);
    other.setBlockId(7);
    other.setDataFormatTyp(static_cast<HwEDataFormatTyp>(5));
    EXPECT_TRUE(block.setData(&other));
    EXPECT_EQ(block.getDataFormatTyp(), 5);
    EXPECT_EQ(block.getByteArrayData(), other.getByteArrayData());

    HwDatablock source(false);
    source.setBlockId(3);
    HwDatablock target(false);
    EXPECT_FALSE(target.setHwDatablockFirmwareConform(&source));
    EXPECT_EQ(target.getByteArrayData(), source.getByteArrayData());
    EXPECT_FALSE(target.setHwDatablockFirmwareConform(nullptr));

    HwDatablock copy(block);
    EXPECT_EQ(copy.getByteArrayData(), block.getByteArrayData());
    copy.replaceDataInList(&source);
    EXPECT_EQ(copy.getByteArrayData(), source.getByteArrayData());
    EXPECT_EQ(copy.getDataFormatTyp(), 5);
}

TEST(HwDatablock, PrintToStreamWritesSixtyOneThenSixtyBytesPerLine) {
    HwDatablock block(false);
    load(block, QByteArray(121, 'a'));
    std::ostringstream out;
    block.printToStream(out);
    EXPECT_EQ(out.str(), "\n" + std::string(61, 'a') + "\n" + std::string(60, 'a') + "\n");
    out << 255; // the stream's number format is restored
    EXPECT_EQ(out.str().substr(out.str().size() - 3), "255");

    HwDatablock empty(false);
    empty.resizeData(0);
    std::ostringstream emptyOut;
    empty.printToStream(emptyOut);
    EXPECT_EQ(emptyOut.str(), "\n\n");
}

TEST(HwDatablock, HexDumpPromotesBytesAsSignedChars) {
    char bytes[17] = {0x01, static_cast<char>(0x80)};
    testing::internal::CaptureStdout();
    HwDatablock::printHexDump(bytes, 17);
    const std::string out = testing::internal::GetCapturedStdout();
    EXPECT_EQ(out, "01 ffffff80 00 00 00 00 00 00 00 00 00 00 00 00 00 00 \n00 \n");
}
