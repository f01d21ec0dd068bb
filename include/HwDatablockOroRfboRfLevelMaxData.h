// Calibration table block HwDatablockOroRfboRfLevelMaxData; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
