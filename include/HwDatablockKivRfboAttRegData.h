// Calibration table block HwDatablockKivRfboAttRegData; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
