// EepromImage: the chain walk and its breaks (with their inventory rows), the checks of every
// block, block replacement, and how two images differ.
#include "support/TestImages.h"

#include <EepromImage.h>
#include <ImageDiff.h>
#include <ImageInventory.h>

#include <gtest/gtest.h>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {

QStringList problemLines(const EepromImage& image) {
    QStringList lines;
    for (const ImageProblem& problem : image.problems())
        lines << QStringLiteral("%1: %2").arg(problem.offset).arg(problem.text);
    return lines;
}

} // namespace

TEST(EepromImage, BrokenChainsNameWhatBrokeThemAndWhere) {
    for (const BrokenChain& c : brokenChains()) {
        SCOPED_TRACE(c.what);
        const EepromImage image = EepromImage::fromBytes(c.image);
        EXPECT_TRUE(image.chainBroken() && !image.ok() && image.chainProblems().size() == 1);
        EXPECT_EQ(problemLines(image),
                  QStringList(QStringLiteral("%1: %2").arg(c.offset).arg(c.problem)));
        EXPECT_EQ(std::make_tuple(image.blockCount(), image.endOffset(), image.bytesUsed(),
                                  image.bytesFree()),
                  std::make_tuple(c.blocksRead, -1, 0, 0));
        EXPECT_EQ(image.bytes(), c.image);
        // The inventory row says what broke the chain and counts what was read before.
        BatchItem item;
        item.readable = true;
        item.image = image;
        const InventoryRow row = inventory::rowOf(item);
        EXPECT_EQ(
            std::make_tuple(row.verdict, row.reason, row.blocks, row.problems, row.identified),
            std::make_tuple(ImageVerdict::BrokenChain,
                            hex4(static_cast<unsigned>(c.offset)) + ": " + c.problem, c.blocksRead,
                            1, false));
    }
    EXPECT_EQ(problemLines(EepromImage()), QStringList("0: the image is empty"));
}

TEST(EepromImage, SampleChainSpaceAndTableCapacity) {
    const EepromImage image = EepromImage::fromBytes(example("sample.eeprom"));
    ASSERT_EQ(image.size(), 32768);
    EXPECT_TRUE(image.ok() && image.problems().isEmpty() && image.block(13).isEnd);
    // Offsets, sizes, names and space are the tool's listing of the sample.
    EXPECT_EQ(std::make_tuple(image.blockCount(), image.blockBytes(5).size(), image.find(15731),
                              image.find(15731, 6), image.find(7)),
              std::make_tuple(14, 176, 5, -1, -1));

    // Table counts above the capacity fail the block, though its checksum is right.
    const EepromImage tooMany = EepromImage::fromBytes(sampleWithAlcRows(5));
    EXPECT_TRUE(tooMany.block(5).checksumOk && !tooMany.block(5).ok());
    EXPECT_EQ(tooMany.block(5).capacity.code, ResultCode::OverCapacity);
    EXPECT_EQ(tooMany.block(5).capacity.message, "counts 5*10 exceed the capacity 4*10");
    EXPECT_EQ(problemLines(tooMany),
              QStringList("164: block 15731: counts 5*10 exceed the capacity 4*10"));
}

TEST(EepromImage, ChecksumAndCrcAgreeWithIndependentSums) {
    QByteArray calib = calibBlock();
    calib[9] = 0x22; // payload changed, checksum left stale
    QByteArray rows = selfDescribingBlock();
    rows[14] = 0x05; // the checksum is re-sealed, the CRC is not
    sealChecksum(rows);
    // The event-counter mark 0x452D0000 + size stands in for a CRC.
    const QByteArray counter = sealed(bytesOf(
        {0x22, 0x4E, 0x10, 0x00, 0, 0, 0, 0, 0x10, 0x00, 0x2D, 0x45, 0x07, 0x00, 0x00, 0x00}));
    const QByteArray wrongMark = sealed(bytesOf(
        {0x22, 0x4E, 0x10, 0x00, 0, 0, 0, 0, 0x11, 0x00, 0x2D, 0x45, 0x07, 0x00, 0x00, 0x00}));
    QByteArray twelve = bytesOf({0x20, 0x4E, 0x0C, 0x00, 0, 0, 0, 0, 0, 0, 0, 0}); // CRC of 0..3
    sealCrc(twelve);
    sealChecksum(twelve);
    const QByteArray eleven = sealed(bytesOf({0x20, 0x4E, 0x0B, 0x00, 0, 0, 0, 0, 0, 0, 0}));
    const QByteArrayList blocks = {identBlock(), calib, rows, counter, wrongMark, twelve, eleven};
    const EepromImage image = EepromImage::fromBytes(blocks.join() + endBlock());
    ASSERT_EQ(image.blockCount(), 8);

    const struct {
        bool checksumOk, hasCrc, crcOk, eventCounter;
    } expected[] = {{true, false, true, false}, {false, false, true, false},
                    {true, true, false, false}, {true, true, true, true},
                    {true, true, false, false}, {true, true, true, false},
                    {true, true, false, false}};
    for (int i = 0; i < 7; ++i) {
        SCOPED_TRACE(i);
        const ImageBlock& b = image.block(i);
        const auto& e = expected[i];
        EXPECT_EQ(std::make_tuple(b.storedChecksum, b.computedChecksum, b.checksumOk, b.hasCrc,
                                  b.crcOk, b.eventCounter, b.ok()),
                  std::make_tuple(word(blocks[i], 4), word(sealed(blocks[i]), 4), e.checksumOk,
                                  e.hasCrc, e.crcOk, e.eventCounter, e.checksumOk && e.crcOk));
        if (b.hasCrc && blocks[i].size() >= 12) {
            EXPECT_EQ(std::make_pair(b.storedCrc, b.computedCrc),
                      std::make_pair(crcField(blocks[i]), crcOf(blocks[i])));
        }
    }
    EXPECT_EQ(problemLines(image),
              QStringList({QStringLiteral("16: block 10000: checksum BAD (stored %1, computed %2)")
                               .arg(hex4(word(calib, 4)), hex4(word(sealed(calib), 4))),
                           QStringLiteral("28: block 20001: CRC-32 BAD (stored %1, computed %2)")
                               .arg(hex8(crcField(rows)), hex8(crcOf(rows))),
                           QStringLiteral("64: block 20002: CRC-32 BAD (stored 0x452d0011, "
                                          "computed %1)")
                               .arg(hex8(crcOf(wrongMark))),
                           "92: block 20000: CRC-32 BAD (11 bytes cannot hold one)"}));
    EXPECT_FALSE(image.ok() || image.chainBroken());
    EXPECT_EQ(image.endOffset(), 103);
}

TEST(EepromImage, ReplacingBlocksKeepsTheImageLength) {
    const QByteArray original = goodImage(); // 52 bytes of chain, 12 free
    const auto resized = [](int payload) {
        QByteArray block = calibBlock().left(8) + QByteArray(payload, '\x01');
        block[2] = static_cast<char>(8 + payload);
        return sealed(block);
    };
    Outcome outcome;
    const auto replaced = [&](const QByteArray& block) {
        EepromImage image = EepromImage::fromBytes(original);
        outcome = image.replaceBlock(1, block);
        return image.bytes();
    };
    const QByteArray tail = selfDescribingBlock() + endBlock();
    // Growing eats free space, up to all of it; shrinking leaves erased bytes at the end.
    EXPECT_EQ(hex(replaced(resized(16))), hex(identBlock() + resized(16) + tail));
    EXPECT_EQ(hex(replaced(resized(0))),
              hex(identBlock() + resized(0) + tail + QByteArray(16, '\xFF')));
    EXPECT_EQ(EepromImage::fromBytes(replaced(resized(0))).endOffset(), 44);

    const auto refusal = [](const Outcome& outcome) {
        return QStringLiteral("%1: %2").arg(QLatin1String(resultCodeName(outcome.code)),
                                            outcome.message);
    };
    const struct {
        QByteArray block;
        const char* error;
    } refused[] = {
        {resized(17), "no room in the image: the new chain needs 65 bytes, the image holds 64"},
        {calibBlock() + bytesOf({0}),
         "corrupt block: the new block 1 of 13 bytes is not a block image"},
        {calibBlock().left(7), "corrupt block: the new block 1 of 7 bytes is not a block image"},
        {sealed(bytesOf({0xFF, 0xFF, 0x08, 0x00, 0, 0, 0, 0})),
         "corrupt block: the new block 1 of 8 bytes is not a block image"},
    };
    for (const auto& c : refused) {
        EXPECT_EQ(replaced(c.block), original);
        EXPECT_EQ(refusal(outcome), c.error);
    }

    EepromImage image = EepromImage::fromBytes(original);
    EXPECT_EQ(refusal(image.replaceBlock(3, calibBlock())), // the end block
              "no such block: there is no data block 3");
    EXPECT_EQ(refusal(image.replaceBlock(-1, calibBlock())),
              "no such block: there is no data block -1");
    // All or nothing: a good replacement does not happen beside a refused one.
    EXPECT_FALSE(image.replaceBlocks({{0, identBlock()}, {1, resized(17)}}).ok());
    EXPECT_EQ(image.bytes(), original);
    ASSERT_TRUE(image.replaceBlocks({{0, identBlock()}, {1, resized(4)}}).ok());
    EXPECT_EQ(image.bytes(), identBlock() + resized(4) + tail + QByteArray(12, '\xFF'));

    const QByteArray broken = brokenChains()[6].image;
    EepromImage chainless = EepromImage::fromBytes(broken);
    EXPECT_EQ(refusal(chainless.replaceBlock(1, calibBlock())),
              "chain broken: the chain is broken");
    EXPECT_EQ(chainless.bytes(), broken);
}

namespace {

// "kind id offsetA/offsetB sizeA/sizeB [field before->after ...] bytes" a block, then "free space"
// when the bytes behind the chains differ.
QStringList described(const ImageDiff& diff) {
    static const char* kinds[] = {"changed", "removed", "added"};
    QStringList lines;
    for (const BlockDifference& d : diff.differences) {
        QString line = QString::asprintf("%s %d %d/%d %d/%d", kinds[d.kind], d.id, d.offsetA,
                                         d.offsetB, d.sizeA, d.sizeB);
        for (const HeaderChange& change : d.headerChanges)
            line += QString::asprintf(" %s %d->%d", qPrintable(change.field), change.before,
                                      change.after);
        lines << line + QStringLiteral(" %1").arg(d.bytesChanged);
    }
    return diff.freeSpaceDiffers ? lines << "free space" : lines;
}

} // namespace

TEST(ImageDiff, ChangedRemovedAddedAndRepeatedBlocksAndFreeSpace) {
    // B drops the ident block, grows block 10000 by two bytes and changes two of its payload
    // bytes, and adds block 10001.
    QByteArray calib = calibBlock() + bytesOf({0x05, 0x06});
    calib[2] = 0x0E;
    calib[8] = 0x11;
    calib[11] = 0x44;
    sealChecksum(calib);
    const QByteArray added = sealed(bytesOf({0x11, 0x27, 0x08, 0x00, 0, 0, 0, 0}));
    const EepromImage b =
        EepromImage::fromBytes(calib + selfDescribingBlock() + added + endBlock());
    EXPECT_EQ(described(diffImages(EepromImage::fromBytes(goodImage()), b)),
              QStringList({"removed 2 0/-1 16/0 0",
                           QStringLiteral("changed 10000 16/0 12/14 size 12->14 checksum %1->%2 4")
                               .arg(word(calibBlock(), 4))
                               .arg(word(calib, 4)),
                           "added 10001 -1/34 0/8 0", "free space"}));
    EXPECT_EQ(described(diffImages(b, b)), QStringList());

    // Repeated ids pair in order.
    QByteArray second = calibBlock();
    second[6] = 0x01; // alignment 1
    sealChecksum(second);
    const QByteArray chainA = calibBlock() + calibBlock() + endBlock();
    const EepromImage a = EepromImage::fromBytes(chainA + QByteArray(4, '\xFF'));
    EXPECT_EQ(described(diffImages(a, EepromImage::fromBytes(calibBlock() + second + endBlock() +
                                                             QByteArray(4, '\xFF')))),
              QStringList(QStringLiteral("changed 10000 12/12 12/12 checksum %1->%2 alignment "
                                         "0->1 0")
                              .arg(word(calibBlock(), 4))
                              .arg(word(second, 4))));
    EXPECT_EQ(described(diffImages(
                  a, EepromImage::fromBytes(chainA + bytesOf({0xFF, 0xFF, 0x00, 0xFF})))),
              QStringList("free space"));
    // A broken chain has no free space to compare.
    EXPECT_FALSE(diffImages(a, EepromImage::fromBytes(chainA.left(27))).freeSpaceDiffers);
}
