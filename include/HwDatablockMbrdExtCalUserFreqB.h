// Calibration table block HwDatablockMbrdExtCalUserFreqB; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
