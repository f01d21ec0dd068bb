// Calibration table block HwDatablockMbrdExtCalUserFreqA; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
