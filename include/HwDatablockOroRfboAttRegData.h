// Calibration table block HwDatablockOroRfboAttRegData; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
