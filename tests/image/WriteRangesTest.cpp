// The ranges a device write touches: differing bytes widened to whole pages, merged, cut at the
// end of the device.
#include <WriteRanges.h>

#include <gtest/gtest.h>

using Tupsim::ByteRange;
using Tupsim::changedRanges;

namespace {

QByteArray changed(QByteArray bytes, std::initializer_list<int> offsets) {
    for (int offset : offsets)
        bytes[offset] = static_cast<char>(bytes[offset] ^ 0x5A);
    return bytes;
}

} // namespace

TEST(WriteRanges, RoundsMergesAndCutsAtTheEnd) {
    const QByteArray before(100, '\0');
    EXPECT_TRUE(changedRanges(before, before, 32).isEmpty());
    // One byte: its page. Two bytes in one page, and in touching pages: one range.
    EXPECT_EQ(changedRanges(before, changed(before, {33}), 32), QVector<ByteRange>({{32, 32}}));
    EXPECT_EQ(changedRanges(before, changed(before, {31, 32}), 32), QVector<ByteRange>({{0, 64}}));
    // Pages apart stay apart; the last page is cut at byte 100.
    const QVector<ByteRange> ranges = changedRanges(before, changed(before, {0, 70, 99}), 32);
    EXPECT_EQ(ranges, QVector<ByteRange>({{0, 32}, {64, 36}}));
    EXPECT_EQ(Tupsim::pageCount(ranges, 32), 3);
    EXPECT_EQ(Tupsim::byteCount(ranges), 68);
    EXPECT_EQ(Tupsim::rangesText(ranges), "0x0000-0x001f, 0x0040-0x0063");
    // Page size 1 (and below): the differing bytes themselves.
    EXPECT_EQ(changedRanges(before, changed(before, {5, 6, 9}), 0),
              QVector<ByteRange>({{5, 2}, {9, 1}}));
    // A longer new content is new from the old end on; a shorter one writes nothing past it.
    EXPECT_EQ(changedRanges(before.left(40), before, 32), QVector<ByteRange>({{32, 68}}));
    EXPECT_TRUE(changedRanges(before, before.left(40), 32).isEmpty());
    EXPECT_EQ(changedRanges(QByteArray(), before.left(10), 4096), QVector<ByteRange>({{0, 10}}));
}
