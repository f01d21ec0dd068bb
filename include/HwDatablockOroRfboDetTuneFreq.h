// Calibration table block HwDatablockOroRfboDetTuneFreq; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
