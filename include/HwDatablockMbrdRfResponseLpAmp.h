// Further calibration block HwDatablockMbrdRfResponseLpAmp, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
