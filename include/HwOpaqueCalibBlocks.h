// Declares every further calibration block kept as an opaque image, one class per list row.
#pragma once

#include "HwDatablockOpaqueCalib.h"

namespace Tupsim {

#define EPROM_OPAQUE_BLOCK(ClassName, firstId)                                                     \
    class EPROMDATABLOCK_EXPORT ClassName : public HwDatablockOpaqueCalib {                        \
    public:                                                                                        \
        enum { FirstBlockId = firstId };                                                           \
        explicit ClassName(bool stopConversionOnError = false);                                    \
    };
#include "HwOpaqueCalibBlocks.def"
#undef EPROM_OPAQUE_BLOCK

} // namespace Tupsim
