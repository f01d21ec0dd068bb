// Further calibration block HwDatablockMbrdRfResponseBbFreq, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
