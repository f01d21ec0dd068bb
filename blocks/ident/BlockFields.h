// Shared plumbing of the identification and service blocks: field stores, record import, text.
#pragma once

#include "HwDatablock.h"
#include "core/ConversionScope.h"
#include "core/FieldHooks.h"
#include "core/HwBytes.h"

#include <QByteArray>
#include <algorithm>
#include <cstring>
#include <string>

namespace Tupsim {
namespace blockfields {

// Stores a field through the byte-order hook; false (nothing written) beyond the image.
template <typename T> bool store(QByteArray& image, std::uint64_t offset, T value) {
    fieldhooks::hook(value);
    char raw[sizeof(T)];
    std::memcpy(raw, &value, sizeof raw);
    if (!bytes::fits(static_cast<std::uint64_t>(image.size()), offset, sizeof raw))
        return false;
    // Through QByteArray itself: GCC cannot see that a fitting field never lies in Qt's shared
    // empty array and warns about a direct copy with a constant offset.
    image.replace(static_cast<int>(offset), sizeof raw, raw, sizeof raw);
    return true;
}

// A payload field of a record being imported: a copy takes it in the reference form; inside the
// byte-order conversion it is taken as the host holds it, so that storing it turns it. Header
// words are read with bytes::getLE: the header stays in the reference form in both data formats.
template <typename T>
T recordField(const HwDatablock& block, const QByteArray& record, std::uint64_t offset) {
    return conversion::inProgress(block) ? fieldhooks::asHeld<T>(record, offset)
                                         : fieldhooks::load<T>(record, offset);
}

// A zero-filled image of `size` bytes with id and size in its header; checksum stays 0.
QByteArray freshImage(quint16 id, quint16 size);

// A copy of the `size` bytes of a record handed in by pointer; empty for nullptr.
QByteArray recordCopy(const void* record, int size);

// Registers the library's errors (once) and signals `code` with the block's text.
void signalRejected(int code, const char* text);

// Checks a record handed to setBlock: its words must sum to zero over `size` bytes and, when
// `requiredId` is given, its id must be that and its size word `size`. A rejected record is
// signalled as `code` with `text`; a null record is refused without a signal.
bool acceptRecord(HwDatablock& block, const void* record, int size, const char* text,
                  int code = 1040001, int requiredId = -1);

// Where the 32-bit counters of the counter blocks start.
enum : int { FirstCounter = 8 };
// Counter `index` of a counter block: the 32-bit word at 8 + 4 x index; 0 beyond the image.
quint32 counterAt(const QByteArray& image, unsigned int index);
// Stores counter `index`; false (nothing written) beyond the image.
bool storeCounter(QByteArray& image, unsigned int index, quint32 value);

// A byte area of the image that has a length word: a pointer to its `width` bytes at
// `offset` (nullptr when they do not fit the image), and the length word at `lengthOffset`
// through `length` when that is given.
unsigned char* areaWithLength(QByteArray& image, int offset, int width, int lengthOffset,
                              unsigned int* length);

// First steps of importing a record copy: the block size, the record's id and the given alignment,
// each through its header setter.
void importHeader(HwDatablock& block, const QByteArray& record, unsigned short size,
                  unsigned short alignment);
// Last step of importing a record copy: the record's own checksum word, not a recomputed one.
void keepRecordChecksum(HwDatablock& block, const QByteArray& record);

// printf into a string: numbers come out the same whatever state the stream is in.
std::string format(const char* pattern, ...) __attribute__((format(printf, 1, 2)));

// Raw bytes of a fixed-width text field up to its first NUL; empty beyond the image.
std::string fieldText(const QByteArray& image, int offset, int width);

// strncpy into a fixed-width field: at most `width` bytes of `text` (up to its first NUL within
// `textLength`), the rest of the field zero. False (nothing written) beyond the image.
bool storeText(QByteArray& image, int offset, int width, const char* text, int textLength);

// Runs a block's record-taking swap over its own image. The record is copied out with zero
// padding, so any image length is safe; the block is marked as mid-conversion meanwhile, so the
// checksum refreshes inside the setters do not call back into the per-id conversion.
template <typename Record, typename Block> void swapOwnImage(Block& block) {
    Record record{};
    const QByteArray current = block.getByteArrayData();
    bytes::copyOut(
        current, 0, &record,
        std::min<std::uint64_t>(sizeof record, static_cast<std::uint64_t>(current.size())));
    const conversion::Scope converting(block);
    block.swapBlock(&record);
}

// The image as a record pointer, or nullptr when the image is shorter than the record.
template <typename Record> Record* recordView(QByteArray& image) {
    if (!bytes::fits(static_cast<std::uint64_t>(image.size()), 0, sizeof(Record)))
        return nullptr;
    return reinterpret_cast<Record*>(image.data());
}

} // namespace blockfields
} // namespace Tupsim
