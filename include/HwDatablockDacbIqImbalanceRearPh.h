// Further calibration block HwDatablockDacbIqImbalanceRearPh, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
