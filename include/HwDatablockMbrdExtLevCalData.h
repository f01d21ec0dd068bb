// Further calibration block HwDatablockMbrdExtLevCalData, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
