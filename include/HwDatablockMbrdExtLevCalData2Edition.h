// Further calibration block HwDatablockMbrdExtLevCalData2Edition, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
