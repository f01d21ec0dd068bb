// Calibration table block HwDatablockOroRfboExtCalData; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
