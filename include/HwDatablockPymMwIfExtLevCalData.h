// Further calibration block HwDatablockPymMwIfExtLevCalData, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
