// Further calibration block HwDatablockIqOp3RfmCalibDataV20, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
