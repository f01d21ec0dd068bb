// Further calibration block HwDatablockPymMwIfExtLevCalDataFreq, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
