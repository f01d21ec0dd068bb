// Further calibration block HwDatablockDacbFrequencyCompAmp, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
