// Calibration table block HwDatablockTeshRfboAttCalVecData; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
