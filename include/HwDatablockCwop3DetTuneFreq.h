// Further calibration block HwDatablockCwop3DetTuneFreq, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
