// Calibration table block HwDatablockTeshVectorLevconTempLevcon; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
