// Further calibration block HwDatablockBbinsCompFilterTabsI, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
