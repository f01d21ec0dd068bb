// Calibration table block HwDatablockStereocoderCo; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
