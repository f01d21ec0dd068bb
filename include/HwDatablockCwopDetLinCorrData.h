// Further calibration block HwDatablockCwopDetLinCorrData, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
