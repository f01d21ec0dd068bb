// Further calibration block HwDatablockBbinsUncalibratedFirAmplitudeQ, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
