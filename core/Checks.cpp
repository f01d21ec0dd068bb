// Checksum kernels: a vectorised 16-bit word sum and a CRC-32 by carry-less multiplication with a
// slice-by-8 fallback, both bounded by the view they are given.
#include "core/Checks.h"

#include <array>
#include <cstdint>
#include <cstring>

#if defined(__x86_64__) || defined(__i386__)
#include <cpuid.h>
#include <immintrin.h>
#define EPROM_CHECKS_X86 1
#endif

namespace Tupsim {
namespace checks {

namespace {

constexpr quint32 kByteTable[256] = {
#include "core/Crc32Table.def"
};

using SliceTables = std::array<std::array<quint32, 256>, 8>;

// Table k advances a byte that still has k zero bytes to pass through.
constexpr SliceTables makeSliceTables() {
    SliceTables t{};
    for (int i = 0; i < 256; ++i)
        t[0][i] = kByteTable[i];
    for (int k = 1; k < 8; ++k)
        for (int i = 0; i < 256; ++i)
            t[k][i] = (t[k - 1][i] >> 8) ^ kByteTable[t[k - 1][i] & 0xFF];
    return t;
}

constexpr SliceTables kSlices = makeSliceTables();

inline quint32 loadLE32(const unsigned char* p) {
    return quint32(p[0]) | quint32(p[1]) << 8 | quint32(p[2]) << 16 | quint32(p[3]) << 24;
}

// Register form (not complemented) in and out.
quint32 sliceBy8(quint32 crc, const unsigned char* p, std::size_t n) {
    for (; n >= 8; p += 8, n -= 8) {
        const quint32 lo = loadLE32(p) ^ crc;
        const quint32 hi = loadLE32(p + 4);
        crc = kSlices[7][lo & 0xFF] ^ kSlices[6][(lo >> 8) & 0xFF] ^ kSlices[5][(lo >> 16) & 0xFF] ^
              kSlices[4][lo >> 24] ^ kSlices[3][hi & 0xFF] ^ kSlices[2][(hi >> 8) & 0xFF] ^
              kSlices[1][(hi >> 16) & 0xFF] ^ kSlices[0][hi >> 24];
    }
    for (; n > 0; ++p, --n)
        crc = kByteTable[(crc ^ *p) & 0xFF] ^ (crc >> 8);
    return crc;
}

#ifdef EPROM_CHECKS_X86

// Folding constants of the reflected polynomial: x^(4*128+32) and x^(4*128-32) mod P for the
// four-lane fold, x^(128+32) and x^(128-32) for the one-lane fold, x^64 for 64 to 32 bits, and
// the polynomial with its Barrett quotient.
alignas(16) const std::uint64_t kFold4[2] = {0x0154442bd4, 0x01c6e41596};
alignas(16) const std::uint64_t kFold1[2] = {0x01751997d0, 0x00ccaa009e};
alignas(16) const std::uint64_t kFold64[2] = {0x0163cd6124, 0x0000000000};
alignas(16) const std::uint64_t kBarrett[2] = {0x01db710641, 0x01f7011641};

#define EPROM_PCLMUL __attribute__((target("pclmul,sse4.1")))

EPROM_PCLMUL inline __m128i load(const unsigned char* at) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
}

// One 128-bit lane carried forward over the distance that `k` encodes, merged with `next`.
EPROM_PCLMUL inline __m128i fold(__m128i acc, __m128i k, __m128i next) {
    const __m128i lo = _mm_clmulepi64_si128(acc, k, 0x00);
    return _mm_xor_si128(_mm_xor_si128(_mm_clmulepi64_si128(acc, k, 0x11), next), lo);
}

// Register form in and out; n is at least 64 and a multiple of 16.
EPROM_PCLMUL quint32 foldPclmul(quint32 crc, const unsigned char* p, std::size_t n) {
    __m128i x1 = _mm_xor_si128(load(p), _mm_cvtsi32_si128(static_cast<int>(crc)));
    __m128i x2 = load(p + 16);
    __m128i x3 = load(p + 32);
    __m128i x4 = load(p + 48);
    p += 64;
    n -= 64;

    __m128i k = _mm_load_si128(reinterpret_cast<const __m128i*>(kFold4));
    for (; n >= 64; p += 64, n -= 64) {
        x1 = fold(x1, k, load(p));
        x2 = fold(x2, k, load(p + 16));
        x3 = fold(x3, k, load(p + 32));
        x4 = fold(x4, k, load(p + 48));
    }

    k = _mm_load_si128(reinterpret_cast<const __m128i*>(kFold1));
    x1 = fold(x1, k, x2);
    x1 = fold(x1, k, x3);
    x1 = fold(x1, k, x4);
    for (; n >= 16; p += 16, n -= 16)
        x1 = fold(x1, k, load(p));

    // 128 to 64 bits, then 64 to 32 bits.
    const __m128i low32 = _mm_setr_epi32(~0, 0, ~0, 0);
    x2 = _mm_clmulepi64_si128(x1, k, 0x10);
    x1 = _mm_xor_si128(_mm_srli_si128(x1, 8), x2);
    k = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(kFold64));
    x2 = _mm_srli_si128(x1, 4);
    x1 = _mm_xor_si128(_mm_clmulepi64_si128(_mm_and_si128(x1, low32), k, 0x00), x2);

    // Barrett reduction to the 32-bit remainder.
    k = _mm_load_si128(reinterpret_cast<const __m128i*>(kBarrett));
    x2 = _mm_clmulepi64_si128(_mm_and_si128(x1, low32), k, 0x10);
    x2 = _mm_clmulepi64_si128(_mm_and_si128(x2, low32), k, 0x00);
    x1 = _mm_xor_si128(x1, x2);
    return static_cast<quint32>(_mm_extract_epi32(x1, 1));
}

bool hasPclmul() {
    unsigned int eax = 0, ebx = 0, ecx = 0, edx = 0;
    if (__get_cpuid(1, &eax, &ebx, &ecx, &edx) == 0)
        return false;
    return (ecx & bit_PCLMUL) != 0 && (ecx & bit_SSE4_1) != 0;
}

#endif

// Decided once, on first use.
bool usePclmul() {
#ifdef EPROM_CHECKS_X86
    static const bool use = hasPclmul();
    return use;
#else
    return false;
#endif
}

// Register form in and out.
quint32 crcRegister(quint32 crc, const unsigned char* p, std::size_t n) {
#ifdef EPROM_CHECKS_X86
    if (n >= 64 && usePclmul()) {
        const std::size_t folded = n & ~std::size_t(15);
        crc = foldPclmul(crc, p, folded);
        p += folded;
        n -= folded;
    }
#endif
    return sliceBy8(crc, p, n);
}

} // namespace

quint16 wordSum(const unsigned char* bytes, std::size_t size) {
    if (bytes == nullptr)
        return 0;
    const std::size_t words = size / 2;
    std::size_t i = 0;
    quint16 sum = 0;
#if defined(__SSE2__) && Q_BYTE_ORDER == Q_LITTLE_ENDIAN
    // Eight 16-bit lanes wrap modulo 65536 just as the scalar sum does, so the lanes can be
    // added independently and folded at the end.
    const auto words8 = [bytes](std::size_t word) {
        return _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes + 2 * word));
    };
    __m128i a = _mm_setzero_si128(), b = a, c = a, d = a;
    for (; i + 32 <= words; i += 32) {
        a = _mm_add_epi16(a, words8(i));
        b = _mm_add_epi16(b, words8(i + 8));
        c = _mm_add_epi16(c, words8(i + 16));
        d = _mm_add_epi16(d, words8(i + 24));
    }
    for (; i + 8 <= words; i += 8)
        a = _mm_add_epi16(a, words8(i));
    a = _mm_add_epi16(_mm_add_epi16(a, b), _mm_add_epi16(c, d));
    a = _mm_add_epi16(a, _mm_srli_si128(a, 8));
    a = _mm_add_epi16(a, _mm_srli_si128(a, 4));
    a = _mm_add_epi16(a, _mm_srli_si128(a, 2));
    sum = static_cast<quint16>(_mm_cvtsi128_si32(a));
#endif
    for (; i < words; ++i)
        sum = static_cast<quint16>(sum + (bytes[2 * i] | bytes[2 * i + 1] << 8));
    return sum;
}

quint16 blockChecksum(const unsigned char* bytes, std::size_t size) {
    if (bytes == nullptr)
        return 0;
    quint16 sum = wordSum(bytes, size);
    if (size >= 6)
        sum = static_cast<quint16>(sum - (bytes[4] | bytes[5] << 8));
    return static_cast<quint16>(-sum);
}

quint32 crc32(quint32 crc, const unsigned char* bytes, std::size_t size) {
    if (bytes == nullptr || size == 0)
        return crc;
    return ~crcRegister(~crc, bytes, size);
}

quint32 crc32Skipping4to11(const unsigned char* bytes, std::size_t size) {
    if (bytes == nullptr || size == 0)
        return 0;
    quint32 crc = crcRegister(0xFFFFFFFFu, bytes, size < 4 ? size : 4);
    if (size > 12)
        crc = crcRegister(crc, bytes + 12, size - 12);
    return ~crc;
}

quint32 crc32Bytewise(quint32 crc, const unsigned char* bytes, std::size_t size) {
    if (bytes == nullptr)
        return crc;
    crc = ~crc;
    for (std::size_t i = 0; i < size; ++i)
        crc = kByteTable[(crc ^ bytes[i]) & 0xFF] ^ (crc >> 8);
    return ~crc;
}

quint32 crc32SliceBy8(quint32 crc, const unsigned char* bytes, std::size_t size) {
    if (bytes == nullptr)
        return crc;
    return ~sliceBy8(~crc, bytes, size);
}

const char* crc32Path() {
    return usePclmul() ? "pclmul" : "slice-by-8";
}

} // namespace checks
} // namespace Tupsim
