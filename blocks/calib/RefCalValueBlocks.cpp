// The six reference blocks: ids, text form headings and message texts.
#include "HwDatablockDopMbrdPllDacCalibValue.h"
#include "HwDatablockFsynTcxoRefCalValue.h"
#include "HwDatablockPymOcxoRefCalValue.h"
#include "HwDatablockSsynOcxoRefCalValue.h"
#include "HwDatablockSynexOcxoRefCalValue.h"
#include "HwDatablockWexBaseboardCalibValue.h"

namespace Tupsim {

namespace {
const char kOcxoFailed[] = "store new ocxo- value failed";
} // namespace

HwDatablockPymOcxoRefCalValue::HwDatablockPymOcxoRefCalValue(bool stopConversionOnError)
    : HwDatablockRefCalValue(stopConversionOnError, BlockId, "   HwDatablockPymOcxoRefCalValue",
                             "# Wertebereich: 0...65535\n"
                             "ID:            PYM_OCXO_REF_CAL_VALUE\n",
                             kOcxoFailed) {}

HwDatablockFsynTcxoRefCalValue::HwDatablockFsynTcxoRefCalValue(bool stopConversionOnError)
    : HwDatablockCountedRefCalValue(stopConversionOnError, BlockId,
                                    "   HwDatablockFsynTcxoRefCalValue",
                                    "# Das sind die Fsyn_Ocxo Kalibrierwerte\n"
                                    "ID:            FSYN_TCXO_REF_CAL_VALUE\n",
                                    kOcxoFailed) {}

HwDatablockSynexOcxoRefCalValue::HwDatablockSynexOcxoRefCalValue(bool stopConversionOnError)
    : HwDatablockCountedRefCalValue(stopConversionOnError, BlockId,
                                    "   HwDatablockSynexOcxoRefCalValue",
                                    "# Das sind die Synex_Ocxo Kalibrierwerte\n"
                                    "ID:            SYNEX_OCXO_REF_CAL_VALUE\n",
                                    kOcxoFailed) {}

HwDatablockSsynOcxoRefCalValue::HwDatablockSsynOcxoRefCalValue(bool stopConversionOnError)
    : HwDatablockCountedRefCalValue(stopConversionOnError, BlockId,
                                    "   HwDatablockSsynOcxoRefCalValue",
                                    "# Das sind die Ssyn_Ocxo Kalibrierwerte\n"
                                    "ID:            SSYN_OCXO_REF_CAL_VALUE\n",
                                    kOcxoFailed) {}

HwDatablockDopMbrdPllDacCalibValue::HwDatablockDopMbrdPllDacCalibValue(bool stopConversionOnError)
    : HwDatablockRefCalValue(
          stopConversionOnError, BlockId, "   HwDatablockDopMbrdPllDacCalibValue",
          "# Einstellwert fuer den PLL-DAC bewirkt genaue Einstellung der Referenzfrequenz\n"
          "# Wertebereich: 0..3FFh (0..1023) entspricht Frequenz 10MHz +/-150Hz\n"
          "ID:            DOP_MBRD_PLL_DAC_VALUE\n",
          "Dop Mbrd Pll Dac Reference value failed") {}

HwDatablockWexBaseboardCalibValue::HwDatablockWexBaseboardCalibValue(bool stopConversionOnError)
    : HwDatablockRefCalValue(stopConversionOnError, BlockId, "   HwDatablockWexBaseboardCalibValue",
                             "# Das ist  der Baseboard Kalibrierwert\n"
                             "ID:            WEX_BASEBOARD_CALIB_VALUE\n",
                             "WEX baseboard calibration value failed") {}

} // namespace Tupsim
