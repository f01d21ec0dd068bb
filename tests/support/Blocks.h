// Shared block helpers: records as bytes, sealing, unchecked loads, printouts, golden files.
#pragma once

#include "support/Bytes.h"
#include "support/Recorders.h"

#include <HwDatablock.h>

#include <QString>
#include <algorithm>
#include <cstring>
#include <fstream>
#include <gtest/gtest.h>
#include <ostream>
#include <sstream>
#include <string>

// Readable failure messages for Qt strings.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace Tupsim {
namespace test {

// The bytes of a record as they lie in memory.
template <typename Record> QByteArray recordBytes(const Record& record) {
    return QByteArray(reinterpret_cast<const char*>(&record), sizeof record);
}

// A record laid out from an image; missing bytes stay zero.
template <typename Record> Record recordOf(const QByteArray& image) {
    Record record;
    std::memset(&record, 0, sizeof record);
    std::memcpy(&record, image.constData(),
                std::min<std::size_t>(sizeof record, static_cast<std::size_t>(image.size())));
    return record;
}

// A field run of a record: `count` fields of `width` bytes from `offset`.
struct Run {
    int offset;
    int width;
    int count;
};

// A record filled with host values, as the EEPROM holds it: every field of the header and of the
// given runs least significant byte first. A little-endian host holds it so already.
template <typename Record> Record stored(Record record, std::initializer_list<Run> runs) {
#if Q_BYTE_ORDER == Q_BIG_ENDIAN
    unsigned char* bytes = reinterpret_cast<unsigned char*>(&record);
    const auto reverse = [bytes](const Run& run) {
        for (int i = 0; i < run.count; ++i)
            std::reverse(bytes + run.offset + i * run.width,
                         bytes + run.offset + (i + 1) * run.width);
    };
    reverse({0, 2, 4}); // the header words
    for (const Run& run : runs)
        reverse(run);
#else
    (void)runs;
#endif
    return record;
}

// The record with a checksum that makes all its words sum to zero.
template <typename Record> Record sealed(const Record& record) {
    return recordOf<Record>(sealed(recordBytes(record)));
}

// True when the image's words sum to zero, computed here, not by the library.
inline bool sumsToZero(const QByteArray& image) {
    return sealed(image) == image;
}

// Replaces the block's image without any check.
inline void load(HwDatablock& block, const QByteArray& image) {
    block.setDataWithoutChecksumCheck(reinterpret_cast<const unsigned char*>(image.constData()),
                                      static_cast<unsigned int>(image.size()));
}

template <typename Block> std::string printed(Block& block) {
    std::ostringstream out;
    block.printToStream(out);
    return out.str();
}

// A file of tests/data, e.g. "ident/model.txt"; empty when it cannot be read.
inline std::string golden(const std::string& path) {
    std::ifstream in(std::string(EPROM_TEST_DATA_DIR) + "/" + path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

// Exactly one error was signalled so far: `code` with `text`.
inline void expectRejected(const ServiceRecorders& services, int code, const std::string& text) {
    ASSERT_EQ(services.errors.signalled.size(), 1u);
    EXPECT_EQ(services.errors.signalled[0].first, code);
    EXPECT_EQ(services.errors.signalled[0].second.toStdString(), text);
}

} // namespace test
} // namespace Tupsim
