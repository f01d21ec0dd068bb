// Calibration table block HwDatablockOroRfboExtInOffset; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
