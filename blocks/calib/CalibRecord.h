// Field access and record import shared by the calibration blocks with named fields.
#pragma once

#include "HwDatablock.h"
#include "core/FieldHooks.h"
#include "core/HwBytes.h"

#include <cstdint>
#include <initializer_list>

namespace Tupsim {
namespace calib {

// Reads a field kept in the instrument's byte order; 0 when it lies beyond the image.
template <typename T> T readField(const QByteArray& image, std::uint64_t offset) {
    return fieldhooks::load<T>(image, offset);
}

// Stores a field in the instrument's byte order; false (nothing written) when it does not fit.
template <typename T> bool writeField(QByteArray& image, std::uint64_t offset, T value) {
    return fieldhooks::store<T>(image, offset, value);
}

// What every plain setter does: store the field, then keep the checksum current.
template <typename T>
void setField(HwDatablock& block, QByteArray& image, std::uint64_t offset, T value) {
    if (writeField(image, offset, value))
        block.setChecksum(block.computeChecksum());
}

// A run of equally wide fields of a record (2 or 4 bytes each), in image order.
struct FieldRun {
    unsigned short offset;
    unsigned short width;
    unsigned short count;
};

// A new image of `size` bytes: id and size set, everything else (checksum too) zero.
QByteArray freshImage(unsigned short id, unsigned short size);

// Copies the record into `copy` and checks its checksum over `size` bytes. A missing record or
// a wrong checksum is signalled as 1040001 with `text` and yields false.
bool acceptRecord(HwDatablock& block, const void* record, void* copy, unsigned short size,
                  const char* text);

// Loads a record without checking it: a fresh image of `size` bytes with the record's id and
// alignment 0, the fields copied run by run (refreshing the checksum after each), and last the
// record's own checksum. A null record changes nothing.
void importRecord(HwDatablock& block, QByteArray& image, const void* record, unsigned short size,
                  std::initializer_list<FieldRun> runs);

// Stores a 32-bit value and reads it back; a mismatch is signalled as 1040002 with `failText`
// and yields -1. The checksum is refreshed either way.
int storeChecked(HwDatablock& block, QByteArray& image, std::uint64_t offset, qint32 value,
                 const char* failText);

} // namespace calib
} // namespace Tupsim
