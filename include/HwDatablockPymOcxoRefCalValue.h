// Trimming value of the PYM reference OCXO (id 15002).
#pragma once

#include "HwDatablockRefCalValue.h"

namespace Tupsim {

using HwSDatablockPymOcxoRefCalValue = HwSDatablockRefCalValue;

class EPROMDATABLOCK_EXPORT HwDatablockPymOcxoRefCalValue : public HwDatablockRefCalValue {
public:
    enum { BlockId = 15002 };

    explicit HwDatablockPymOcxoRefCalValue(bool stopConversionOnError = false);

    int getOcxoRefCalValue(unsigned char index) const { return value(index); }
    int setOcxoRefCalValue(int newValue, unsigned char index) {
        return storeValue(newValue, index);
    }
};

} // namespace Tupsim
