// Further calibration block HwDatablockMbrdExtLevCalData2Edition_Enh, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
