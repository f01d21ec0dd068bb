// Every instantiation the library provides links through the exported headers alone and has
// the block size of its layout.
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

TEST(TemplateInstantiations, BaseTemplateBlockSizes) {
    check<HwDatablockBaseTemplate<char, double, 12, 1>>(28);
    check<HwDatablockBaseTemplate<short, short, 6, 1>>(28);
    check<HwDatablockBaseTemplate<unsigned short, double, 50, 1>>(116);
    check<HwDatablockBaseTemplate<unsigned short, double, 64, 1>>(144);
    check<HwDatablockBaseTemplate<unsigned short, double, 64, 50>>(6416);
    check<HwDatablockBaseTemplate<int, int, 8, 1>>(48);
    check<HwDatablockBaseTemplate<int, int, 10, 1>>(56);
    check<HwDatablockBaseTemplate<int, int, 4, 10>>(176);
    check<HwDatablockBaseTemplate<int, int, 2, 128>>(1040);
    check<HwDatablockBaseTemplate<int, int, 6, 50>>(1216);
    check<HwDatablockBaseTemplate<int, int, 4, 292>>(4688);
    check<HwDatablockBaseTemplate<int, int, 5, 350>>(7016);
    check<HwDatablockBaseTemplate<int, double, 1, 128>>(528);
    check<HwDatablockBaseTemplate<int, double, 2, 128>>(1040);
    check<HwDatablockBaseTemplate<int, double, 4, 50>>(816);
    check<HwDatablockBaseTemplate<unsigned int, unsigned int, 50, 1>>(216);
    check<HwDatablockBaseTemplate<unsigned int, unsigned int, 50, 4>>(816);
    check<HwDatablockBaseTemplate<unsigned int, double, 10, 1>>(56);
    check<HwDatablockBaseTemplate<unsigned int, double, 20, 1>>(96);
    check<HwDatablockBaseTemplate<unsigned int, double, 32, 1>>(144);
    check<HwDatablockBaseTemplate<unsigned int, double, 50, 1>>(216);
    check<HwDatablockBaseTemplate<unsigned int, double, 128, 1>>(528);
    check<HwDatablockBaseTemplate<unsigned int, double, 150, 1>>(616);
    check<HwDatablockBaseTemplate<unsigned int, double, 200, 1>>(816);
    check<HwDatablockBaseTemplate<unsigned int, double, 292, 1>>(1184);
    check<HwDatablockBaseTemplate<unsigned int, double, 350, 1>>(1416);
    check<HwDatablockBaseTemplate<unsigned int, double, 600, 1>>(2416);
    check<HwDatablockBaseTemplate<unsigned int, double, 750, 1>>(3016);
    check<HwDatablockBaseTemplate<unsigned int, double, 4, 32>>(528);
    check<HwDatablockBaseTemplate<float, float, 50, 4>>(816);
    check<HwDatablockBaseTemplate<double, double, 50, 1>>(416);
    check<HwDatablockBaseTemplate<double, double, 200, 1>>(1616);
}

TEST(TemplateInstantiations, VariantBlockSizes) {
    check<HwDatablockBaseTemplateIndex<int, int, 27, 20>>(2284);
    check<HwDatablockBaseTemplateIndex<int, int, 27, 200>>(21724);
    check<HwDatablockBaseTemplateIndex<int, int, 35, 150>>(21156);
    check<HwDatablockBaseTemplateIndex<int, int, 40, 200>>(32176);
    check<HwDatablockBaseTemplateIndex<int, int, 80, 50>>(16336);
    check<HwDatablockBaseTemplateExtended<int, int, 10, 4, 350>>(5776);
    check<HwDatablockBaseTemplateExtended<int, int, 10, 5, 750>>(15176);
    check<HwDatablockBaseTemplateExtended<short, int, 10, 13, 600>>(15776);
    check<HwDatablockBaseTemplateWexW<float, double, 50, 7>>(1416);
}

TEST(TemplateInstantiations, MiscDataTableSizes) {
    check<HwDatablockTemplate<MiscData<int, 1, 1>, int, double, 1, 1>>(20);
    check<HwDatablockTemplate<MiscData<int, 10, 1>, int, double, 10, 1>>(56);
    check<HwDatablockTemplate<MiscData<int, 10, 10>, int, double, 10, 10>>(416);
    check<HwDatablockTemplate<MiscData<int, 50, 1>, int, double, 50, 1>>(216);
    check<HwDatablockTemplate<MiscData<int, 50, 200>, int, double, 50, 200>>(40016);
    check<HwDatablockTemplate<MiscData<int, 100, 1>, int, double, 100, 1>>(416);
    check<HwDatablockTemplate<MiscData<int, 200, 1>, int, double, 200, 1>>(816);
    check<HwDatablockTemplate<MiscData<int, 1, 200>, int, double, 1, 200>>(816);
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
