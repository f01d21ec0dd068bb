// Further calibration block HwDatablockPymMwIfExtLevCalDataAbsCorr, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
