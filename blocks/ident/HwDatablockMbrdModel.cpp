// Mainboard block holding the generator model name.
#include "HwDatablockMbrdModel.h"

#include "blocks/ident/BlockFields.h"
#include "blocks/ident/FieldCodec.h"

namespace Tupsim {

namespace {
enum : int { ModelOffset = 8, ModelWidth = 32, ModelWritten = 31, ImageSize = 40 };

// All 32 bytes are read, at most 31 written.
const records::FieldRow kRows[] = {
    {"MODEL", ModelOffset, ModelWidth, records::Codec::Text,
     records::through<&HwDatablockMbrdModel::setModel>, 1, records::Spread::Once, ModelWritten},
};
} // namespace

HwDatablockMbrdModel::HwDatablockMbrdModel() : HwDatablock(false) {
    image() = blockfields::freshImage(12001, ImageSize);
}

HwSDatablockMbrdModel* HwDatablockMbrdModel::getBlock() {
    return blockfields::recordView<HwSDatablockMbrdModel>(image());
}

int HwDatablockMbrdModel::setBlock(const HwSDatablockMbrdModel* record) {
    if (!blockfields::acceptRecord(*this, record, sizeof *record, "   HwDatablockMbrdModel"))
        return 1;
    swapBlock(record);
    return 0;
}

void HwDatablockMbrdModel::swapBlock(const HwSDatablockMbrdModel* record) {
    const QByteArray raw = blockfields::recordCopy(record, sizeof *record);
    if (raw.isEmpty())
        return;
    blockfields::importHeader(*this, raw, ImageSize, bytes::getLE<quint16>(raw, 6));
    // Raw bytes, as setModel would store them: no round trip through the local encoding.
    if (blockfields::storeText(image(), ModelOffset, ModelWritten, raw.constData() + ModelOffset,
                               ModelWritten))
        refreshChecksum();
    blockfields::keepRecordChecksum(*this, raw);
}

void HwDatablockMbrdModel::swapOwnImage() {
    blockfields::swapOwnImage<HwSDatablockMbrdModel>(*this);
}

std::ostream& HwDatablockMbrdModel::printToStream(std::ostream& out) {
    out << "# Das ist der Modellname des Zel`s\n";
    out << "ID:              GENERATOR_MODEL\n";
    out << "MODEL:           " << blockfields::fieldText(image(), ModelOffset, ModelWidth) << "\n";
    out << "\n";
    return out;
}

const records::RecordSchema& HwDatablockMbrdModel::recordSchema() {
    static const records::RecordSchema schema =
        records::schemaOver<HwDatablockMbrdModel>(kRows, ImageSize);
    return schema;
}

QString HwDatablockMbrdModel::getModel() {
    const std::string raw = blockfields::fieldText(image(), ModelOffset, ModelWidth);
    return QString::fromLocal8Bit(raw.data(), static_cast<int>(raw.size())).left(ModelWidth);
}

void HwDatablockMbrdModel::setModel(const QString& model) {
    const QByteArray local = model.toLocal8Bit();
    if (blockfields::storeText(image(), ModelOffset, ModelWritten, local.constData(), local.size()))
        refreshChecksum();
}

} // namespace Tupsim
