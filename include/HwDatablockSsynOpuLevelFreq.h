// Further calibration block HwDatablockSsynOpuLevelFreq, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
