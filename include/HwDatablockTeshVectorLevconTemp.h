// Calibration table block HwDatablockTeshVectorLevconTemp; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
