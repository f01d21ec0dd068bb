// Mainboard PLL-DAC setting that trims the reference frequency (id 12280).
#pragma once

#include "HwDatablockRefCalValue.h"

namespace Tupsim {

using HwSDatablockDopMbrdPllDacCalibValue = HwSDatablockRefCalValue;

class EPROMDATABLOCK_EXPORT HwDatablockDopMbrdPllDacCalibValue : public HwDatablockRefCalValue {
public:
    enum { BlockId = 12280 };

    explicit HwDatablockDopMbrdPllDacCalibValue(bool stopConversionOnError = false);

    int getDopMbrdPllDacCalibValue(unsigned char index) const { return value(index); }
    int setDopMbrdPllDacCalibValue(int newValue, unsigned char index) {
        return storeValue(newValue, index);
    }
};

} // namespace Tupsim
