// Umbrella header: every exported class of the EpromDatablock library.
#pragma once

// Datablock core
#include "ETypeId.h"
#include "EpromDatablockGlobal.h"
#include "HwDatablock.h"
#include "HwDebug.h"
#include "HwEDataFormatTyp.h"
#include "HwEDatablockClassTyp.h"
#include "HwError.h"
#include "HwObject.h"
#include "IDebugServer.h"
#include "IErrorManager.h"
#include "ISystemServices.h"

// Table templates

// Directory and self-describing blocks
#include "CommonDatablockAccess.h"
#include "DatatypeMap2Print.h"
#include "HwDatablock2Edition.h"
#include "HwDatablockOldStyleInterpreter.h"
#include "HwSBlockDescription.h"
#include "HwSDataBlockCfg.h"
#include "IHwDatablockAccess.h"
#include "IHwVariantEeprom.h"

// Identification and service blocks
#include "HwDatablockEventCount.h"

// Calibration blocks
#include "HwDatablockCountedRefCalValue.h"
#include "HwDatablockDacIfFullScale.h"
#include "HwDatablockDopMbrdPllDacCalibValue.h"
#include "HwDatablockFsynTcxoRefCalValue.h"
#include "HwDatablockIqOp3RfmCalibDataMisc.h"
#include "HwDatablockIqOp3RfmCalibDataMiscV20.h"
#include "HwDatablockOpaqueCalib.h"
#include "HwDatablockPymOcxoRefCalValue.h"
#include "HwDatablockRefCalValue.h"
#include "HwDatablockSsynOcxoRefCalValue.h"
#include "HwDatablockSynexOcxoRefCalValue.h"
#include "HwDatablockWexBaseboardCalibValue.h"
#include "HwOpaqueCalibBlocks.h"
