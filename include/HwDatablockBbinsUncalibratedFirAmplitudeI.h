// Further calibration block HwDatablockBbinsUncalibratedFirAmplitudeI, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
