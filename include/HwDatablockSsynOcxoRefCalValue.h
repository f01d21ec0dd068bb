// Trimming value of the SSYN reference OCXO (id 10000).
#pragma once

#include "HwDatablockCountedRefCalValue.h"

namespace Tupsim {

using HwSDatablockSsynOcxoRefCalValue = HwSDatablockRefCalValue;

class EPROMDATABLOCK_EXPORT HwDatablockSsynOcxoRefCalValue : public HwDatablockCountedRefCalValue {
public:
    enum { BlockId = 10000 };

    explicit HwDatablockSsynOcxoRefCalValue(bool stopConversionOnError = false);
};

} // namespace Tupsim
