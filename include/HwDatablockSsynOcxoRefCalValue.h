// Trimming value of the SSYN reference OCXO (id 10000).
#pragma once

#include "HwDatablockRefCalValue.h"

namespace Tupsim {

using HwSDatablockSsynOcxoRefCalValue = HwSDatablockRefCalValue;

class EPROMDATABLOCK_EXPORT HwDatablockSsynOcxoRefCalValue : public HwDatablockRefCalValue {
public:
    enum { BlockId = 10000 };

    explicit HwDatablockSsynOcxoRefCalValue(bool stopConversionOnError = false);

    int getOcxoRefCalValue(unsigned char index) const { return value(index); }
    int setOcxoRefCalValue(int newValue, unsigned char index) {
        return storeValue(newValue, index);
    }
    unsigned char getCount() const { return static_cast<unsigned char>(count()); }
    void setCount(unsigned char value) { storeCount(value); }
};

} // namespace Tupsim
