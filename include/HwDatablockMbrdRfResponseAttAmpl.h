// Further calibration block HwDatablockMbrdRfResponseAttAmpl, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
