// Further calibration block HwDatablockDetLimiterMaxVoltFreq, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
