// Calibration table block HwDatablockTeshVectorAlcIqWideData; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
