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
#include "HwDatablockOldStyleInterpreter.h"

// Identification and service blocks
#include "HwDatablockCommonStatisticData.h"
#include "HwDatablockCwop6VcoIdent.h"
#include "HwDatablockEnd.h"
#include "HwDatablockIdent.h"
#include "HwDatablockIpcUser10000.h"
#include "HwDatablockIpcUser10040.h"
#include "HwDatablockMbrdMac.h"
#include "HwDatablockMbrdModel.h"
#include "HwDatablockMbrdSerialNumber.h"
#include "HwDatablockMbrdTimeMonitoringData.h"
#include "HwDatablockMiscIdent.h"
#include "HwDatablockModification.h"
#include "HwDatablockModification110.h"
#include "HwDatablockModification120.h"
#include "HwDatablockSAtt3OWLDCounter.h"
#include "HwDatablockSAtt6OWLDCounter.h"
#include "HwDatablockSAttCCounter.h"
#include "HwDatablockServiceData.h"
#include "HwDatablockStatistic.h"
#include "HwEVariantEepromDatablock.h"
#include "HwModuleTypeTable.h"

// Calibration blocks
