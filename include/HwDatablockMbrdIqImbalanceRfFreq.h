// Further calibration block HwDatablockMbrdIqImbalanceRfFreq, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
