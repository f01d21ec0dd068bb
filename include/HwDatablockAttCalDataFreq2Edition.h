// Further calibration block HwDatablockAttCalDataFreq2Edition, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
