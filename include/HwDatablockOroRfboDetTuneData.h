// Calibration table block HwDatablockOroRfboDetTuneData; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
