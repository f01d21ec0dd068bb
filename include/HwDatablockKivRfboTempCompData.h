// Calibration table block HwDatablockKivRfboTempCompData; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
