// Calibration table block HwDatablockOroRfboTempGradient; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
