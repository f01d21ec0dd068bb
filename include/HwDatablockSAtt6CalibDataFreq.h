// Further calibration block HwDatablockSAtt6CalibDataFreq, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
