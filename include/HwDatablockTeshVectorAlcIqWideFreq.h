// Calibration table block HwDatablockTeshVectorAlcIqWideFreq; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
