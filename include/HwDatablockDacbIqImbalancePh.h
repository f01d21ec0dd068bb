// Further calibration block HwDatablockDacbIqImbalancePh, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
