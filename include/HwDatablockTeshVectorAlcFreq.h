// Calibration table block HwDatablockTeshVectorAlcFreq; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
