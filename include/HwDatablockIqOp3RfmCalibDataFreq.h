// Further calibration block HwDatablockIqOp3RfmCalibDataFreq, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
