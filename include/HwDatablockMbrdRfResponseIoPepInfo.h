// Further calibration block HwDatablockMbrdRfResponseIoPepInfo, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
