// Calibration table block HwDatablockTeshVectorRfLevelMaxFreq; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
