// Further calibration block HwDatablockDacbFrequencyCompPh, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
