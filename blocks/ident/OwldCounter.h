// Text form and import shared by the two one-counter overload blocks of the step attenuators.
#pragma once

#include "HwDatablock.h"
#include "blocks/RecordSchema.h"
#include "blocks/ident/BlockFields.h"

#include <QByteArray>
#include <ostream>

namespace Tupsim {
namespace owldcounter {

enum : int { ImageSize = 12 };

// What tells the first counter block of an attenuator from the second.
struct Texts {
    unsigned int firstId;
    const char* firstComment;
    const char* otherComment;
    const char* firstName;
    const char* otherName;
};

// Comment, ID and COUNT_VALUE lines; unlike the other blocks no empty line follows.
void print(std::ostream& out, HwDatablock& block, const QByteArray& image, const Texts& texts);

// Imports a record copy: only the count (id and size stay as they are), with a checksum
// refresh, then `alignment` when given (>= 0), and last the record's own checksum.
void copyRecord(HwDatablock& block, QByteArray& image, const QByteArray& record, int alignment);

// The one field of a counter block of class Counter: COUNT_VALUE.
template <class Counter> const records::RecordSchema& schema() {
    static const records::FieldRow rows[] = {
        {"COUNT_VALUE", blockfields::FirstCounter, sizeof(quint32), records::Codec::Number,
         [](HwDatablock& block, const records::Value& value, unsigned) {
             static_cast<Counter&>(block).setCounterValue(static_cast<unsigned>(value.number), 0);
         }},
    };
    static const records::RecordSchema schema = records::schemaOver<Counter>(rows, ImageSize);
    return schema;
}

} // namespace owldcounter
} // namespace Tupsim
