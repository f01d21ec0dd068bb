// Further calibration block HwDatablockPymMwIfExtLevCalDataRelCorr, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
