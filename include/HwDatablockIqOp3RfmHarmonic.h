// Further calibration block HwDatablockIqOp3RfmHarmonic, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
