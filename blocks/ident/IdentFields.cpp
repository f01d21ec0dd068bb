// Layout shared by the identification block and the misc identification block.
#include "blocks/ident/IdentFields.h"

#include "HwDatablockIdent.h"
#include "HwDatablockMiscIdent.h"
#include "blocks/ident/BlockFields.h"
#include "core/HwBytes.h"

#include <array>
#include <cstddef>
#include <iterator>

namespace Tupsim {
namespace identfields {

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

namespace {

using records::Codec;
using records::FieldRow;
using records::Value;
using I = HwDatablockIdent;
using R = HwSDatablockIdent;

// Block id 10 prints two blanks behind its name.
const char* nameSuffix(unsigned id) {
    return id == 10 ? "  " : "";
}

void setPartNumber(HwDatablock& block, const Value& value, unsigned) {
    static_cast<I&>(block).setPartNumber(static_cast<unsigned>(value.number));
    static_cast<I&>(block).setVariant(static_cast<unsigned char>(value.second));
}

// ALIGNMENT and EEPROMSIZE, which only the ident block prints, then the shared rows; widths
// are those of the record's members.
const FieldRow kIdentRows[] = {
    {"ALIGNMENT", offsetof(R, alignment), sizeof(R::alignment), Codec::Number, nullptr},
    {"EEPROMSIZE", EepromSize, sizeof(R::eepromSize), Codec::Number,
     records::through<&I::setEepromSize>},
    {"PARTNUMBER", PartNumber, sizeof(R::partNumber), Codec::PartNumber, &setPartNumber},
    {"HWCODE", HardwareCode, sizeof(R::hardwareCode), Codec::Number,
     records::through<&I::setHardwareCode>},
    {"PRODUCTINDEX", ProductIndex, sizeof(R::productIndex), Codec::TwoPart,
     records::through<&I::setProductIndex>},
    {"SN", SerialNumber, sizeof(R::serialNumber), Codec::Number,
     records::through<&I::setSerialNumber>},
    {"PRODUCTDATE", ProductDate, sizeof(R::productDate), Codec::Date,
     records::through<&I::setProductDate>},
    {"READCODE", ReadCode, sizeof(R::readCode), Codec::Number, records::through<&I::setReadCode>},
    {"TESTINSTRUCTION", TestInstruction, sizeof(R::testInstruction), Codec::TwoPart,
     records::through<&I::setTestInstruction>},
    {"NAME", Name, NameWidth, Codec::Text, records::through<&I::setName>, 1, records::Spread::Once,
     0, &nameSuffix},
};
constexpr std::size_t kSharedFrom = 2;
constexpr std::size_t kSharedRows = std::size(kIdentRows) - kSharedFrom;

// The shared rows without setters and without the name's blanks.
std::array<FieldRow, kSharedRows> miscRows() {
    std::array<FieldRow, kSharedRows> rows{};
    for (std::size_t i = 0; i < kSharedRows; ++i) {
        rows[i] = kIdentRows[kSharedFrom + i];
        rows[i].set = nullptr;
        rows[i].suffix = nullptr;
    }
    return rows;
}

} // namespace

const records::RecordSchema& identSchema() {
    static const records::RecordSchema schema =
        records::schemaOver<HwDatablockIdent>(kIdentRows, ImageSize);
    return schema;
}

const records::RecordSchema& miscIdentSchema() {
    static const std::array<FieldRow, kSharedRows> rows = miscRows();
    static const records::RecordSchema schema =
        records::schemaOver<HwDatablockMiscIdent>(rows.data(), rows.size(), ImageSize);
    return schema;
}

} // namespace identfields
} // namespace Tupsim
