// Further calibration block HwDatablockMbrdExtLevCalDataFreq2Edition_Enh, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
