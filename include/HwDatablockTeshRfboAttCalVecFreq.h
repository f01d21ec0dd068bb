// Calibration table block HwDatablockTeshRfboAttCalVecFreq; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
