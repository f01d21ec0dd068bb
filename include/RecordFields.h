// The named fields of record blocks (identification, service, statistic, modification and
// counter blocks), listed and set by the label each prints in a calibration file.
#pragma once

#include "EpromDatablockGlobal.h"
#include "Outcome.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

namespace Tupsim {

// The value a field's bytes hold, as its codec reads them.
struct RecordValue {
    enum Type {
        Number,     // `number`
        Text,       // `text`: the bytes up to the first NUL
        Date,       // `year`, `month`, `day` as stored; they need not make a date
        PartNumber, // `number` and `variant`
    };
    Type type = Number;
    quint64 number = 0;
    quint32 variant = 0;
    QByteArray text;
    int year = 0;
    int month = 0;
    int day = 0;
};

// One field of a record block as its section of a calibration file shows it.
struct RecordField {
    QString name;           // what `set` takes: the label, with a 1-based number where it repeats
    QString label;          // the label as printed, without the colon: "SN", "SERVICECODE"
    int line = 0;           // which line with this label in the section, 0 for the first
    int column = -1;        // which blank-separated value of that line; -1 for the whole rest
    int trailingBlanks = 0; // blanks the block prints behind the value
    QString value;          // the value as the block prints it
    RecordValue typed;      // the value the bytes hold
    QString rule;           // what the field takes, in words
    bool settable = false;
    bool readsBack = false; // the printed value sets the field to the bytes it holds
};

namespace recordFields {

// True when blocks with `id` have named fields.
EPROMDATABLOCK_EXPORT bool hasFields(quint16 id);
// The fields of `block` (a whole block image whose id says its class), in printing order;
// empty for blocks without named fields.
EPROMDATABLOCK_EXPORT QVector<RecordField> fields(const QByteArray& block);
// Sets field `name` (case-insensitive) of `block` from `value` through the block class's own
// setter, which refreshes the checksum. With `block` untouched: NoFields, UnknownField (the
// message lists the fields), ReadOnly (a field without a setter), Corrupt (a block shorter
// than its record) or DoesNotFit (the message names the field and its rule). Nothing is
// truncated or wrapped.
EPROMDATABLOCK_EXPORT Outcome setField(QByteArray& block, const QString& name,
                                       const QString& value);
// The value `field` shows in the lines of a section (blanks after the label skipped, a
// column picked, '\r' dropped); false when the section has no such line.
EPROMDATABLOCK_EXPORT bool sectionValue(const QStringList& sectionLines, const RecordField& field,
                                        QString& value);
// The names of the fields of `block`, joined with ", ".
EPROMDATABLOCK_EXPORT QString fieldNames(const QByteArray& block);

} // namespace recordFields
} // namespace Tupsim
