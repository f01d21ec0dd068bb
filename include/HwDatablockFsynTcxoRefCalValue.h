// Trimming value of the FSYN reference TCXO (id 15001).
#pragma once

#include "HwDatablockRefCalValue.h"

namespace Tupsim {

using HwSDatablockFsynTcxoRefCalValue = HwSDatablockRefCalValue;

class EPROMDATABLOCK_EXPORT HwDatablockFsynTcxoRefCalValue : public HwDatablockRefCalValue {
public:
    enum { BlockId = 15001 };

    explicit HwDatablockFsynTcxoRefCalValue(bool stopConversionOnError = false);

    int getOcxoRefCalValue(unsigned char index) const { return value(index); }
    int setOcxoRefCalValue(int newValue, unsigned char index) {
        return storeValue(newValue, index);
    }
    unsigned char getCount() const { return static_cast<unsigned char>(count()); }
    void setCount(unsigned char value) { storeCount(value); }
};

} // namespace Tupsim
