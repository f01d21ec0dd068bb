// Further calibration block HwDatablockSAtt3CalibDataFreq, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
