// Layout shared by the identification block and the misc identification block.
#pragma once

#include "HwDatablock.h"
#include "blocks/RecordSchema.h"

#include <QByteArray>
#include <QString>

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
// Labels and their colon are printed in 17 columns.
enum : int { LabelWidth = 17 };

// The name up to its first NUL, at most 14 characters.
QString name(const QByteArray& image);

// Imports a record copy: size, id and alignment through the header setters, every field from
// offset 8 on through its byte-order hook, and last the record's own checksum (not a new one).
void copyRecord(HwDatablock& block, QByteArray& image, const QByteArray& record,
                unsigned short size);

// The fields of the identification block, ALIGNMENT to NAME, with its setters.
const records::RecordSchema& identSchema();
// The fields of the misc identification block: PARTNUMBER to NAME, read only.
const records::RecordSchema& miscIdentSchema();

} // namespace identfields
} // namespace Tupsim
