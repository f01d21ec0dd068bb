// Further calibration block HwDatablockDacbFrequencyCompFreq, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
