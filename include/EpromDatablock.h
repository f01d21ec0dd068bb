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
