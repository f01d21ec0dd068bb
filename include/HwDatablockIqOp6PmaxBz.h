// Further calibration block HwDatablockIqOp6PmaxBz, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
