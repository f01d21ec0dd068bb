// Further calibration block HwDatablockCwOp3AmGainData, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
