// Calibration table block HwDatablockTeshVectorAlcIqNormData; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
