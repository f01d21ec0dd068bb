// Further calibration block HwDatablockMbrdExtLevCalDataFreq_Enh, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
