// Calibration table block HwDatablockOroRfboTcxoCal; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
