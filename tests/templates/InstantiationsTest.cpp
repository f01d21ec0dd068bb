// Table template instantiations: block size of the layout, fresh header and members.
#include "TemplateTestSupport.h"

#include <HwDatablockBaseTemplate.h>
#include <HwDatablockBaseTemplateExtended.h>
#include <HwDatablockBaseTemplateIndex.h>
#include <HwDatablockBaseTemplateWexW.h>

#include "templates/HwDatablockTemplate.h"
#include "templates/HwDatablockTemplateWithoutChecksum.h"

#include <gtest/gtest.h>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {

template <class Block> void expectFresh(Block& block, unsigned size) {
    SCOPED_TRACE(size);
    const QByteArray image = block.getByteArrayData();
    ASSERT_EQ(image.size(), static_cast<int>(size));
    EXPECT_EQ(block.getBlockSize(), size);
    EXPECT_EQ(block.getId(), 4711u + 3u); // id plus instance
    EXPECT_EQ(block.getChecksum(), 0);    // not computed by the constructor
    EXPECT_EQ(image.mid(4).count('\0'), static_cast<int>(size) - 4);
    EXPECT_EQ(static_cast<void*>(block.getBlock()), static_cast<void*>(block.getData()));
}

template <class Block> void check(unsigned size) {
    char name[] = "T";
    Block block(name, 4711, 3, 1.0, false);
    expectFresh(block, size);
    EXPECT_EQ(sizeof(typename Block::HwSDatablock), size);
}

} // namespace

// One instantiation of each template kind; the catalogue test covers the named classes.
TEST(TemplateInstantiations, EachKindHasTheSizeOfItsLayout) {
    check<HwDatablockBaseTemplate<char, double, 12, 1>>(28);
    check<HwDatablockBaseTemplate<unsigned short, double, 64, 50>>(6416);
    check<HwDatablockBaseTemplate<int, int, 5, 350>>(7016);
    check<HwDatablockBaseTemplate<double, double, 200, 1>>(1616);
    check<HwDatablockBaseTemplateIndex<int, int, 27, 20>>(2284);
    check<HwDatablockBaseTemplateExtended<short, int, 10, 13, 600>>(15776);
    check<HwDatablockBaseTemplateWexW<float, double, 50, 7>>(1416);
    check<HwDatablockTemplate<MiscData<int, 1, 1>, int, double, 1, 1>>(20);
    check<HwDatablockTemplate<MiscData<int, 50, 200>, int, double, 50, 200>>(40016);
    check<HwDatablockTemplateWithoutChecksum<MiscData<unsigned char, 1, 2048>, unsigned char,
                                             double, 1, 2048>>(2064);
}

TEST(TemplateInstantiations, FreshBlockHeaderAndMembers) {
    HwDatablockBaseTemplate<int, int, 4, 292> block("RFBO_EXT_CAL_VEC_DATA", 15841, 2, 0.5, true);
    const QByteArray image = block.getByteArrayData();
    EXPECT_EQ(hex(image.left(8)), "e3 3d 50 12 00 00 00 00"); // 15843, 4688
    EXPECT_EQ(block.getRowCount(), 0u);
    EXPECT_EQ(block.getColCount(), 0u);
    EXPECT_EQ(block.getInstance(), 2);
    EXPECT_DOUBLE_EQ(block.getFactor(), 0.5);
    EXPECT_TRUE(block.getStopConversionOnError());
    // The id word is cut to 16 bits.
    HwDatablockBaseTemplate<int, int, 8, 1> wrapped("X", 65535, 2, 1.0, false);
    EXPECT_EQ(wrapped.getId(), 1u);
}
