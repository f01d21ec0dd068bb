// Calibration table block HwDatablockMbrdExtCalUserDataB; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
