// Calibration table block HwDatablockTeshRfboExtCalVecUserFreq; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
