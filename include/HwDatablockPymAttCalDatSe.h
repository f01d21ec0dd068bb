// Further calibration block HwDatablockPymAttCalDatSe, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
