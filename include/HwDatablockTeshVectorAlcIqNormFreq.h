// Calibration table block HwDatablockTeshVectorAlcIqNormFreq; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
