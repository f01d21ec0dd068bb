// Further calibration block HwDatablockMbrdIqImbalanceRfOddPh, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
