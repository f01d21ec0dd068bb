// Further calibration block HwDatablockMbrdRfResponseAttFreq, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
