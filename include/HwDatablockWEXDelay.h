// Further calibration block HwDatablockWEXDelay, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
