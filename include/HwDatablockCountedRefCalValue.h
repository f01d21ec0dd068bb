// Reference blocks of the synthesizer oscillators: the trimming value and an 8-bit count.
#pragma once

#include "HwDatablockRefCalValue.h"

namespace Tupsim {

class EPROMDATABLOCK_EXPORT HwDatablockCountedRefCalValue : public HwDatablockRefCalValue {
public:
    int getOcxoRefCalValue(unsigned char index) const { return value(index); }
    int setOcxoRefCalValue(int newValue, unsigned char index) {
        return storeValue(newValue, index);
    }
    // The low byte of the count word; the setter clears the upper bytes.
    unsigned char getCount() const { return static_cast<unsigned char>(count()); }
    void setCount(unsigned char value) { storeCount(value); }

protected:
    using HwDatablockRefCalValue::HwDatablockRefCalValue;
};

} // namespace Tupsim
