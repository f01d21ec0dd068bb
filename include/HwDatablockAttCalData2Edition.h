// Further calibration block HwDatablockAttCalData2Edition, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
