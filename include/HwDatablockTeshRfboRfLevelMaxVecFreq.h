// Calibration table block HwDatablockTeshRfboRfLevelMaxVecFreq; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
