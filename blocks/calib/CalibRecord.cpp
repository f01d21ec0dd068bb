// Record import and checked stores shared by the calibration blocks with named fields.
#include "blocks/calib/CalibRecord.h"

#include "IErrorManager.h"
#include "core/ConversionScope.h"
#include "core/FieldHooks.h"

#include <cstring>

namespace Tupsim {
namespace calib {

namespace {
const int kErrorCheckFailed = 1040001;
const int kErrorStoreFailed = 1040002;

// A field of a record given by pointer, which may be unaligned: a copy takes it in the reference
// form; the byte-order conversion takes it as the host holds it, so that it comes out turned.
template <typename T> T recordValue(const char* record, unsigned offset, bool convert) {
    const QByteArray field = QByteArray::fromRawData(record + offset, sizeof(T));
    return convert ? fieldhooks::asHeld<T>(field, 0) : fieldhooks::load<T>(field, 0);
}
} // namespace

QByteArray freshImage(unsigned short id, unsigned short size) {
    QByteArray image(size, '\0');
    writeField<quint16>(image, 0, id);
    writeField<quint16>(image, 2, size);
    return image;
}

bool acceptRecord(HwDatablock& block, const void* record, void* copy, unsigned short size,
                  const char* text) {
    if (record != nullptr) {
        // Checked on a private copy: the caller's record may be unaligned or read-only.
        std::memcpy(copy, record, size);
        if (block.verifyChecksum(static_cast<unsigned short*>(copy), size, true))
            return true;
    }
    errorManager()->signal(kErrorCheckFailed, QString::fromLatin1(text));
    return false;
}

void importRecord(HwDatablock& block, QByteArray& image, const void* record, unsigned short size,
                  std::initializer_list<FieldRun> runs) {
    if (record == nullptr)
        return;
    const char* base = static_cast<const char*>(record);
    // The 8-byte header stays in the reference form in both data formats.
    const bool convert = conversion::inProgress(block);
    image = QByteArray(size, '\0');
    block.setBlockId(recordValue<quint16>(base, 0, false));
    block.setBlockSize(size);
    block.setAlignment(0);
    for (const FieldRun& run : runs) {
        for (unsigned i = 0; i < run.count; ++i) {
            const unsigned offset = run.offset + i * run.width;
            if (run.width == 2)
                setField(block, image, offset, recordValue<quint16>(base, offset, convert));
            else
                setField(block, image, offset, recordValue<quint32>(base, offset, convert));
        }
    }
    block.setChecksum(recordValue<quint16>(base, 4, false));
}

int storeChecked(HwDatablock& block, QByteArray& image, std::uint64_t offset, qint32 value,
                 const char* failText) {
    writeField(image, offset, value);
    int result = 0;
    if (readField<qint32>(image, offset) != value) {
        errorManager()->signal(kErrorStoreFailed, QString::fromLatin1(failText));
        result = -1;
    }
    block.setChecksum(block.computeChecksum());
    return result;
}

} // namespace calib
} // namespace Tupsim
