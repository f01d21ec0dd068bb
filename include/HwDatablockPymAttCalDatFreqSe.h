// Further calibration block HwDatablockPymAttCalDatFreqSe, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
