// Further calibration block HwDatablockSAtt3CalibDataTemp, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
