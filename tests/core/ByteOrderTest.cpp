// Byte-order conversion: the generic pass over self-describing images and the converter choice.
#include "support/Blocks.h"

#include <ETypeId.h>
#include <HwDatablock.h>

#include <gtest/gtest.h>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {

// Self-describing image: one table of 2 rows by 3 columns (INT32, CHAR5, INT16), UINT16 row ids.
QByteArray sampleImage() {
    return bytesOf({
        0x4E,   0x20, 0x00,  0x38,  0,     0,         // id 20000, size 56 (MSB first), checksum
        0,      0,    0,     0,     0,     0,         // alignment, CRC-32
        0x00,   0x64, 0x00,  0x02,  0x00,  0x03,      // update index, 2 rows, 3 columns
        UINT16, NONE, INT32, CHAR5, INT16, 0x00,      // id types, column types, padding
        0x11,   0x22, 0x33,  0x44,                    // row ids
        0x01,   0x02, 0x03,  0x04,  'a',   'b',  'c', // row 0: INT32, CHAR5,
        'd',    'e',  0x05,  0x06,                    //   INT16
        0x07,   0x08, 0x09,  0x0A,  'v',   'w',  'x', // row 1
        'y',    'z',  0x0B,  0x0C,                    //
        0,      0,    0,     0,     0,     0, // following table: 0 rows, 0 columns, no types
    });
}

} // namespace

TEST(ByteOrder, GenericPassReversesElementsAndKeepsHeadersAndTexts) {
    HwDatablock block(false);
    const QByteArray original = sampleImage();
    load(block, original);
    block.swapBlock(HwDataFormatConverted, 0, nullptr);
    EXPECT_EQ(block.getDataFormatTyp(), HwDataFormatConverted);
    // Header, table words, types, texts and the following table keep their order.
    QByteArray expected = original;
    expected.replace(24, 26,
                     bytesOf({0x22, 0x11, 0x44, 0x33, 4, 3, 2,   1,   'a', 'b', 'c', 'd',  'e',
                              6,    5,    0x0A, 9,    8, 7, 'v', 'w', 'x', 'y', 'z', 0x0C, 0x0B}));
    const QByteArray swapped = block.getByteArrayData();
    EXPECT_EQ(hex(swapped), hex(expected));
    block.swapBlock(HwDataFormatConverted, 0, nullptr); // same target: nothing happens
    EXPECT_EQ(block.getByteArrayData(), swapped);
    block.swapBlock(HwDataFormatReference, 0, nullptr);
    EXPECT_EQ(block.getByteArrayData(), original);
}

TEST(ByteOrder, HostileImagesEndTheWalk) {
    // column types that take no bytes, and a huge row count: the walk must not spin
    HwDatablock block(false);
    QByteArray empty(40, '\0');
    empty[14] = empty[15] = static_cast<char>(0xFF);
    empty[17] = 2;
    empty[20] = 99; // unknown type codes
    load(block, empty);
    block.swapBlock(HwDataFormatConverted, 0, nullptr);
    EXPECT_EQ(block.getByteArrayData(), empty);

    // images shorter than the header
    for (int n = 0; n < 20; ++n) {
        QByteArray tiny(n, static_cast<char>(0xFF));
        load(block, tiny);
        block.swapBlock(block.getDataFormatTyp() == HwDataFormatReference ? HwDataFormatConverted
                                                                          : HwDataFormatReference,
                        0, nullptr);
        EXPECT_EQ(block.getByteArrayData(), tiny);
    }
}

TEST(ByteOrder, SwapDataToChoosesTheConverter) {
    ServiceRecorders services;
    HwDatablock block(false);
    QByteArray image = sampleImage();
    load(block, image);
    block.setDataFormatTyp(HwDataFormatConverted);

    // form 1 below id 20000 goes to the old-style conversion, which knows no id here
    QByteArray low = image;
    low[0] = 0x1F; // id word read least significant first: 0x1F20 = 7968
    load(block, low);
    block.swapDataTo(HwDataFormatReference, 7968, &block);
    EXPECT_EQ(block.getDataFormatTyp(), HwDataFormatConverted);
    EXPECT_EQ(block.getByteArrayData(), low);

    // form 1 with id 20000 or more: the generic pass
    QByteArray high = image;
    putAt<unsigned short>(high, 0, 20000);
    load(block, high);
    block.swapDataTo(HwDataFormatReference, 20000, &block);
    EXPECT_EQ(block.getDataFormatTyp(), HwDataFormatReference);
    EXPECT_EQ(hex(block.getByteArrayData().mid(28, 4)), "04 03 02 01");

    // form 0: only a valid CRC-32 makes it self-describing, whatever the id
    load(block, high);
    block.setDataFormatTyp(HwDataFormatReference);
    block.swapDataTo(HwDataFormatConverted, 20000, &block);
    EXPECT_EQ(block.getDataFormatTyp(), HwDataFormatReference); // CRC wrong: old-style, unknown
    QByteArray sealed = high;
    putAt<unsigned short>(sealed, 2, 56); // the size as the little-endian header reads it
    sealCrc(sealed);
    load(block, sealed);
    block.swapDataTo(HwDataFormatConverted, 0, &block);
    EXPECT_EQ(block.getDataFormatTyp(), HwDataFormatConverted);
    EXPECT_EQ(hex(block.getByteArrayData().mid(28, 4)), "04 03 02 01");

    // same format as target: nothing is checked or changed
    services.debug.lines.clear();
    block.swapDataTo(HwDataFormatConverted, 0, &block);
    EXPECT_TRUE(services.debug.lines.empty());
}
