// Further calibration block HwDatablockSAtt3CalibDataAtt, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
