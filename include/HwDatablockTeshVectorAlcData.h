// Calibration table block HwDatablockTeshVectorAlcData; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
