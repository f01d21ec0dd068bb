// Identification of the VCO on a CW option board.
#include "HwDatablockCwop6VcoIdent.h"

#include "blocks/ident/BlockFields.h"

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

// The 16-bit fields in image order with their print labels.
struct WordField {
    int offset;
    const char* label;
};
const WordField kWordFields[] = {
    {SerialNumber, "SERNR:            "}, {LotNumber, "LOTNR:            "},
    {Taz, "TAZ:              "},          {Osc3Subh, "OSC3SUB_H:        "},
    {Osc3Subl, "OSC3SUB_L:        "},     {Osc2Subh, "OSC2SUB_H:        "},
    {Osc2Subl, "OSC2SUB_L:        "},     {Osc1Subh, "OSC1SUB_H:        "}};
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
    for (const WordField& field : kWordFields)
        setWord(field.offset, blockfields::recordField<quint16>(*this, raw, field.offset));
    blockfields::keepRecordChecksum(*this, raw);
}

std::ostream& HwDatablockCwop6VcoIdent::printToStream(std::ostream& out) {
    out << "# Das sind die VCO Ident Daten\n";
    out << "ID:               VCO_IDENT\n";
    out << "JOBNR:            " << blockfields::format("%u", getJobNumber()) << "\n";
    for (const WordField& field : kWordFields)
        out << field.label
            << blockfields::format("%u", unsigned{bytes::getLE<quint16>(image(), field.offset)})
            << "\n";
    out << "\n";
    return out;
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
