// Further calibration block HwDatablockPymAttCalDatFreq, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
