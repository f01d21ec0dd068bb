// Calibration table block HwDatablockOroRfboRfLevelMaxFreq; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
