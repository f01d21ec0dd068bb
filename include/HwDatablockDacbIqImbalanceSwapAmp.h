// Further calibration block HwDatablockDacbIqImbalanceSwapAmp, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
