// Further calibration block HwDatablockBbinsCompFilterTabsQ, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
