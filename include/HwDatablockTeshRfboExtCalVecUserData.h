// Calibration table block HwDatablockTeshRfboExtCalVecUserData; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
