// Calibration table block HwDatablockOroRfboAttCalData; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
