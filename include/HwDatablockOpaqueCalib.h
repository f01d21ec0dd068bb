// Base of the further calibration blocks whose layout the library keeps opaque.
#pragma once

#include "HwDatablock.h"

namespace Tupsim {

// Such a block keeps its image as given, prints it in the plain hexadecimal form and converts it
// with the header-level rule: everything is the plain HwDatablock behaviour.
class EPROMDATABLOCK_EXPORT HwDatablockOpaqueCalib : public HwDatablock {
protected:
    // An 8-byte header with `firstId`, size 8 and a valid checksum.
    HwDatablockOpaqueCalib(bool stopConversionOnError, unsigned short firstId);
};

} // namespace Tupsim
