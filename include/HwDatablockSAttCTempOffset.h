// Calibration table block HwDatablockSAttCTempOffset; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
