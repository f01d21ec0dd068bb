// Calibration table block HwDatablockTeshRfboRfLevelMaxVecData; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
