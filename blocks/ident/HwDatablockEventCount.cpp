// Event-counter block: the magic word in the CRC-32 field and byte-wise counter updates.
#include "HwDatablockEventCount.h"

namespace Tupsim {

HwDatablockEventCount::HwDatablockEventCount() {
    makeDatablock2HwEventCount();
}

bool HwDatablockEventCount::updateEventCountBlock(unsigned int index, unsigned char value) {
    const qsizetype start = dataAreaOffset();
    if (start >= imageLength() || index >= quint64(imageLength() - start))
        return true;
    image()[static_cast<int>(start + index)] = static_cast<char>(value);
    refreshChecksum();
    return true;
}

bool HwDatablockEventCount::setData(const unsigned char* bytes, unsigned int length) {
    HwDatablock2Edition::setData(bytes, length);
    makeDatablock2HwEventCount();
    return true;
}

bool HwDatablockEventCount::makeDatablock2HwEventCount() {
    setDatablockClassTyp(HwDatablockClassEventCount);
    // setChecksum32 stores through the byte-order hook already, and the generic conversion leaves
    // the header as it is: the magic stands in the reference order in both forms, where
    // verifyChecksum32 reads it on every host.
    setChecksum32(getMagicIdentifierEventCount());
    return true;
}

} // namespace Tupsim
