// Byte-order conversion of old-style blocks through the directory's switch, and the checks of
// converted blocks: the same results, reports and end state as converting the block to the
// reference form, checking it there and converting it back.
#include "SampleImages.h"

#include <EpromDatablock.h>
#include <HwDatablockTeshVectorLevconTempData.h>

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <sstream>

using namespace Tupsim;
using namespace Tupsim::test;

TEST(OldStyleConversion, SupportedAndRefusedIds) {
    for (int id : {2, 10, 110, 209, 300, 11310, 11313, 12001, 15690, 15700, 15852, 15853, 15862,
                   16000, 16003}) {
        HwDatablock block(false);
        load(block, QByteArray(64, '\0'));
        block.setBlockId(static_cast<unsigned short>(id));
        EXPECT_TRUE(
            HwDatablockOldStyleInterpreter::swapHwDatablock(HwDataFormatConverted, id, &block))
            << id;
        EXPECT_EQ(block.getDataFormatTyp(), HwDataFormatConverted) << id;
    }
    // In the directory but without a rule here (299, calibration blocks below 15690, misc-data
    // tables, the end block), ids between the catalogue's rows, and ids nobody knows.
    for (int id : {0, 1, 11, 111, 210, 299, 301, 10000, 11304, 11309, 11314, 12300, 15689, 15691,
                   15802, 15863, 16004, 20000, 65535}) {
        HwDatablock block(false);
        QByteArray image = bytesOf({id & 0xFF, id >> 8, 12, 0, 0, 0, 0, 0, 1, 2, 3, 4});
        sealChecksum(image);
        load(block, image);
        EXPECT_FALSE(
            HwDatablockOldStyleInterpreter::swapHwDatablock(HwDataFormatConverted, id, &block))
            << id;
        EXPECT_EQ(block.getDataFormatTyp(), HwDataFormatReference) << id;
        EXPECT_EQ(hex(block.getByteArrayData()), hex(image)) << id;
    }
    EXPECT_FALSE(
        HwDatablockOldStyleInterpreter::swapHwDatablock(HwDataFormatConverted, 2, nullptr));
}

// On a little-endian host the per-id rules keep the bytes; what they change is the form, the
// size of a bare table header, and nothing past a short image.
TEST(OldStyleConversion, ConvertedFormKeptThroughSettersAndShortImagesNotReadPast) {
    ServiceRecorders services;
    HwDatablockIdent ident;
    ident.swapDataTo(HwDataFormatConverted, 2, &ident);
    ASSERT_EQ(ident.getDataFormatTyp(), HwDataFormatConverted);
    ident.setSerialNumber(4712); // refreshes the checksum through the switch and back
    EXPECT_EQ(ident.getDataFormatTyp(), HwDataFormatConverted);
    EXPECT_EQ(ident.getSerialNumber(), 4712u);
    EXPECT_TRUE(ident.verifyChecksum());
    EXPECT_TRUE(services.errors.signalled.empty());

    // An identification image cut after five bytes stays five bytes long.
    HwDatablock cut(false);
    load(cut, bytesOf({2, 0, 44, 0, 0x17}));
    EXPECT_TRUE(HwDatablockOldStyleInterpreter::swapHwDatablock(HwDataFormatConverted, 2, &cut));
    EXPECT_EQ(cut.getDataFormatTyp(), HwDataFormatConverted);
    EXPECT_EQ(hex(cut.getByteArrayData()), "02 00 2c 00 17");

    // A table image of the bare header becomes a zeroed table of the class's size.
    HwDatablock header(false);
    header.setBlockId(15841);
    EXPECT_TRUE(
        HwDatablockOldStyleInterpreter::swapHwDatablock(HwDataFormatConverted, 15841, &header));
    const QByteArray grown = header.getByteArrayData();
    ASSERT_EQ(grown.size(), HwDatablockTeshRfBoExtCalVecData().getByteArrayData().size());
    EXPECT_EQ(header.getId(), 15841u);
    EXPECT_EQ(header.getBlockSize(), static_cast<unsigned short>(grown.size()));
    EXPECT_EQ(grown.mid(8), QByteArray(grown.size() - 8, '\0'));

    // Nothing at all: no id, nothing to read.
    HwDatablock empty(false);
    load(empty, QByteArray());
    EXPECT_TRUE(
        HwDatablockOldStyleInterpreter::swapHwDatablock(HwDataFormatConverted, 300, &empty));
    EXPECT_TRUE(empty.getByteArrayData().isEmpty());
    EXPECT_TRUE(
        HwDatablockOldStyleInterpreter::swapHwDatablock(HwDataFormatConverted, 16001, &empty));
}

namespace {

// What `step` returned and reported, and how it left `block`, as one text.
std::string observe(HwDatablock& block, const std::function<int()>& step) {
    ServiceRecorders services;
    std::ostringstream out;
    out << step() << " | " << hex(block.getByteArrayData()) << " | form "
        << block.getDataFormatTyp() << ", class " << block.getDatablockClassTyp();
    for (const DebugLine& line : services.debug.lines)
        out << " | " << line.text.toStdString();
    out << " | " << services.debug.history.size() << " reports";
    return out.str();
}

// The check run in the reference form, between converting there and back.
int viaReference(HwDatablock& b, bool compute) {
    const HwEDataFormatTyp format = b.getDataFormatTyp();
    const unsigned short id = static_cast<unsigned short>(b.getId());
    b.swapDataTo(HwDataFormatReference, id, &b);
    const int result = compute ? int(b.computeChecksum()) : int(b.verifyChecksum());
    b.swapDataTo(format, id, &b);
    return result;
}

struct Case {
    const char* name;
    std::function<HwDatablock*()> make;
    QByteArray image;
    HwEDataFormatTyp format;
};

// A self-describing image with `crc` in its CRC-32 field and a valid 16-bit checksum.
QByteArray sealedPage(unsigned crc) {
    QByteArray image = pageImage();
    putAt<unsigned>(image, 8, crc);
    sealChecksum(image);
    return image;
}

std::vector<Case> cases() {
    HwDatablockIdent ident;
    ident.setSerialNumber(4711);
    HwDatablockOroRfboAlcData alc;
    alc.setRowCount(2);
    alc.setColCount(3);
    alc.setCalValue(-5, 1, 2);
    const auto self = [] { return new HwDatablock2Edition; };
    const auto plain = [] { return new HwDatablock(false); };
    QByteArray spoiledAlc = alc.getByteArrayData();
    spoiledAlc[20] = static_cast<char>(spoiledAlc[20] ^ 0x40);
    return {
        {"self-describing", self, sealedPage(crcOf(pageImage())), HwDataFormatConverted},
        {"self-describing, wrong CRC", self, sealedPage(0x12345678), HwDataFormatConverted},
        {"event counter mark", self, sealedPage(0x452D0040), HwDataFormatConverted},
        {"ident", [] { return new HwDatablockIdent; }, ident.getByteArrayData(),
         HwDataFormatConverted},
        {"ident, third form", [] { return new HwDatablockIdent; }, ident.getByteArrayData(),
         static_cast<HwEDataFormatTyp>(2)},
        {"table", [] { return new HwDatablockOroRfboAlcData; }, alc.getByteArrayData(),
         HwDataFormatConverted},
        {"table, wrong checksum", [] { return new HwDatablockOroRfboAlcData; }, spoiledAlc,
         HwDataFormatConverted},
        {"ident cut short", plain, bytesOf({2, 0, 44, 0, 0x17}), HwDataFormatConverted},
        {"unknown id", plain, bytesOf({5, 0, 10, 0, 1, 0, 0, 0, 1, 0}), HwDataFormatConverted},
    };
}

} // namespace

TEST(ConvertedChecks, SameAsConvertingThereAndBack) {
    for (const Case& c : cases()) {
        SCOPED_TRACE(c.name);
        for (bool compute : {true, false}) {
            SCOPED_TRACE(compute ? "computeChecksum" : "verifyChecksum");
            std::unique_ptr<HwDatablock> twin(c.make()), block(c.make());
            for (HwDatablock* b : {twin.get(), block.get()}) {
                load(*b, c.image);
                b->swapDataTo(c.format, static_cast<unsigned short>(b->getId()), b);
                b->setDataFormatTyp(c.format);
            }
            EXPECT_EQ(observe(*block,
                              [&] {
                                  return compute ? int(block->computeChecksum())
                                                 : int(block->verifyChecksum());
                              }),
                      observe(*twin, [&] { return viaReference(*twin, compute); }));
        }
    }
}
