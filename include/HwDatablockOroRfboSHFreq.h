// Calibration table block HwDatablockOroRfboSHFreq; declared with the whole catalogue.
#pragma once

#include "HwCalibTableBlocks.h"
