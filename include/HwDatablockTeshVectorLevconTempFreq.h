// Calibration table block HwDatablockTeshVectorLevconTempFreq; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
