// Further calibration block HwDatablockBbinsUncalibratedFirPhiI, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
