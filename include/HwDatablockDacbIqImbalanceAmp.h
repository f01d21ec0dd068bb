// Further calibration block HwDatablockDacbIqImbalanceAmp, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
