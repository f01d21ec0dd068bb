// Calibration table block HwDatablockOroRfboAlcFreq; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
