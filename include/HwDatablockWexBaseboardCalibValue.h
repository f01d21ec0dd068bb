// Calibration value of the WEX baseboard (id 15605).
#pragma once

#include "HwDatablockRefCalValue.h"

namespace Tupsim {

using HwSDatablockWexBaseboardCalibValue = HwSDatablockRefCalValue;

class EPROMDATABLOCK_EXPORT HwDatablockWexBaseboardCalibValue : public HwDatablockRefCalValue {
public:
    enum { BlockId = 15605 };

    explicit HwDatablockWexBaseboardCalibValue(bool stopConversionOnError = false);

    int getBaseboardCalibValue(unsigned char index) const { return value(index); }
    int setBaseboardCalibValue(int newValue, unsigned char index) {
        return storeValue(newValue, index);
    }
    void setCount(unsigned int value) { storeCount(value); }
};

} // namespace Tupsim
