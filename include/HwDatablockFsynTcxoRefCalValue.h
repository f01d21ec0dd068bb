// Trimming value of the FSYN reference TCXO (id 15001).
#pragma once

#include "HwDatablockCountedRefCalValue.h"

namespace Tupsim {

using HwSDatablockFsynTcxoRefCalValue = HwSDatablockRefCalValue;

class EPROMDATABLOCK_EXPORT HwDatablockFsynTcxoRefCalValue : public HwDatablockCountedRefCalValue {
public:
    enum { BlockId = 15001 };

    explicit HwDatablockFsynTcxoRefCalValue(bool stopConversionOnError = false);
};

} // namespace Tupsim
