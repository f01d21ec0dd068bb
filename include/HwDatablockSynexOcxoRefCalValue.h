// Trimming value of the SYNEX reference OCXO (id 15000).
#pragma once

#include "HwDatablockCountedRefCalValue.h"

namespace Tupsim {

using HwSDatablockSynexOcxoRefCalValue = HwSDatablockRefCalValue;

class EPROMDATABLOCK_EXPORT HwDatablockSynexOcxoRefCalValue : public HwDatablockCountedRefCalValue {
public:
    enum { BlockId = 15000 };

    explicit HwDatablockSynexOcxoRefCalValue(bool stopConversionOnError = false);
};

} // namespace Tupsim
