// Further calibration block HwDatablockAduLevCoarseCalibData, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
