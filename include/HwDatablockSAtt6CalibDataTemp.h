// Further calibration block HwDatablockSAtt6CalibDataTemp, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
