// Further calibration block HwDatablockDacbIqImbalanceFreq, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
