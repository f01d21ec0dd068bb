// Calibration table block HwDatablockOroRfboTempOffset; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
