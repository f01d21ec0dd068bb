// Single-value reference blocks: the shared layout, checked store, import and text form.
#include "HwDatablockRefCalValue.h"

#include "blocks/calib/CalibRecord.h"

namespace Tupsim {

namespace {
const unsigned kCount = 8;
const unsigned kValue = 12;
} // namespace

HwDatablockRefCalValue::HwDatablockRefCalValue(bool stopConversionOnError, unsigned short id,
                                               const char* className, const char* heading,
                                               const char* failText)
    : HwDatablock(stopConversionOnError), className(className), heading(heading),
      failText(failText) {
    image() = calib::freshImage(id, BlockSize);
}

int HwDatablockRefCalValue::value(unsigned char index) const {
    return index == 0 ? calib::readField<qint32>(image(), kValue) : 0;
}

int HwDatablockRefCalValue::storeValue(int newValue, unsigned char index) {
    // The blocks hold a single value; other indexes are accepted and ignored on purpose.
    if (index != 0)
        return 0;
    return calib::storeChecked(*this, image(), kValue, newValue, failText);
}

unsigned int HwDatablockRefCalValue::count() const {
    return calib::readField<quint32>(image(), kCount);
}

void HwDatablockRefCalValue::storeCount(unsigned int newCount) {
    calib::setField<quint32>(*this, image(), kCount, newCount);
}

int HwDatablockRefCalValue::setBlock(const HwSDatablockRefCalValue* block) {
    HwSDatablockRefCalValue record;
    if (!calib::acceptRecord(*this, block, &record, BlockSize, className))
        return 1;
    swapBlock(&record);
    return 0;
}

void HwDatablockRefCalValue::swapBlock(const HwSDatablockRefCalValue* block) {
    // Count, then the value; the value's read-back cannot fail on the fresh 16-byte image.
    calib::importRecord(*this, image(), block, BlockSize, {{kCount, 4, 2}});
}

std::ostream& HwDatablockRefCalValue::printToStream(std::ostream& out) {
    out << heading;
    out << "COUNT:      " << (count() & 0xFF) << '\n';
    out << "1:          " << value(0) << "\n\n";
    return out;
}

} // namespace Tupsim
