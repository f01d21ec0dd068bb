// Further calibration block HwDatablockDacbFrequencyCompDt, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
