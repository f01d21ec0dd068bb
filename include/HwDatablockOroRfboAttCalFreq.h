// Calibration table block HwDatablockOroRfboAttCalFreq; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
