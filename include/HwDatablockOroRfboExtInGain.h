// Calibration table block HwDatablockOroRfboExtInGain; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
