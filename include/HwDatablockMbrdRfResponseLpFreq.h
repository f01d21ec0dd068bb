// Further calibration block HwDatablockMbrdRfResponseLpFreq, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
