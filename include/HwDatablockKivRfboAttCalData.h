// Calibration table block HwDatablockKivRfboAttCalData; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
