// Further calibration block HwDatablockBbinsUncalibratedFirPhiQ, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
