// Calibration table block HwDatablockMbrdIqInputB; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
