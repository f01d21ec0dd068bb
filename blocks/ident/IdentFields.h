// Layout shared by the identification block and the misc identification block.
#pragma once

#include "HwDatablock.h"

#include <QByteArray>
#include <QString>
#include <ostream>
#include <string>

namespace Tupsim {
namespace identfields {

enum Offset : int {
    EepromSize = 8,
    PartNumber = 12,
    Variant = 16,
    HardwareCode = 17,
    ProductIndex = 18,
    SerialNumber = 20,
    ProductDate = 24,
    ReadCode = 26,
    TestInstruction = 28,
    Name = 30
};
enum : int { NameWidth = 14, ImageSize = 44 };

// The name up to its first NUL, at most 14 characters.
QString name(const QByteArray& image);

// Imports a record copy: size, id and alignment through the header setters, every field from
// offset 8 on through its byte-order hook, and last the record's own checksum (not a new one).
void copyRecord(HwDatablock& block, QByteArray& image, const QByteArray& record,
                unsigned short size);

// "1234.5678.02": the part number with its four-digit sub-number, then the variant.
std::string partNumberText(quint32 partNumber, unsigned variant);
// "2021-06-15" from a packed date: bits 15..9 year minus 1980, 8..5 month, 4..0 day.
std::string dateText(unsigned packed);

// Lines PARTNUMBER to NAME of the text form; `nameSuffix` follows the name.
void printFields(std::ostream& out, const QByteArray& image, const char* nameSuffix);

} // namespace identfields
} // namespace Tupsim
