// Further calibration block HwDatablockSsynOpuLevel, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
