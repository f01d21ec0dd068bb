// Further calibration block HwDatablockCwOp3AmGainFreq, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
