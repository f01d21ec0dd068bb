// List of the modifications applied to a module, of any length.
#include "HwDatablockModification120.h"

#include "blocks/ident/BlockFields.h"
#include "blocks/ident/FieldCodec.h"

namespace Tupsim {

namespace {
enum : int { HeaderSize = 8 };

// One read-only code per whole 32-bit word behind the header.
const records::FieldRow kRows[] = {
    {"SERVICECODE", HeaderSize, sizeof(quint32), records::Codec::Number, nullptr, 0,
     records::Spread::Lines},
};
} // namespace

HwDatablockModification120::HwDatablockModification120()
    : HwDatablock(false), header{120, HeaderSize, 0, 0} {
    image() = blockfields::freshImage(120, HeaderSize);
}

HwSDatablockModification120* HwDatablockModification120::getBlock() {
    return blockfields::recordView<HwSDatablockModification120>(image());
}

int HwDatablockModification120::setBlock(const HwSDatablockModification120* record) {
    if (record == nullptr)
        return 1;
    const QByteArray head = blockfields::recordCopy(record, sizeof *record);
    const quint16 size = bytes::getLE<quint16>(head, 2);
    if (size < HeaderSize) {
        blockfields::signalRejected(1040001, "   HwDatablockModification120");
        return 1;
    }
    if (!blockfields::acceptRecord(*this, record, size, "   HwDatablockModification120"))
        return 1;
    image() = blockfields::recordCopy(record, size);
    reInterpretData();
    return 0;
}

void HwDatablockModification120::swapBlock() {
    // Every code is turned (reversed on a big-endian host); the header words stay in the
    // reference form, where the block is told by its id in either data format.
    QByteArray& data = image();
    for (int offset = HeaderSize; offset + 4 <= data.size(); offset += 4)
        blockfields::store<quint32>(data, offset, fieldhooks::asHeld<quint32>(data, offset));
    reInterpretData();
}

void HwDatablockModification120::swapOwnImage() {
    swapBlock();
}

std::ostream& HwDatablockModification120::printToStream(std::ostream& out) {
    reInterpretData();
    out << "# Das sind die Servicedaten Modification120\n";
    out << "ID:              MODIFICATION_120\n";
    for (quint32 code : serviceCodes)
        out << "SERVICECODE:     " << blockfields::format("%u", code) << "\n";
    out << "\n";
    return out;
}

const records::RecordSchema& HwDatablockModification120::recordSchema() {
    static const records::RecordSchema schema =
        records::schemaOver<HwDatablockModification120>(kRows, HeaderSize);
    return schema;
}

unsigned int HwDatablockModification120::getNumberOfServiceCode() {
    reInterpretData();
    return static_cast<unsigned int>(serviceCodes.size());
}

unsigned int HwDatablockModification120::getServiceCode(unsigned int index) {
    reInterpretData();
    return index < serviceCodes.size() ? serviceCodes[index] : 0;
}

void HwDatablockModification120::reInterpretData() {
    const QByteArray& data = image();
    header.blockId = bytes::getLE<quint16>(data, 0);
    header.blockSize = bytes::getLE<quint16>(data, 2);
    header.checksum = bytes::getLE<quint16>(data, 4);
    header.alignment = bytes::getLE<quint16>(data, 6);
    serviceCodes.clear();
    // Whole words only: a trailing partial word is ignored.
    for (int offset = HeaderSize; offset + 4 <= data.size(); offset += 4)
        serviceCodes.push_back(bytes::getLE<quint32>(data, offset));
}

} // namespace Tupsim
