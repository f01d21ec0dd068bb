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
#include "HwDatablockBaseTemplate.h"
#include "HwDatablockBaseTemplateExtended.h"
#include "HwDatablockBaseTemplateIndex.h"
#include "HwDatablockBaseTemplateWexW.h"

// Directory and self-describing blocks
#include "HwDatablockOldStyleInterpreter.h"

// Identification and service blocks

// Calibration blocks
