// Further calibration block HwDatablockMbrdExtLevCalDataFreq, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
