// Further calibration block HwDatablockMbrdExtLevCalData_Enh, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
