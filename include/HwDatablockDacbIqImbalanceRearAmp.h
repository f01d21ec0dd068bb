// Further calibration block HwDatablockDacbIqImbalanceRearAmp, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
