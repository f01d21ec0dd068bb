// Further calibration block HwDatablockCwopDetLinCorrFreq, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
