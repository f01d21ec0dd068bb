// Further calibration block HwDatablockAduGainOffsetCalData, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
