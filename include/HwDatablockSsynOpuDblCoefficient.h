// Further calibration block HwDatablockSsynOpuDblCoefficient, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
