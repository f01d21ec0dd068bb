// Further calibration block HwDatablockMbrdRfResponseLpPh, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
