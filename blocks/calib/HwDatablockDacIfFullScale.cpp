// Full-scale value of the IF DAC: field, record import and text form.
#include "HwDatablockDacIfFullScale.h"

#include "blocks/calib/CalibRecord.h"

namespace Tupsim {

namespace {
const unsigned kFullScaleValue = 8;
} // namespace

HwDatablockDacIfFullScale::HwDatablockDacIfFullScale(bool stopConversionOnError)
    : HwDatablock(stopConversionOnError) {
    image() = calib::freshImage(BlockId, BlockSize);
}

int HwDatablockDacIfFullScale::getFullScaleValue() const {
    return calib::readField<qint32>(image(), kFullScaleValue);
}

void HwDatablockDacIfFullScale::setFullScaleValue(int value) {
    calib::setField<qint32>(*this, image(), kFullScaleValue, value);
}

int HwDatablockDacIfFullScale::setBlock(const HwSDatablockDacIfFullScale* block) {
    HwSDatablockDacIfFullScale record;
    if (!calib::acceptRecord(*this, block, &record, BlockSize, "   HwDatablockDacIfFullScale"))
        return 1;
    swapBlock(&record);
    return 0;
}

void HwDatablockDacIfFullScale::swapBlock(const HwSDatablockDacIfFullScale* block) {
    calib::importRecord(*this, image(), block, BlockSize, {{kFullScaleValue, 4, 1}});
}

std::ostream& HwDatablockDacIfFullScale::printToStream(std::ostream& out) {
    out << "# Das ist der FullScaleValue\n";
    out << "ID:              DACIF_FULLSCALEVALUE\n";
    out << "FullscaleValue:              " << getFullScaleValue() << "\n\n";
    return out;
}

} // namespace Tupsim
