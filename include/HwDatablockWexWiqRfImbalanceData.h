// Calibration table block HwDatablockWexWiqRfImbalanceData; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
