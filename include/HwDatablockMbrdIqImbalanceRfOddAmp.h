// Further calibration block HwDatablockMbrdIqImbalanceRfOddAmp, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
