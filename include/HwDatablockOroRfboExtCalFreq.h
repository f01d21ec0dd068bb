// Calibration table block HwDatablockOroRfboExtCalFreq; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
