// Further calibration block HwDatablockDacbIqImbalanceSwapPh, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
