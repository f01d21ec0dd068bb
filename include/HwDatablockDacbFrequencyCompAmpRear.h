// Further calibration block HwDatablockDacbFrequencyCompAmpRear, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
