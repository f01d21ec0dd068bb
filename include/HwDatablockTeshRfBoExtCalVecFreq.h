// Calibration table block HwDatablockTeshRfBoExtCalVecFreq; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
