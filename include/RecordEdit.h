// Setting named fields of one record block of an image: planned and checked first, then
// applied all or nothing.
#pragma once

#include "ImagePlan.h"
#include "RecordFields.h"

namespace Tupsim {

// FIELD=VALUE as given by a user.
struct FieldAssignment {
    QString field;
    QString value;
};

// Splits "FIELD=VALUE" at its first '=' into `assignment`; BadAssignment for a text without
// '=', with an empty field or a second '=' right behind the first ("SN==5").
EPROMDATABLOCK_EXPORT Outcome parseAssignment(const QString& text, FieldAssignment& assignment);

struct FieldChange {
    QString field; // the field's name as the block lists it
    QString before;
    QString after;
};

// The edited block, when it changes, in `replace`.
struct RecordEdit : ImagePlan {
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
// when the chain is broken (ChainBroken), there is no such block (UnknownBlock), it has no
// named fields (NoFields), a field is given twice (BadAssignment), or setField refuses an
// assignment: then the plan changes nothing. Applied with applyPlan.
EPROMDATABLOCK_EXPORT RecordEdit planRecordEdit(const EepromImage& image, quint16 id,
                                                int occurrence,
                                                const QVector<FieldAssignment>& assignments);

} // namespace Tupsim
