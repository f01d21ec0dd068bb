// In-place byte swaps used by the per-id conversion, and copies of blocks with members.
#include "BlockTestSupport.h"

#include <HwDatablockCommonStatisticData.h>
#include <HwDatablockIdent.h>
#include <HwDatablockMbrdModel.h>
#include <HwDatablockMbrdSerialNumber.h>
#include <HwDatablockMiscIdent.h>
#include <HwDatablockModification.h>
#include <HwDatablockModification110.h>
#include <HwDatablockModification120.h>
#include <HwDatablockSAttCCounter.h>
#include <HwDatablockServiceData.h>
#include <HwDatablockStatistic.h>

#include <gtest/gtest.h>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {

// An image of `length` bytes of a block with `id`, alignment 0 and a pattern after the header.
QByteArray patterned(int id, int size, int length) {
    QByteArray image(length, 0);
    for (int i = 8; i < length; ++i)
        image[i] = static_cast<char>(i * 37 + 11);
    for (int i = 0; i < 4 && i < length; ++i)
        image[i] = static_cast<char>(((i < 2 ? id : size) >> (8 * (i % 2))) & 0xff);
    sealChecksum(image);
    return image;
}

// On this host the swap leaves every byte of a consistent image alone, at any length, and
// keeps the block's data format.
template <typename Block> void checkInPlaceSwap(Block& block, int id, int size) {
    for (int length : {0, 1, 3, 7, 9, 13, 21, size - 1, size}) {
        const QByteArray image = patterned(id, size, length);
        load(block, image);
        block.setDataFormatTyp(HwDataFormatConverted);
        block.swapOwnImage();
        EXPECT_EQ(hex(block.getByteArrayData()), hex(image)) << id << " length " << length;
        EXPECT_EQ(block.getDataFormatTyp(), HwDataFormatConverted);
    }
}

} // namespace

TEST(InPlaceSwap, EveryConvertibleKindKeepsItsImage) {
    ServiceRecorders services; // short images report their size mismatch
    HwDatablockIdent ident;
    checkInPlaceSwap(ident, 5, 44);
    HwDatablockModification modification;
    checkInPlaceSwap(modification, 100, 28);
    HwDatablockModification110 modification110;
    checkInPlaceSwap(modification110, 110, 28);
    HwDatablockModification120 modification120;
    checkInPlaceSwap(modification120, 120, 30);
    HwDatablockServiceData service;
    checkInPlaceSwap(service, 207, 24);
    HwDatablockStatistic statistic;
    checkInPlaceSwap(statistic, 300, 12);
    HwDatablockCommonStatisticData common;
    checkInPlaceSwap(common, 11312, 524);
    HwDatablockMbrdSerialNumber serial;
    checkInPlaceSwap(serial, 12000, 12);
    HwDatablockMbrdModel model;
    checkInPlaceSwap(model, 12001, 40);
}

TEST(InPlaceSwap, ServiceRuleClearsTheAlignmentButKeepsTheChecksum) {
    HwDatablockServiceData block(VARIANT_SERVICE_200);
    QByteArray image = patterned(200, 24, 24);
    image[6] = 4;
    sealChecksum(image);
    load(block, image);
    block.swapOwnImage();
    EXPECT_EQ(block.getAlignment(), 0);
    EXPECT_EQ(block.getByteArrayData().mid(4, 2), image.mid(4, 2));
    EXPECT_EQ(block.getByteArrayData().mid(8), image.mid(8));
}

TEST(BlockCopies, CarryImageAndMembers) {
    HwDatablockMiscIdent misc(VARIANT_STREAM_AUX_IDENT);
    HwDatablockMiscIdent miscCopy(misc);
    EXPECT_EQ(miscCopy.getMiscBlockId(), VARIANT_STREAM_AUX_IDENT);
    HwDatablockSAttCCounter counter(VARIANT_SATTC_HPCOUNTER_BACKUP);
    counter.setCounterValue(5, 1);
    HwDatablockSAttCCounter assigned;
    assigned = counter;
    EXPECT_EQ(assigned.getInstance(), VARIANT_SATTC_HPCOUNTER_BACKUP);
    EXPECT_EQ(assigned.getByteArrayData(), counter.getByteArrayData());
    HwDatablockModification110 list;
    list.setServiceCode(3, 77);
    HwDatablockModification110 listCopy = list;
    EXPECT_EQ(printed(listCopy), printed(list));
    const std::string head =
        "# Das sind die Servicedaten Modification\nID:              MODIFICATION_110\n";
    EXPECT_EQ(printed(listCopy).substr(0, head.size()), head);
}
