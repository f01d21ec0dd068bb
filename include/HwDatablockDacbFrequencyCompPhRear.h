// Further calibration block HwDatablockDacbFrequencyCompPhRear, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
