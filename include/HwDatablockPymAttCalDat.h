// Further calibration block HwDatablockPymAttCalDat, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
