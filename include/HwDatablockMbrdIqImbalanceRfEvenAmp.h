// Further calibration block HwDatablockMbrdIqImbalanceRfEvenAmp, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
