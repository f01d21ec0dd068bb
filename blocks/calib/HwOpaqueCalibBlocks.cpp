// Constructors of the further calibration blocks kept as opaque images.
#include "HwOpaqueCalibBlocks.h"

namespace Tupsim {

HwDatablockOpaqueCalib::HwDatablockOpaqueCalib(bool stopConversionOnError, unsigned short firstId)
    : HwDatablock(stopConversionOnError) {
    setBlockId(firstId); // keeps the checksum of the fresh 8-byte header valid
}

#define EPROM_OPAQUE_BLOCK(ClassName, firstId)                                                     \
    ClassName::ClassName(bool stopConversionOnError)                                               \
        : HwDatablockOpaqueCalib(stopConversionOnError, FirstBlockId) {}
#include "HwOpaqueCalibBlocks.def"
#undef EPROM_OPAQUE_BLOCK

} // namespace Tupsim
