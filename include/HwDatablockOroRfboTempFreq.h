// Calibration table block HwDatablockOroRfboTempFreq; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
