// Calibration table block HwDatablockTeshRfBoExtCalVecData; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
