// Trimming value of the SYNEX reference OCXO (id 15000).
#pragma once

#include "HwDatablockRefCalValue.h"

namespace Tupsim {

using HwSDatablockSynexOcxoRefCalValue = HwSDatablockRefCalValue;

class EPROMDATABLOCK_EXPORT HwDatablockSynexOcxoRefCalValue : public HwDatablockRefCalValue {
public:
    enum { BlockId = 15000 };

    explicit HwDatablockSynexOcxoRefCalValue(bool stopConversionOnError = false);

    int getOcxoRefCalValue(unsigned char index) const { return value(index); }
    int setOcxoRefCalValue(int newValue, unsigned char index) {
        return storeValue(newValue, index);
    }
    unsigned char getCount() const { return static_cast<unsigned char>(count()); }
    void setCount(unsigned char value) { storeCount(value); }
};

} // namespace Tupsim
