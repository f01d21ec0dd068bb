// IQ modulator RF module misc data, version 2.0: fields, record import and text form.
#include "HwDatablockIqOp3RfmCalibDataMiscV20.h"

#include "blocks/calib/CalibRecord.h"

#include <string>

namespace Tupsim {

namespace {

const unsigned kFirstFloat = 8;
const unsigned kFloatCount = 25;
const unsigned kFirstShort = kFirstFloat + 4 * kFloatCount;
const unsigned kShortCount = 4;

// Labels of the text form in image order: the floats, then the 16-bit values.
const char* const kLabels[kFloatCount + kShortCount] = {"LMAX_LOW",
                                                        "LMAX_MED",
                                                        "LMAX_HIGH",
                                                        "LMAX_OVR",
                                                        "LCAL_SENS_LOW",
                                                        "LCAL_SENS_MED",
                                                        "LCAL_SENS_HIGH",
                                                        "LCAL_SENS_OVR",
                                                        "VCAL_SENS_LOW",
                                                        "VCAL_SENS_MED",
                                                        "VCAL_SENS_HIGH",
                                                        "VCAL_SENS_OVR",
                                                        "LRANGE_CW_NORM",
                                                        "LRANGE_CW_OVR",
                                                        "LRANGE_IQ_NORM",
                                                        "LRANGE_IQ_OVR",
                                                        "UIQ",
                                                        "LCON_RESERVE_CW_NORM",
                                                        "LCON_RESERVE_CW_OVR",
                                                        "LCON_RESERVE_IQ_NORM",
                                                        "LCON_RESERVE_IQ_OVR",
                                                        "LPRE_CAL_LEV_CW_NORM",
                                                        "LPRE_CAL_LEV_CW_OVR",
                                                        "LPRE_CAL_LEV_IQ_NORM",
                                                        "LPRE_CAL_LEV_IQ_OVR",
                                                        "DETATT_LOW",
                                                        "DETATT_MED",
                                                        "DETATT_HIGH",
                                                        "DETATT_OVR"};

} // namespace

HwDatablockIqOp3RfmCalibDataMiscV20::HwDatablockIqOp3RfmCalibDataMiscV20(bool stopConversionOnError)
    : HwDatablock(stopConversionOnError) {
    image() = calib::freshImage(BlockId, BlockSize);
}

float HwDatablockIqOp3RfmCalibDataMiscV20::floatAt(unsigned offset) const {
    return calib::readField<float>(image(), offset);
}

void HwDatablockIqOp3RfmCalibDataMiscV20::storeFloat(unsigned offset, float value) {
    calib::setField(*this, image(), offset, value);
}

short HwDatablockIqOp3RfmCalibDataMiscV20::shortAt(unsigned offset) const {
    return calib::readField<short>(image(), offset);
}

void HwDatablockIqOp3RfmCalibDataMiscV20::storeShort(unsigned offset, short value) {
    calib::setField(*this, image(), offset, value);
}

int HwDatablockIqOp3RfmCalibDataMiscV20::setBlock(
    const HwSDatablockIqOp3RfmCalibDataMiscV20* block) {
    HwSDatablockIqOp3RfmCalibDataMiscV20 record;
    if (!calib::acceptRecord(*this, block, &record, BlockSize,
                             "   HwDatablockIqOp3RfmCalibDataMiscV20"))
        return 1;
    swapBlock(&record);
    return 0;
}

void HwDatablockIqOp3RfmCalibDataMiscV20::swapBlock(
    const HwSDatablockIqOp3RfmCalibDataMiscV20* block) {
    calib::importRecord(*this, image(), block, BlockSize,
                        {{kFirstFloat, 4, kFloatCount}, {kFirstShort, 2, kShortCount}});
}

std::ostream& HwDatablockIqOp3RfmCalibDataMiscV20::printToStream(std::ostream& out) {
    out << "# Das sind die Kalibrierdaten IQOP3 RFM MISC Version 2.0\n";
    out << "ID:              IQOP3_RFM_CALIB_DATA_MISC_V20\n";
    for (unsigned i = 0; i < kFloatCount + kShortCount; ++i) {
        std::string label = std::string(kLabels[i]) + ':';
        label.resize(23, ' ');
        out << label;
        if (i < kFloatCount)
            out << floatAt(kFirstFloat + 4 * i);
        else
            out << shortAt(kFirstShort + 2 * (i - kFloatCount));
        out << '\n';
    }
    out << '\n';
    return out;
}

} // namespace Tupsim
