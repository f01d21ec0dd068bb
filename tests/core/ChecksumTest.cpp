// Checksum kernels against zlib and a word-by-word sum at every length and alignment; the block's
// 16-bit checksum and CRC-32: values, verification, reports.
#include "core/Checks.h"
#include "support/Blocks.h"

#include <HwDatablock.h>

#include <gtest/gtest.h>
#include <random>
#include <vector>
#include <zlib.h>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {

quint16 referenceSum(const unsigned char* p, std::size_t n) {
    quint16 sum = 0;
    for (std::size_t i = 0; i + 1 < n; i += 2)
        sum = static_cast<quint16>(sum + (p[i] | p[i + 1] << 8));
    return sum;
}

// Every kernel at one view; the view is the only part of the buffer it may read.
void expectAllAgree(const unsigned char* p, std::size_t n) {
    const quint32 zlibCrc = static_cast<quint32>(crc32(0L, p, static_cast<uInt>(n)));
    ASSERT_EQ(checks::crc32(0, p, n), zlibCrc) << n;
    ASSERT_EQ(checks::crc32SliceBy8(0, p, n), zlibCrc) << n;
    ASSERT_EQ(checks::crc32Bytewise(0, p, n), zlibCrc) << n;
    ASSERT_EQ(checks::crc32Skipping4to11(p, n),
              crcOf(QByteArray(reinterpret_cast<const char*>(p), int(n))))
        << n;
    ASSERT_EQ(checks::wordSum(p, n), referenceSum(p, n)) << n;
}

std::vector<unsigned char> randomBytes(std::size_t n, unsigned seed) {
    std::mt19937 random(seed);
    std::vector<unsigned char> out(n);
    for (auto& b : out)
        b = static_cast<unsigned char>(random());
    return out;
}

} // namespace

TEST(ChecksKernels, EveryLengthUpTo300AtEveryAlignment) {
    // A view that ends where the allocation ends: the address sanitizer sees any overread.
    // All ones: every 16-bit lane wraps.
    const std::vector<unsigned char> source = randomBytes(300 + 15, 7), ones(300, 0xFF);
    for (std::size_t align = 0; align < 16; ++align)
        for (std::size_t n = 0; n <= 300; ++n) {
            std::vector<unsigned char> exact(source.begin() + align, source.begin() + align + n);
            expectAllAgree(exact.data(), n);
            expectAllAgree(source.data() + align, n);
            expectAllAgree(ones.data() + 300 - n, n);
        }
}

TEST(ChecksKernels, CheckValueChainingBlockChecksumAndNullViews) {
    const unsigned char check[] = "123456789";
    EXPECT_EQ(checks::crc32(0, check, 9), 0xCBF43926u);
    const std::vector<unsigned char> data = randomBytes(1000, 3);
    const quint32 whole = checks::crc32(0, data.data(), data.size());
    for (std::size_t cut : {0u, 1u, 64u, 999u, 1000u})
        EXPECT_EQ(
            checks::crc32(checks::crc32(0, data.data(), cut), data.data() + cut, data.size() - cut),
            whole)
            << cut;

    // id 1, size 8, checksum 0xABCD (not counted), alignment 0
    const unsigned char header[8] = {1, 0, 8, 0, 0xCD, 0xAB, 0, 0};
    EXPECT_EQ(checks::blockChecksum(header, 8), 0xFFF7);
    EXPECT_EQ(checks::blockChecksum(header, 3), 0xFFFF); // no checksum word: the id word only
    EXPECT_EQ(checks::blockChecksum(header, 7), 0xFFF7); // the odd last byte is ignored
    EXPECT_EQ(checks::blockChecksum(header, 6), 0xFFF7); // the shortest with a checksum word
    EXPECT_EQ(checks::blockChecksum(header, 5), 0xFFF7); // no checksum word: the first two words
    EXPECT_EQ(checks::wordSum(nullptr, 8), 0);
    EXPECT_EQ(checks::blockChecksum(nullptr, 8), 0);
    EXPECT_EQ(checks::crc32(5, nullptr, 8), 5u);
    EXPECT_EQ(checks::crc32Skipping4to11(nullptr, 8), 0u);
}

TEST(Checksum16, FreshHeaderAndExternalBuffers) {
    ServiceRecorders services;
    HwDatablock block(false);
    EXPECT_EQ(block.computeChecksum(), 0xFFF8);
    block.setChecksum(block.computeChecksum());
    EXPECT_TRUE(block.verifyChecksum());
    EXPECT_TRUE(services.debug.lines.empty()); // a passed check says nothing

    // words: id 1, size 8, checksum 0xABCD (ignored), alignment 0; the buffer holds image
    // bytes, least significant first on every host
    QByteArray buffer = bytesOf({0x01, 0x00, 0x08, 0x00, 0xCD, 0xAB, 0x00, 0x00});
    unsigned short* words = reinterpret_cast<unsigned short*>(buffer.data());
    EXPECT_EQ(block.computeChecksum(words, 8), 0xFFF7);
    EXPECT_EQ(word(buffer, 4), 0xABCDu); // the checksum word is put back
    putAt<unsigned short>(buffer, 4, 0xFFF7);
    EXPECT_TRUE(block.verifyChecksum(words, 8, true));
    EXPECT_TRUE(block.verifyChecksum(words, 8, false));
    putAt<unsigned short>(buffer, 6, 1);
    EXPECT_FALSE(block.verifyChecksum(words, 8, true));
    EXPECT_FALSE(block.verifyChecksum(words, 8, false));
    EXPECT_FALSE(block.verifyChecksum(nullptr, 8, false));
    EXPECT_TRUE(services.debug.messageBoxes.isEmpty());
    block.computeChecksum(words, 7);
    EXPECT_EQ(services.debug.messageBoxes,
              QStringList{"Compute datablock checksum|Block size not an even number !|1|2|17|0|0"});
}

TEST(Checksum16, FailureReportsAndSizeMismatch) {
    ServiceRecorders services;
    HwDatablock block(false);
    // size field 0: always a failed check
    load(block, bytesOf({0x05, 0x00, 0x00, 0x00, 0xFB, 0xFF, 0x00, 0x00}));
    EXPECT_FALSE(block.verifyChecksum());

    // 10-byte block with a wrong checksum: the alignment complaint follows
    services.debug.history.clear();
    services.debug.lines.clear();
    load(block, bytesOf({0x05, 0x00, 0x0A, 0x00, 0x00, 0x00, 0x00, 0x00, 0x01, 0x00}));
    EXPECT_FALSE(block.verifyChecksum());
    EXPECT_EQ(services.debug.history, QStringList{"Alignment of Block 5 is wrong!\n"});
    ASSERT_EQ(services.debug.lines.size(), 1u);
    EXPECT_EQ(services.debug.lines[0].cls, 8);
    EXPECT_EQ(services.debug.lines[0].level, 2);
    EXPECT_EQ(services.debug.lines[0].text, "verifyChecksum(): Wrong checksum! at EepromBlockId 5");

    // 12 bytes: wrong but aligned, no complaint; a disabled debug class suppresses the line
    services.debug.history.clear();
    services.debug.mask = ~(1 << 8);
    load(block, bytesOf({0x05, 0x00, 0x0C, 0x00, 0x00, 0x00, 0x00, 0x00, 0x01, 0x00, 0, 0}));
    EXPECT_FALSE(block.verifyChecksum());
    EXPECT_TRUE(services.debug.history.isEmpty());
    EXPECT_EQ(services.debug.lines.size(), 1u);

    // size field 16 over an 8-byte image: reported, checked over the 8 bytes
    QByteArray image = bytesOf({0x05, 0x00, 0x10, 0x00, 0x00, 0x00, 0x00, 0x00});
    sealChecksum(image);
    load(block, image);
    EXPECT_TRUE(block.verifyChecksum());
    EXPECT_EQ(services.debug.history,
              QStringList{"HwDatablock::verifyChecksum: size mismatch (blockId 5 swapBlockId 5 "
                          "blockSize 16 / arraySize 8)\n"});
    services.debug.history.clear();
    EXPECT_EQ(block.computeChecksum(), word(image, 4));
    EXPECT_TRUE(
        services.debug.history[0].startsWith("HwDatablock::computeChecksum: size mismatch"));
}

TEST(Checksum32, VerificationAndTheEventCounterMark) {
    ServiceRecorders services;
    HwDatablock block(false);
    // id 20000, size 16, checksum, alignment, CRC-32 placeholder, 4 data bytes
    QByteArray image = bytesOf({0x20, 0x4E, 0x10, 0x00, 0, 0, 0, 0, 0, 0, 0, 0, 1, 2, 3, 4});
    load(block, image);
    EXPECT_FALSE(block.verifyChecksum32());
    sealCrc(image);
    load(block, image);
    EXPECT_EQ(block.getChecksum32(), crcOf(image));
    EXPECT_TRUE(block.verifyChecksum32());
    EXPECT_EQ(block.getDatablockClassTyp(), HwDatablockClassNone);

    // magic 0x452D0000 + size in place of the CRC marks an event counter
    putAt<unsigned>(image, 8, 0x452D0010);
    load(block, image);
    EXPECT_TRUE(block.verifyChecksum32());
    EXPECT_EQ(block.getDatablockClassTyp(), HwDatablockClassEventCount);

    // a size field of 11 or less always fails
    load(block, bytesOf({0x20, 0x4E, 0x0B, 0x00, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_FALSE(block.verifyChecksum32());
}

TEST(Checksum32, ShortImagesBuffersAndTheComplainingOverload) {
    ServiceRecorders services;
    HwDatablock block(false);
    // 10 bytes: the CRC field is cut; present bytes count, missing ones are zero
    load(block, bytesOf({0, 0, 10, 0, 0, 0, 0, 0, 0x78, 0x56}));
    EXPECT_EQ(block.getChecksum32(), 0x5678u);
    load(block, bytesOf({0, 0, 10, 0, 0}));
    EXPECT_EQ(block.getChecksum32(), 0u);
    // size field far beyond the image: the CRC covers the image only
    const QByteArray beyond = bytesOf({1, 2, 0xFF, 0x7F, 0, 0, 0, 0, 0, 0, 0, 0, 9});
    load(block, beyond);
    EXPECT_EQ(block.computeChecksum32(), crcOf(beyond));
    // over a caller's buffer: zlib's value without bytes 4 to 11, the buffer kept as it was
    unsigned char buffer[13] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13};
    const QByteArray before(reinterpret_cast<const char*>(buffer), 13);
    EXPECT_EQ(block.computeChecksum32(buffer, 13), crcOf(before));
    EXPECT_EQ(QByteArray(reinterpret_cast<const char*>(buffer), 13), before);
    EXPECT_EQ(block.computeChecksum32(buffer, 0), 0u);

    testing::internal::CaptureStderr();
    unsigned char small[4] = {0, 0, 0, 0};
    EXPECT_FALSE(block.verifyChecksum32(small, 4));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "OUCH!!! Wieos bin ich jetzert hier?\n");
}
