// Calibration table block HwDatablockMbrdIqInputA; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
