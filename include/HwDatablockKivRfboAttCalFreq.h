// Calibration table block HwDatablockKivRfboAttCalFreq; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
