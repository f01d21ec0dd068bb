// The block header as one view: id, size, checksum, alignment and the CRC-32 or event-counter
// mark, read through the checked accessor; the end block and the first self-describing id.
#pragma once

#include "core/HwBytes.h"

#include <QByteArray>
#include <QtGlobal>
#include <cstdint>

namespace Tupsim {
namespace header {

constexpr std::uint64_t IdOffset = 0;
constexpr std::uint64_t SizeOffset = 2;
constexpr std::uint64_t ChecksumOffset = 4;
constexpr std::uint64_t AlignmentOffset = 6;
constexpr std::uint64_t Crc32Offset = 8; // self-describing blocks only
constexpr int Size = 8;                  // id, size, checksum, alignment

// The end block is the 4 bytes FF FF 00 00: an id of 0xFFFF and a size word of 0.
constexpr quint16 EndId = 0xFFFF;
constexpr int EndSize = 4;
// Ids from here on are self-describing blocks (the end block aside) and carry a CRC-32.
constexpr quint16 FirstSelfDescribingId = 20000;
// Event-counter blocks hold this plus their size where other blocks hold the CRC-32.
constexpr quint32 EventCountMark = 0x452D0000;

struct BlockHeader {
    quint16 id = 0;
    quint16 size = 0; // header included; for the end block, its second word
    quint16 checksum = 0;
    quint16 alignment = 0;
    quint32 crc32 = 0; // the CRC-32 or the event-counter mark

    bool isEnd() const { return id == EndId; }
    // The end block as it should read: FF FF 00 00.
    bool isIntactEnd() const { return id == EndId && size == 0; }
    bool isSelfDescribing() const { return id >= FirstSelfDescribingId && id != EndId; }
    bool holdsEventCountMark() const { return crc32 == EventCountMark + size; }
};

// The header of the block at `offset`; a field that does not fit in the `length` bytes reads 0.
inline BlockHeader read(const char* base, std::uint64_t length, std::uint64_t offset) {
    BlockHeader h;
    h.id = bytes::getLE<quint16>(base, length, offset + IdOffset);
    h.size = bytes::getLE<quint16>(base, length, offset + SizeOffset);
    h.checksum = bytes::getLE<quint16>(base, length, offset + ChecksumOffset);
    h.alignment = bytes::getLE<quint16>(base, length, offset + AlignmentOffset);
    h.crc32 = bytes::getLE<quint32>(base, length, offset + Crc32Offset);
    return h;
}

inline BlockHeader read(const QByteArray& image, std::uint64_t offset = 0) {
    return read(image.constData(), static_cast<std::uint64_t>(image.size()), offset);
}

// Store the checksum or the CRC-32 of the block at `offset`; false (nothing written) when the
// field does not fit.
inline bool writeChecksum(QByteArray& image, std::uint64_t offset, quint16 checksum) {
    return bytes::putLE<quint16>(image, offset + ChecksumOffset, checksum);
}
inline bool writeCrc32(QByteArray& image, std::uint64_t offset, quint32 crc) {
    return bytes::putLE<quint32>(image, offset + Crc32Offset, crc);
}

} // namespace header
} // namespace Tupsim
