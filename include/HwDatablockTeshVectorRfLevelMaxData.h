// Calibration table block HwDatablockTeshVectorRfLevelMaxData; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
