// Calibration table block HwDatablockOroRfboAlcData; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
