// Further calibration block HwWexDatablockAnalogOutputCalibration, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
