// Helpers for the calibration block tests: golden files, printouts and records as bytes.
#pragma once

#include "support/Bytes.h"

#include <HwDatablock.h>

#include <QByteArray>
#include <QString>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>

// Failure messages show QStrings as text rather than as arrays of code units.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace Tupsim {
namespace test {

inline std::string golden(const std::string& name) {
    std::ifstream in(std::string(EPROM_TEST_DATA_DIR) + "/calib/" + name, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

inline std::string printed(HwDatablock& block) {
    std::ostringstream out;
    block.printToStream(out);
    return out.str();
}

// A value stored least significant byte first at `offset` of an image.
template <typename T> T valueAt(const QByteArray& image, int offset) {
    T value{};
    if (offset >= 0 && offset + static_cast<int>(sizeof(T)) <= image.size())
        std::memcpy(&value, image.constData() + offset, sizeof(T));
    return value;
}

template <typename T> void putAt(QByteArray& image, int offset, T value) {
    std::memcpy(image.data() + offset, &value, sizeof(T));
}

template <typename Record> QByteArray bytesOfRecord(const Record& record) {
    return QByteArray(reinterpret_cast<const char*>(&record), sizeof record);
}

// Gives the record a checksum that makes all its words sum to zero.
template <typename Record> void sealRecord(Record& record) {
    QByteArray image = bytesOfRecord(record);
    sealChecksum(image);
    std::memcpy(&record, image.constData(), sizeof record);
}

// An image of `size` zero bytes with id and size set, as every new block starts.
inline QByteArray freshImage(unsigned short id, unsigned short size) {
    QByteArray image(size, '\0');
    putAt<unsigned short>(image, 0, id);
    putAt<unsigned short>(image, 2, size);
    return image;
}

} // namespace test
} // namespace Tupsim
