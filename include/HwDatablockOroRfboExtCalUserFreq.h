// Calibration table block HwDatablockOroRfboExtCalUserFreq; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
