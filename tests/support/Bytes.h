// Helpers to build block images byte by byte in tests.
#pragma once

#include <QByteArray>
#include <initializer_list>
#include <string>

namespace Tupsim {
namespace test {

inline QByteArray bytesOf(std::initializer_list<int> values) {
    QByteArray out;
    for (int v : values)
        out.append(static_cast<char>(v & 0xFF));
    return out;
}

// Stores the 16-bit checksum at offset 4 so that all little-endian words sum to zero.
inline void sealChecksum(QByteArray& image) {
    if (image.size() < 6)
        return;
    image[4] = 0;
    image[5] = 0;
    unsigned sum = 0;
    for (int i = 0; i + 1 < image.size(); i += 2)
        sum +=
            static_cast<unsigned char>(image[i]) | (static_cast<unsigned char>(image[i + 1]) << 8);
    const unsigned short check = static_cast<unsigned short>(-sum);
    image[4] = static_cast<char>(check & 0xFF);
    image[5] = static_cast<char>(check >> 8);
}

inline std::string hex(const QByteArray& image) {
    return image.toHex(' ').toStdString();
}

} // namespace test
} // namespace Tupsim
