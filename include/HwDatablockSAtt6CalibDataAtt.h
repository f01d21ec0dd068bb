// Further calibration block HwDatablockSAtt6CalibDataAtt, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
