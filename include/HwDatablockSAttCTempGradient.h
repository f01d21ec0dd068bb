// Calibration table block HwDatablockSAttCTempGradient; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
