// Checksum kernels against zlib and a word-by-word sum, at every length and alignment.
#include "core/Checks.h"
#include "support/Bytes.h"

#include <gtest/gtest.h>
#include <random>
#include <vector>
#include <zlib.h>

using namespace Tupsim;

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
              test::crcOf(QByteArray(reinterpret_cast<const char*>(p), int(n))))
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
    const std::vector<unsigned char> source = randomBytes(300 + 15, 7);
    for (std::size_t align = 0; align < 16; ++align)
        for (std::size_t n = 0; n <= 300; ++n) {
            std::vector<unsigned char> exact(source.begin() + align, source.begin() + align + n);
            expectAllAgree(exact.data(), n);
            expectAllAgree(source.data() + align, n);
        }
}

TEST(ChecksKernels, LargeBuffersAndExtremeBytes) {
    for (std::size_t n : {4096u + 13u, 65536u + 7u, (1u << 20) + 3u}) {
        const std::vector<unsigned char> data = randomBytes(n + 15, static_cast<unsigned>(n));
        for (std::size_t align : {0u, 1u, 15u})
            expectAllAgree(data.data() + align, n);
    }
    // All ones: every 16-bit lane wraps many times over.
    for (unsigned char fill : {0x00, 0xFF}) {
        const std::vector<unsigned char> same(70001, fill);
        expectAllAgree(same.data(), same.size());
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
    EXPECT_EQ(checks::wordSum(nullptr, 8), 0);
    EXPECT_EQ(checks::crc32(5, nullptr, 8), 5u);
    EXPECT_EQ(checks::crc32Skipping4to11(nullptr, 8), 0u);
}
