// Setting named fields of one record block of an image: planned and checked first, then
// applied all or nothing.
#pragma once

#include "EepromImage.h"
#include "RecordFields.h"

namespace Tupsim {

// FIELD=VALUE as given by a user.
struct FieldAssignment {
    QString field;
    QString value;
};

// Splits "FIELD=VALUE" at its first '='; false, with `error`, for a text without '=', with an
// empty field or a second '=' right behind the first ("SN==5").
EPROMDATABLOCK_EXPORT bool parseAssignment(const QString& text, FieldAssignment& assignment,
                                           QString& error);

struct FieldChange {
    QString field; // the field's name as the block lists it
    QString before;
    QString after;
};

struct RecordEdit {
    bool ok = false;
    QString error;  // why nothing may be written, when not ok
    int index = -1; // of the block in the chain
    quint16 id = 0;
    int offset = 0;
    QString name;
    QVector<FieldChange> changes; // in the order of the assignments
    quint16 checksumBefore = 0;
    quint16 checksumAfter = 0;
    QByteArray before;
    QByteArray after;

    bool changed() const { return before != after; }
};

// Plans setting `assignments` on the `occurrence`-th block (1 for the first) with `id`. Not ok
// when the chain is broken, there is no such block, it has no named fields, a field is unknown
// or given twice, or a value does not fit its field: then the plan changes nothing.
EPROMDATABLOCK_EXPORT RecordEdit planRecordEdit(const EepromImage& image, quint16 id,
                                                int occurrence,
                                                const QVector<FieldAssignment>& assignments);
// Writes the planned block into the image; false, with `error`, when the plan is not ok.
EPROMDATABLOCK_EXPORT bool applyRecordEdit(EepromImage& image, const RecordEdit& edit,
                                           QString& error);

} // namespace Tupsim
