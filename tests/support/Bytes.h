// Helpers to build and read block images byte by byte in tests.
#pragma once

#include <QByteArray>
#include <QtGlobal>
#include <algorithm>
#include <cstring>
#include <initializer_list>
#include <string>
#include <zlib.h>

namespace Tupsim {
namespace test {

inline QByteArray bytesOf(std::initializer_list<int> values) {
    QByteArray out;
    for (int v : values)
        out.append(static_cast<char>(v & 0xFF));
    return out;
}

// The bytes of a value least significant first, on any host: block images are stored that way.
template <typename T> void toLittleEndian(unsigned char (&raw)[sizeof(T)], T value) {
    std::memcpy(raw, &value, sizeof(T));
#if Q_BYTE_ORDER == Q_BIG_ENDIAN
    std::reverse(raw, raw + sizeof(T));
#endif
}

// A value stored least significant byte first at `offset`; zero when it does not fit.
template <typename T> T valueAt(const QByteArray& image, int offset) {
    T value{};
    if (offset < 0 || offset + static_cast<int>(sizeof(T)) > image.size())
        return value;
    unsigned char raw[sizeof(T)];
    std::memcpy(raw, image.constData() + offset, sizeof(T));
#if Q_BYTE_ORDER == Q_BIG_ENDIAN
    std::reverse(raw, raw + sizeof(T));
#endif
    std::memcpy(&value, raw, sizeof(T));
    return value;
}

// Stores a value least significant byte first at `offset`.
template <typename T> void putAt(QByteArray& image, int offset, T value) {
    unsigned char raw[sizeof(T)];
    toLittleEndian<T>(raw, value);
    std::memcpy(image.data() + offset, raw, sizeof(T));
}

inline unsigned word(const QByteArray& image, int offset) {
    return valueAt<unsigned short>(image, offset);
}

// An image of `size` zero bytes with id and size set, as every new block starts.
inline QByteArray freshImage(unsigned short id, unsigned short size) {
    QByteArray image(size, '\0');
    putAt<unsigned short>(image, 0, id);
    putAt<unsigned short>(image, 2, size);
    return image;
}

// Stores the 16-bit checksum at offset 4 so that all little-endian words sum to zero.
inline void sealChecksum(QByteArray& image) {
    if (image.size() < 6)
        return;
    putAt<unsigned short>(image, 4, 0);
    unsigned sum = 0;
    for (int i = 0; i + 1 < image.size(); i += 2)
        sum += word(image, i);
    putAt<unsigned short>(image, 4, static_cast<unsigned short>(-sum));
}

// The image with its checksum sealed.
inline QByteArray sealed(QByteArray image) {
    sealChecksum(image);
    return image;
}

inline unsigned crcField(const QByteArray& block) {
    return valueAt<unsigned>(block, 8);
}

// zlib's CRC-32 over bytes 0..3 and 12..end, as self-describing blocks carry it at byte 8.
inline unsigned crcOf(const QByteArray& block) {
    const QByteArray covered = block.left(4) + block.mid(12);
    return static_cast<unsigned>(crc32(0L, reinterpret_cast<const Bytef*>(covered.constData()),
                                       static_cast<uInt>(covered.size())));
}

inline void sealCrc(QByteArray& block) {
    const unsigned crc = crcOf(block);
    for (int i = 0; i < 4; ++i)
        block[8 + i] = static_cast<char>((crc >> (8 * i)) & 0xFF);
}

inline std::string hex(const QByteArray& image) {
    return image.toHex(' ').toStdString();
}

} // namespace test
} // namespace Tupsim
