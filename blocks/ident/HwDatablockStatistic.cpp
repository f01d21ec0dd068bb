// Statistics block of a module: its operating hours.
#include "HwDatablockStatistic.h"

#include "blocks/ident/BlockFields.h"
#include "blocks/ident/FieldCodec.h"

namespace Tupsim {

namespace {
enum : int { OpHours = 8, ImageSize = 12 };

const records::FieldRow kRows[] = {
    {"OPHOURS", OpHours, sizeof(HwSDatablockStatistic::opHours), records::Codec::Number,
     records::through<&HwDatablockStatistic::setOpHours>},
};
} // namespace

HwDatablockStatistic::HwDatablockStatistic() : HwDatablock(false) {
    image() = blockfields::freshImage(300, ImageSize);
}

HwSDatablockStatistic* HwDatablockStatistic::getBlock() {
    return blockfields::recordView<HwSDatablockStatistic>(image());
}

int HwDatablockStatistic::setBlock(const HwSDatablockStatistic* record) {
    if (!blockfields::acceptRecord(*this, record, sizeof *record, "   HwDatablockStatistic"))
        return 1;
    swapBlock(record);
    return 0;
}

void HwDatablockStatistic::swapBlock(const HwSDatablockStatistic* record) {
    const QByteArray raw = blockfields::recordCopy(record, sizeof *record);
    if (raw.isEmpty())
        return;
    blockfields::importHeader(*this, raw, ImageSize, 0);
    setOpHours(blockfields::recordField<quint32>(*this, raw, OpHours));
    blockfields::keepRecordChecksum(*this, raw);
}

void HwDatablockStatistic::swapOwnImage() {
    blockfields::swapOwnImage<HwSDatablockStatistic>(*this);
}

std::ostream& HwDatablockStatistic::printToStream(std::ostream& out) {
    out << "# Das sind die Statisticdaten Statistics 300\n";
    out << "ID:              STATISTICS_300\n";
    out << "OPHOURS:         " << blockfields::format("%u", getOpHours()) << "\n";
    out << "\n";
    return out;
}

const records::RecordSchema& HwDatablockStatistic::recordSchema() {
    static const records::RecordSchema schema =
        records::schemaOver<HwDatablockStatistic>(kRows, ImageSize);
    return schema;
}

unsigned int HwDatablockStatistic::getOpHours() {
    return bytes::getLE<quint32>(image(), OpHours);
}

void HwDatablockStatistic::setOpHours(unsigned int hours) {
    if (blockfields::store<quint32>(image(), OpHours, hours))
        refreshChecksum();
}

} // namespace Tupsim
