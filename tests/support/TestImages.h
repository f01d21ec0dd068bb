// Small EEPROM images written out byte by byte, the broken chains every reader must survive, and
// the example files, shared by the image and tool tests.
#pragma once

#include "support/Blocks.h"

#include <QFile>
#include <QString>
#include <QStringList>
#include <vector>

namespace Tupsim {
namespace test {

inline QString hex4(unsigned value) {
    return QStringLiteral("0x%1").arg(value, 4, 16, QLatin1Char('0'));
}

inline QString hex8(unsigned value) {
    return QStringLiteral("0x%1").arg(value, 8, 16, QLatin1Char('0'));
}

// Identification block 2 at the head of the chain, 16 bytes.
inline QByteArray identBlock() {
    return sealed(bytesOf({0x02, 0x00, 0x10, 0x00, 0x00, 0x00, 0x00, 0x00, // id 2, size 16
                           'M', 'O', 'D', '1', 0x00, 0x00, 0x00, 0x00}));
}

// Calibration block 10000 with four payload bytes, 12 bytes.
inline QByteArray calibBlock() {
    return sealed(bytesOf({0x10, 0x27, 0x0C, 0x00, 0x00, 0x00, 0x00, 0x00, // id 10000, size 12
                           0x01, 0x02, 0x03, 0x04}));
}

// Self-describing block 20001 of 20 bytes: CRC-32 at byte 8, then the checksum over everything.
inline QByteArray selfDescribingBlock() {
    QByteArray block = bytesOf({0x21, 0x4E, 0x14, 0x00, 0x00, 0x00, 0x00, 0x00, // id, size 20
                                0x00, 0x00, 0x00, 0x00,                         // CRC-32
                                0x00, 0x01, 0x00, 0x01, 0x00, 0x01, 0x00, 0x00});
    sealCrc(block);
    return sealed(block);
}

inline QByteArray endBlock() {
    return bytesOf({0xFF, 0xFF, 0x00, 0x00});
}

// 16 + 12 + 20 + 4 bytes of chain, then 12 erased bytes.
inline QByteArray goodImage() {
    return identBlock() + calibBlock() + selfDescribingBlock() + endBlock() +
           QByteArray(12, '\xFF');
}

struct BrokenChain {
    const char* what;
    QByteArray image;
    int offset;          // where the chain broke
    const char* problem; // what broke it
    int blocksRead;      // data blocks before the break
};

inline std::vector<BrokenChain> brokenChains() {
    const QByteArray head = identBlock(); // the damage starts at 0x0010
    return {
        {"empty", QByteArray(), 0, "the image is empty", 0},
        {"one byte", bytesOf({0x02}), 0, "block header cut short: 1 byte of 8 left", 0},
        {"all 0x00", QByteArray(32, '\0'), 0, "block 0 has size 0, less than its 8-byte header", 0},
        {"all 0xFF", QByteArray(32, '\xFF'), 0,
         "end block reads FF FF FF FF instead of FF FF 00 00 (erased memory?)", 0},
        {"size below the header", head + bytesOf({0x10, 0x27, 0x07, 0, 0, 0, 0, 0}) + endBlock(),
         16, "block 10000 has size 7, less than its 8-byte header", 1},
        {"block past the end", head + bytesOf({0x10, 0x27, 0x40, 0, 0, 0, 0, 0}) + endBlock(), 16,
         "block 10000 of 64 bytes runs past the end of the image (12 bytes left)", 1},
        {"no end block", head + calibBlock(), 28,
         "no end block: the chain runs to the end of the image", 2},
        {"end block cut short", head + bytesOf({0xFF, 0xFF, 0x00}), 16,
         "end block cut short: 3 bytes of 4 left", 1},
        {"header cut short", head + bytesOf({0x10, 0x27, 0x0C, 0x00, 0x00}), 16,
         "block header cut short: 5 bytes of 8 left", 1},
        {"end data not zero", head + bytesOf({0xFF, 0xFF, 0x01, 0x00}), 16,
         "end block reads FF FF 01 00 instead of FF FF 00 00", 1},
    };
}

// A file of the examples folder; empty when it cannot be read.
inline QByteArray example(const char* name) {
    QFile file(QStringLiteral(EPROM_SOURCE_DIR "/examples/") + QLatin1String(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The sample's calibration file with one cell of RFBO_ALC_DATA (row 2, column 4: 2047) made 2050.
inline QByteArray sampleCalWithEditedCell() {
    return example("sample.cal").replace("\t2047.000\t", "\t2050\t");
}

// The sample image with the row count of block 15731 at 0x00a4 (4 of at most 4) set to `rows`
// and its checksum re-sealed.
inline QByteArray sampleWithAlcRows(int rows) {
    QByteArray block = example("sample.eeprom").mid(0xa4, 176);
    block[8] = static_cast<char>(rows);
    sealChecksum(block);
    return example("sample.eeprom").replace(0xa4, 176, block);
}

// `text` with the first line starting with `prefix` after the line `idLine` (and before the next
// "ID:") replaced by `replacement`; empty when there is no such line.
inline QByteArray editLine(const QByteArray& text, const QString& idLine, const QString& prefix,
                           const QString& replacement) {
    QStringList lines = QString::fromUtf8(text).split(QLatin1Char('\n'));
    int at = lines.indexOf(idLine);
    if (at < 0)
        return QByteArray();
    for (++at; at < lines.size() && !lines[at].startsWith(QLatin1String("ID:")); ++at)
        if (lines[at].startsWith(prefix)) {
            lines[at] = replacement;
            return lines.join(QLatin1Char('\n')).toUtf8();
        }
    return QByteArray();
}

} // namespace test
} // namespace Tupsim
