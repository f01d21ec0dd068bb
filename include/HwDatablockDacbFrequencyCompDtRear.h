// Further calibration block HwDatablockDacbFrequencyCompDtRear, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
