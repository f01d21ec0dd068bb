// Calibration table block HwDatablockTeshVectorLevconTempData; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
