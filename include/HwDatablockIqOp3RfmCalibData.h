// Further calibration block HwDatablockIqOp3RfmCalibData, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
