// Further calibration block HwDatablockCwop3DetTuneDac, kept as an opaque image.
#pragma once

#include "HwOpaqueCalibBlocks.h"
