// Identification of the VCO on a CW option board.
#include "HwDatablockCwop6VcoIdent.h"

#include "blocks/ident/BlockFields.h"
#include "blocks/ident/FieldCodec.h"

namespace Tupsim {

namespace {
enum : int {
    JobNumber = 8,
    SerialNumber = 12,
    LotNumber = 14,
    Taz = 16,
    Osc3Subh = 18,
    Osc3Subl = 20,
    Osc2Subh = 22,
    Osc2Subl = 24,
    Osc1Subh = 26,
    ImageSize = 28
};

using records::Codec;
using V = HwDatablockCwop6VcoIdent;
using R = HwSDatablockCwop6VcoIdent;

// In image order: the job number, then the 16-bit words. Labels and colon take 18 columns.
const records::FieldRow kRows[] = {
    {"JOBNR", JobNumber, sizeof(R::jobNumber), Codec::Number, records::through<&V::setJobNumber>},
    {"SERNR", SerialNumber, sizeof(R::serialNumber), Codec::Number,
     records::through<&V::setSerialNumber>},
    {"LOTNR", LotNumber, sizeof(R::lotNumber), Codec::Number, records::through<&V::setLotNumber>},
    {"TAZ", Taz, sizeof(R::taz), Codec::Number, records::through<&V::setTaz>},
    {"OSC3SUB_H", Osc3Subh, sizeof(R::osc3Subh), Codec::Number, records::through<&V::setOsc3Subh>},
    {"OSC3SUB_L", Osc3Subl, sizeof(R::osc3Subl), Codec::Number, records::through<&V::setOsc3Subl>},
    {"OSC2SUB_H", Osc2Subh, sizeof(R::osc2Subh), Codec::Number, records::through<&V::setOsc2Subh>},
    {"OSC2SUB_L", Osc2Subl, sizeof(R::osc2Subl), Codec::Number, records::through<&V::setOsc2Subl>},
    {"OSC1SUB_H", Osc1Subh, sizeof(R::osc1Subh), Codec::Number, records::through<&V::setOsc1Subh>},
};
enum : int { LabelWidth = 18 };
} // namespace

HwDatablockCwop6VcoIdent::HwDatablockCwop6VcoIdent() : HwDatablock(false) {
    image() = blockfields::freshImage(10502, ImageSize);
}

HwSDatablockCwop6VcoIdent* HwDatablockCwop6VcoIdent::getBlock() {
    return blockfields::recordView<HwSDatablockCwop6VcoIdent>(image());
}

int HwDatablockCwop6VcoIdent::setBlock(const HwSDatablockCwop6VcoIdent* record) {
    if (!blockfields::acceptRecord(*this, record, sizeof *record, "   HwDatablockCwop6VcoIdent"))
        return 1;
    swapBlock(record);
    return 0;
}

void HwDatablockCwop6VcoIdent::swapBlock(const HwSDatablockCwop6VcoIdent* record) {
    const QByteArray raw = blockfields::recordCopy(record, sizeof *record);
    if (raw.isEmpty())
        return;
    blockfields::importHeader(*this, raw, ImageSize, bytes::getLE<quint16>(raw, 6));
    setJobNumber(blockfields::recordField<quint32>(*this, raw, JobNumber));
    for (const records::FieldRow& row : kRows)
        if (row.offset != JobNumber)
            setWord(row.offset, blockfields::recordField<quint16>(*this, raw, row.offset));
    blockfields::keepRecordChecksum(*this, raw);
}

std::ostream& HwDatablockCwop6VcoIdent::printToStream(std::ostream& out) {
    out << "# Das sind die VCO Ident Daten\n";
    out << "ID:               VCO_IDENT\n";
    records::printFields(out, recordSchema(), image(), getId(), LabelWidth);
    out << "\n";
    return out;
}

const records::RecordSchema& HwDatablockCwop6VcoIdent::recordSchema() {
    static const records::RecordSchema schema = records::schemaOver<V>(kRows, ImageSize);
    return schema;
}

unsigned int HwDatablockCwop6VcoIdent::getJobNumber() {
    return bytes::getLE<quint32>(image(), JobNumber);
}

unsigned short HwDatablockCwop6VcoIdent::getSerialNumber() {
    return bytes::getLE<quint16>(image(), SerialNumber);
}

unsigned short HwDatablockCwop6VcoIdent::getLotNumber() {
    return bytes::getLE<quint16>(image(), LotNumber);
}

unsigned short HwDatablockCwop6VcoIdent::getTaz() {
    return bytes::getLE<quint16>(image(), Taz);
}

unsigned short HwDatablockCwop6VcoIdent::getOsc3Subh() {
    return bytes::getLE<quint16>(image(), Osc3Subh);
}

unsigned short HwDatablockCwop6VcoIdent::getOsc3Subl() {
    return bytes::getLE<quint16>(image(), Osc3Subl);
}

unsigned short HwDatablockCwop6VcoIdent::getOsc2Subh() {
    return bytes::getLE<quint16>(image(), Osc2Subh);
}

unsigned short HwDatablockCwop6VcoIdent::getOsc2Subl() {
    return bytes::getLE<quint16>(image(), Osc2Subl);
}

unsigned short HwDatablockCwop6VcoIdent::getOsc1Subh() {
    return bytes::getLE<quint16>(image(), Osc1Subh);
}

void HwDatablockCwop6VcoIdent::setJobNumber(unsigned int jobNumber) {
    if (blockfields::store<quint32>(image(), JobNumber, jobNumber))
        refreshChecksum();
}

void HwDatablockCwop6VcoIdent::setSerialNumber(unsigned short serialNumber) {
    setWord(SerialNumber, serialNumber);
}

void HwDatablockCwop6VcoIdent::setLotNumber(unsigned short lotNumber) {
    setWord(LotNumber, lotNumber);
}

void HwDatablockCwop6VcoIdent::setTaz(unsigned short taz) {
    setWord(Taz, taz);
}

void HwDatablockCwop6VcoIdent::setOsc3Subh(unsigned short value) {
    setWord(Osc3Subh, value);
}

void HwDatablockCwop6VcoIdent::setOsc3Subl(unsigned short value) {
    setWord(Osc3Subl, value);
}

void HwDatablockCwop6VcoIdent::setOsc2Subh(unsigned short value) {
    setWord(Osc2Subh, value);
}

void HwDatablockCwop6VcoIdent::setOsc2Subl(unsigned short value) {
    setWord(Osc2Subl, value);
}

void HwDatablockCwop6VcoIdent::setOsc1Subh(unsigned short value) {
    setWord(Osc1Subh, value);
}

void HwDatablockCwop6VcoIdent::setWord(int offset, unsigned short value) {
    if (blockfields::store<quint16>(image(), offset, value))
        refreshChecksum();
}

} // namespace Tupsim
