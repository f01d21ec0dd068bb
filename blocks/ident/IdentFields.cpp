// Layout shared by the identification block and the misc identification block.
#include "blocks/ident/IdentFields.h"

#include "blocks/ident/BlockFields.h"
#include "core/HwBytes.h"

namespace Tupsim {
namespace identfields {

using blockfields::format;

QString name(const QByteArray& image) {
    const std::string raw = blockfields::fieldText(image, Name, NameWidth);
    return QString::fromLocal8Bit(raw.data(), static_cast<int>(raw.size())).left(NameWidth);
}

void copyRecord(HwDatablock& block, QByteArray& image, const QByteArray& record,
                unsigned short size) {
    blockfields::importHeader(block, record, size, bytes::getLE<quint16>(record, 6));
    blockfields::store(image, EepromSize,
                       blockfields::recordField<quint32>(block, record, EepromSize));
    blockfields::store(image, PartNumber,
                       blockfields::recordField<quint32>(block, record, PartNumber));
    blockfields::store(image, Variant, blockfields::recordField<quint8>(block, record, Variant));
    blockfields::store(image, HardwareCode,
                       blockfields::recordField<quint8>(block, record, HardwareCode));
    blockfields::store(image, ProductIndex,
                       blockfields::recordField<quint16>(block, record, ProductIndex));
    blockfields::store(image, SerialNumber,
                       blockfields::recordField<quint32>(block, record, SerialNumber));
    blockfields::store(image, ProductDate,
                       blockfields::recordField<quint16>(block, record, ProductDate));
    blockfields::store(image, ReadCode, blockfields::recordField<quint16>(block, record, ReadCode));
    blockfields::store(image, TestInstruction,
                       blockfields::recordField<quint16>(block, record, TestInstruction));
    // The name is copied as raw bytes: no round trip through the local encoding.
    if (record.size() >= ImageSize)
        blockfields::storeText(image, Name, NameWidth, record.constData() + Name, NameWidth);
    blockfields::keepRecordChecksum(block, record);
}

std::string partNumberText(quint32 partNumber, unsigned variant) {
    return format("%u.%04u.%02u", partNumber / 10000, partNumber % 10000, variant);
}

std::string dateText(unsigned packed) {
    return format("%u-%02u-%02u", 1980 + (packed >> 9), (packed >> 5) & 0xF, packed & 0x1F);
}

void printFields(std::ostream& out, const QByteArray& image, const char* nameSuffix) {
    const quint32 part = bytes::getLE<quint32>(image, PartNumber);
    const unsigned variant = bytes::getLE<quint8>(image, Variant);
    const unsigned index = bytes::getLE<quint16>(image, ProductIndex);
    const unsigned date = bytes::getLE<quint16>(image, ProductDate);
    const unsigned instruction = bytes::getLE<quint16>(image, TestInstruction);
    out << "PARTNUMBER:      " << partNumberText(part, variant) << "\n";
    out << "HWCODE:          " << format("%u", unsigned{bytes::getLE<quint8>(image, HardwareCode)})
        << "\n";
    out << "PRODUCTINDEX:    " << format("%02u.%02u", index / 100, index % 100) << "\n";
    out << "SN:              " << format("%u", bytes::getLE<quint32>(image, SerialNumber)) << "\n";
    out << "PRODUCTDATE:     " << dateText(date) << "\n";
    out << "READCODE:        " << format("%u", unsigned{bytes::getLE<quint16>(image, ReadCode)})
        << "\n";
    out << "TESTINSTRUCTION: " << format("%02u.%02u", instruction / 100, instruction % 100) << "\n";
    out << "NAME:            " << blockfields::fieldText(image, Name, NameWidth) << nameSuffix
        << "\n";
}

} // namespace identfields
} // namespace Tupsim
