// Calibration table block HwDatablockMbrdExtCalUserDataA; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
