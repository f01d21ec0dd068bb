// Calibration table block HwDatablockKivRfboTempCompFreq; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
