// Further calibration block HwDatablockMbrdIqImbalanceRfEvenPh, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
