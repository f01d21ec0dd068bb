// Further calibration block HwDatablockMbrdExtLevCalDataFreq2Edition, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
