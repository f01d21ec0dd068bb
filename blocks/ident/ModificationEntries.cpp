// Layout shared by the two fixed-size modification lists.
#include "blocks/ident/ModificationEntries.h"

#include "blocks/ident/BlockFields.h"

namespace Tupsim {
namespace modentries {

quint16 entry(const QByteArray& image, unsigned int index) {
    if (index >= EntryCount)
        return 0;
    return bytes::getLE<quint16>(image, FirstEntry + 2 * index);
}

quint16 withAction(quint16 word, unsigned int action) {
    return static_cast<quint16>((word & 0x3FFFu) | ((action & 0x3u) << 14));
}

quint16 withCircularNr(quint16 word, unsigned int circularNr) {
    return static_cast<quint16>((word & 0xC000u) | (circularNr & 0x3FFFu));
}

void storeEntry(HwDatablock& block, QByteArray& image, unsigned int index, quint16 word) {
    if (index < EntryCount && blockfields::store<quint16>(image, FirstEntry + 2 * index, word))
        block.setChecksum(block.computeChecksum());
}

void copyRecord(HwDatablock& block, QByteArray& image, const QByteArray& record,
                unsigned short alignment) {
    blockfields::importHeader(block, record, ImageSize, alignment);
    for (unsigned int i = 0; i < EntryCount; ++i)
        storeEntry(block, image, i, entry(record, i));
    blockfields::keepRecordChecksum(block, record);
}

void print(std::ostream& out, const QByteArray& image, const char* name) {
    out << "# Das sind die Servicedaten Modification\n";
    out << "ID:              " << name << "\n";
    for (unsigned int i = 0; i < EntryCount; ++i)
        out << "SERVICECODE:     " << blockfields::format("%u", unsigned{entry(image, i)}) << "\n";
    out << "\n";
}

} // namespace modentries
} // namespace Tupsim
