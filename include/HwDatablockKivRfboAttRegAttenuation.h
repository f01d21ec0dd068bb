// Calibration table block HwDatablockKivRfboAttRegAttenuation; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
