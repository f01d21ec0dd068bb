// Further calibration block HwDatablockDetLimiterMaxVoltData, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
