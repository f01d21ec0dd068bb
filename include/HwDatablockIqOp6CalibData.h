// Further calibration block HwDatablockIqOp6CalibData, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
