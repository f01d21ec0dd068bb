// Further calibration block HwDatablockIqOp6CalibDataFreq, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
