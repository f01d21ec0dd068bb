// Calibration table block HwDatablockOroRfboExtCalUserData; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
