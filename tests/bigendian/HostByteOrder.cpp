// Passes only on a big-endian host with a library built for it: the big-endian lane can not pass
// by running little-endian.
#include <HwDatablock.h>

#include <QtGlobal>
#include <cstdint>
#include <cstdio>
#include <cstring>

int main() {
    int failures = 0;
#if Q_BYTE_ORDER == Q_BIG_ENDIAN
    std::printf("compiled for a big-endian host\n");
#else
    std::printf("FAIL: compiled for a little-endian host\n");
    ++failures;
#endif
    const std::uint32_t word = 0x01020304u;
    unsigned char first = 0;
    std::memcpy(&first, &word, 1);
    if (first == 0x01) {
        std::printf("runs big-endian: 0x01020304 is stored 01 02 03 04\n");
    } else {
        std::printf("FAIL: runs little-endian: 0x01020304 starts with %02x\n", first);
        ++failures;
    }
    // The library's own hooks must reverse bytes here.
    const unsigned short swapped = Tupsim::HwDatablock::swapIfPpc(0x1234);
    if (swapped == 0x3412) {
        std::printf("library reverses bytes: swapIfPpc(0x1234) = 0x3412\n");
    } else {
        std::printf("FAIL: library built little-endian: swapIfPpc(0x1234) = 0x%04x\n", swapped);
        ++failures;
    }
    return failures == 0 ? 0 : 1;
}
