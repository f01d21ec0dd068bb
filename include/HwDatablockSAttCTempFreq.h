// Calibration table block HwDatablockSAttCTempFreq; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
