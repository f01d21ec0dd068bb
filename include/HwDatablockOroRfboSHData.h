// Calibration table block HwDatablockOroRfboSHData; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
