// The field tables of the record blocks: labels, rules, parsers and the class setters they use.
#include "RecordFields.h"

#include "BlockCatalogue.h"
#include "HwDatablockCwop6VcoIdent.h"
#include "HwDatablockIdent.h"
#include "HwDatablockMbrdModel.h"
#include "HwDatablockMbrdSerialNumber.h"
#include "HwDatablockMiscIdent.h"
#include "HwDatablockModification.h"
#include "HwDatablockModification120.h"
#include "HwDatablockSAtt3OWLDCounter.h"
#include "HwDatablockSAtt6OWLDCounter.h"
#include "HwDatablockSAttCCounter.h"
#include "HwDatablockServiceData.h"
#include "HwDatablockStatistic.h"
#include "core/HwBytes.h"

#include <QDate>
#include <QRegularExpression>
#include <QStringList>
#include <sstream>

namespace Tupsim {

namespace {

// A value parsed from text: a number, two numbers, or bytes of text.
struct Value {
    quint64 number = 0;
    quint64 second = 0;
    QByteArray text;
};

enum class Rule { Number, Text, Date, PartNumber, TwoPart, Hours };

using Setter = void (*)(HwDatablock&, const Value&);

struct FieldDef {
    QString name;
    QString label;
    int line = 0;
    int column = -1;
    Rule rule = Rule::Number;
    quint64 max = 0; // Number: largest value; Text: most characters
    Setter set = nullptr;
    int suffix = 0; // blanks the block prints behind the value
};

// The fields of one block class and the test that the object is of that class.
struct Table {
    QVector<FieldDef> defs;
    bool (*isClass)(HwDatablock*) = nullptr;
    int recordSize = 8; // bytes the fields need
};

template <typename C> bool isA(HwDatablock* block) {
    return dynamic_cast<C*>(block) != nullptr;
}

template <typename C> C& as(HwDatablock& block) {
    return static_cast<C&>(block);
}

FieldDef number(const char* label, quint64 max, Setter set) {
    FieldDef def;
    def.name = def.label = QLatin1String(label);
    def.max = max;
    def.set = set;
    return def;
}

FieldDef withRule(FieldDef def, Rule rule) {
    def.rule = rule;
    return def;
}

FieldDef readOnly(const char* label, Rule rule, quint64 max = 0) {
    FieldDef def = number(label, max, nullptr);
    def.rule = rule;
    return def;
}

constexpr quint64 kU8 = 0xFF;
constexpr quint64 kU16 = 0xFFFF;
constexpr quint64 kU32 = 0xFFFFFFFFull;
constexpr quint64 kHours = 0x3FFFF; // 18 bits

// The identification layout shared by the ident and misc ident blocks; `settable` adds the
// ident block's setters.
QVector<FieldDef> identFields(bool settable, bool alignmentLine, bool nameSuffix) {
    using I = HwDatablockIdent;
    QVector<FieldDef> defs;
    if (alignmentLine)
        defs << readOnly("ALIGNMENT", Rule::Number, kU16)
             << number("EEPROMSIZE", kU32, [](HwDatablock& b, const Value& v) {
                    as<I>(b).setEepromSize(static_cast<unsigned>(v.number));
                });
    defs << withRule(number("PARTNUMBER", kU32,
                            [](HwDatablock& b, const Value& v) {
                                as<I>(b).setPartNumber(static_cast<unsigned>(v.number));
                                as<I>(b).setVariant(static_cast<unsigned char>(v.second));
                            }),
                     Rule::PartNumber)
         << number("HWCODE", kU8,
                   [](HwDatablock& b, const Value& v) {
                       as<I>(b).setHardwareCode(static_cast<unsigned char>(v.number));
                   })
         << withRule(number("PRODUCTINDEX", kU16,
                            [](HwDatablock& b, const Value& v) {
                                as<I>(b).setProductIndex(static_cast<unsigned short>(v.number));
                            }),
                     Rule::TwoPart)
         << number("SN", kU32,
                   [](HwDatablock& b, const Value& v) {
                       as<I>(b).setSerialNumber(static_cast<unsigned>(v.number));
                   })
         << withRule(number("PRODUCTDATE", kU16,
                            [](HwDatablock& b, const Value& v) {
                                as<I>(b).setProductDate(static_cast<unsigned short>(v.number));
                            }),
                     Rule::Date)
         << number("READCODE", kU16,
                   [](HwDatablock& b, const Value& v) {
                       as<I>(b).setReadCode(static_cast<unsigned short>(v.number));
                   })
         << withRule(number("TESTINSTRUCTION", kU16,
                            [](HwDatablock& b, const Value& v) {
                                as<I>(b).setTestInstruction(static_cast<unsigned short>(v.number));
                            }),
                     Rule::TwoPart)
         << withRule(number("NAME", 14,
                            [](HwDatablock& b, const Value& v) {
                                as<I>(b).setName(QString::fromLatin1(v.text));
                            }),
                     Rule::Text);
    if (nameSuffix)
        defs.last().suffix = 2;
    if (!settable)
        for (FieldDef& def : defs)
            def.set = nullptr;
    return defs;
}

QVector<FieldDef> serviceFields() {
    using S = HwDatablockServiceData;
    return {withRule(number("DEPARTMENT", 6,
                            [](HwDatablock& b, const Value& v) {
                                QByteArray padded = v.text;
                                padded.append(QByteArray(6 - padded.size(), '\0'));
                                as<S>(b).setDepartment(padded.constData());
                            }),
                     Rule::Text),
            withRule(number("SERVICEDATE", kU16,
                            [](HwDatablock& b, const Value& v) {
                                as<S>(b).setServiceDate(static_cast<unsigned short>(v.number));
                            }),
                     Rule::Date),
            withRule(number("OPHOURS", kHours,
                            [](HwDatablock& b, const Value& v) {
                                as<S>(b).setOpTimeHours(static_cast<unsigned>(v.number));
                            }),
                     Rule::Hours),
            number("REPAIRNUMBER", kU16,
                   [](HwDatablock& b, const Value& v) {
                       as<S>(b).setRepairNumber(static_cast<unsigned short>(v.number));
                   }),
            number("SERVICECODE", kU16, [](HwDatablock& b, const Value& v) {
                as<S>(b).setServiceCode(static_cast<unsigned short>(v.number));
            })};
}

QVector<FieldDef> vcoFields() {
    using V = HwDatablockCwop6VcoIdent;
    return {number("JOBNR", kU32,
                   [](HwDatablock& b, const Value& v) {
                       as<V>(b).setJobNumber(static_cast<unsigned>(v.number));
                   }),
            number("SERNR", kU16,
                   [](HwDatablock& b, const Value& v) {
                       as<V>(b).setSerialNumber(static_cast<unsigned short>(v.number));
                   }),
            number("LOTNR", kU16,
                   [](HwDatablock& b, const Value& v) {
                       as<V>(b).setLotNumber(static_cast<unsigned short>(v.number));
                   }),
            number("TAZ", kU16,
                   [](HwDatablock& b, const Value& v) {
                       as<V>(b).setTaz(static_cast<unsigned short>(v.number));
                   }),
            number("OSC3SUB_H", kU16,
                   [](HwDatablock& b, const Value& v) {
                       as<V>(b).setOsc3Subh(static_cast<unsigned short>(v.number));
                   }),
            number("OSC3SUB_L", kU16,
                   [](HwDatablock& b, const Value& v) {
                       as<V>(b).setOsc3Subl(static_cast<unsigned short>(v.number));
                   }),
            number("OSC2SUB_H", kU16,
                   [](HwDatablock& b, const Value& v) {
                       as<V>(b).setOsc2Subh(static_cast<unsigned short>(v.number));
                   }),
            number("OSC2SUB_L", kU16,
                   [](HwDatablock& b, const Value& v) {
                       as<V>(b).setOsc2Subl(static_cast<unsigned short>(v.number));
                   }),
            number("OSC1SUB_H", kU16, [](HwDatablock& b, const Value& v) {
                as<V>(b).setOsc1Subh(static_cast<unsigned short>(v.number));
            })};
}

// Ten service codes, all printed under the same label.
QVector<FieldDef> modificationFields() {
    using M = HwDatablockModification;
    static const Setter setters[10] = {
#define EPROM_CODE_SETTER(i)                                                                       \
    [](HwDatablock& b, const Value& v) {                                                           \
        as<M>(b).setServiceCode(i, static_cast<unsigned short>(v.number));                         \
    }
        EPROM_CODE_SETTER(0), EPROM_CODE_SETTER(1), EPROM_CODE_SETTER(2), EPROM_CODE_SETTER(3),
        EPROM_CODE_SETTER(4), EPROM_CODE_SETTER(5), EPROM_CODE_SETTER(6), EPROM_CODE_SETTER(7),
        EPROM_CODE_SETTER(8), EPROM_CODE_SETTER(9)
#undef EPROM_CODE_SETTER
    };
    QVector<FieldDef> defs;
    for (int i = 0; i < 10; ++i) {
        FieldDef def = number("SERVICECODE", kU16, setters[i]);
        def.name = QStringLiteral("SERVICECODE%1").arg(i + 1);
        def.line = i;
        defs << def;
    }
    return defs;
}

// One read-only code per 32-bit word behind the header.
QVector<FieldDef> modification120Fields(const QByteArray& block) {
    QVector<FieldDef> defs;
    const int codes = (block.size() - 8) / 4;
    for (int i = 0; i < codes; ++i) {
        FieldDef def = readOnly("SERVICECODE", Rule::Number, kU32);
        def.name = QStringLiteral("SERVICECODE%1").arg(i + 1);
        def.line = i;
        defs << def;
    }
    return defs;
}

QVector<FieldDef> sattcFields() {
    using C = HwDatablockSAttCCounter;
    FieldDef first = number("COUNT_VALUE", kU32, [](HwDatablock& b, const Value& v) {
        as<C>(b).setCounterValue(static_cast<unsigned>(v.number), 0);
    });
    first.name = QStringLiteral("COUNT_VALUE1");
    first.column = 0;
    FieldDef second = number("COUNT_VALUE", kU32, [](HwDatablock& b, const Value& v) {
        as<C>(b).setCounterValue(static_cast<unsigned>(v.number), 1);
    });
    second.name = QStringLiteral("COUNT_VALUE2");
    second.column = 1;
    return {first, second};
}

Table tableFor(quint16 id, const QByteArray& block) {
    const BlockKindInfo kind = blockCatalogue::describe(id);
    const QLatin1String cls(kind.className);
    Table table;
    if (cls == QLatin1String("HwDatablockIdent"))
        table = {identFields(true, true, id == 10), &isA<HwDatablockIdent>, 44};
    else if (cls == QLatin1String("HwDatablockMiscIdent"))
        table = {identFields(false, false, false), &isA<HwDatablockMiscIdent>, 44};
    else if (cls == QLatin1String("HwDatablockCwop6VcoIdent"))
        table = {vcoFields(), &isA<HwDatablockCwop6VcoIdent>, 28};
    else if (cls == QLatin1String("HwDatablockMbrdSerialNumber"))
        table = {{number("SN", kU32,
                         [](HwDatablock& b, const Value& v) {
                             as<HwDatablockMbrdSerialNumber>(b).setSerialNumber(
                                 static_cast<unsigned>(v.number));
                         })},
                 &isA<HwDatablockMbrdSerialNumber>,
                 12};
    else if (cls == QLatin1String("HwDatablockMbrdModel"))
        table = {{withRule(number("MODEL", 31,
                                  [](HwDatablock& b, const Value& v) {
                                      as<HwDatablockMbrdModel>(b).setModel(
                                          QString::fromLatin1(v.text));
                                  }),
                           Rule::Text)},
                 &isA<HwDatablockMbrdModel>,
                 40};
    else if (cls == QLatin1String("HwDatablockServiceData"))
        table = {serviceFields(), &isA<HwDatablockServiceData>, 24};
    else if (cls == QLatin1String("HwDatablockStatistic"))
        table = {{number("OPHOURS", kU32,
                         [](HwDatablock& b, const Value& v) {
                             as<HwDatablockStatistic>(b).setOpHours(
                                 static_cast<unsigned>(v.number));
                         })},
                 &isA<HwDatablockStatistic>,
                 12};
    else if (cls == QLatin1String("HwDatablockModification") ||
             cls == QLatin1String("HwDatablockModification110"))
        table = {modificationFields(), &isA<HwDatablockModification>, 28};
    else if (cls == QLatin1String("HwDatablockModification120"))
        table = {modification120Fields(block), &isA<HwDatablockModification120>, 8};
    else if (cls == QLatin1String("HwDatablockSAttCCounter"))
        table = {sattcFields(), &isA<HwDatablockSAttCCounter>, 16};
    else if (cls == QLatin1String("HwDatablockSAtt3OWLDCounter"))
        table = {{number("COUNT_VALUE", kU32,
                         [](HwDatablock& b, const Value& v) {
                             as<HwDatablockSAtt3OWLDCounter>(b).setCounterValue(
                                 static_cast<unsigned>(v.number), 0);
                         })},
                 &isA<HwDatablockSAtt3OWLDCounter>,
                 12};
    else if (cls == QLatin1String("HwDatablockSAtt6OWLDCounter"))
        table = {{number("COUNT_VALUE", kU32,
                         [](HwDatablock& b, const Value& v) {
                             as<HwDatablockSAtt6OWLDCounter>(b).setCounterValue(
                                 static_cast<unsigned>(v.number), 0);
                         })},
                 &isA<HwDatablockSAtt6OWLDCounter>,
                 12};
    return table;
}

QString ruleText(const FieldDef& def) {
    switch (def.rule) {
    case Rule::Number:
        return QStringLiteral("a whole number from 0 to %1").arg(def.max);
    case Rule::Text:
        return QStringLiteral("at most %1 printable ASCII characters").arg(def.max);
    case Rule::Date:
        return QStringLiteral("a date YYYY-MM-DD from 1980-01-01 to 2107-12-31");
    case Rule::PartNumber:
        return QStringLiteral("NUMBER.SUB.VARIANT: a part number of at most 4294967295 written "
                              "as its number, a dot and its four-digit sub-number, then a dot "
                              "and the variant from 00 to 255");
    case Rule::TwoPart:
        return QStringLiteral("NN.NN: two parts, the second of two digits, from 00.00 to 655.35");
    case Rule::Hours:
        return QStringLiteral("operating hours from 0 to %1, as 00000/000000 or a plain number")
            .arg(kHours);
    }
    return QString();
}

bool digitsOnly(const QString& text) {
    if (text.isEmpty())
        return false;
    for (QChar c : text)
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return false;
    return true;
}

// A whole number of at most 20 digits; false when it is none or exceeds `max`.
bool wholeNumber(const QString& text, quint64 max, quint64& value, QString& why) {
    if (!digitsOnly(text)) {
        why = QStringLiteral("is not a whole number");
        return false;
    }
    bool ok = false;
    value = text.toULongLong(&ok, 10);
    if (!ok || value > max) {
        why = QStringLiteral("is out of range");
        return false;
    }
    return true;
}

// Parses `text` by the field's rule; false with the reason it does not fit.
bool parse(const FieldDef& def, const QString& text, Value& value, QString& why) {
    switch (def.rule) {
    case Rule::Number:
        return wholeNumber(text, def.max, value.number, why);
    case Rule::Text: {
        for (QChar c : text)
            if (c.unicode() < 0x20 || c.unicode() > 0x7E) {
                why = QStringLiteral("has a character that is not printable ASCII");
                return false;
            }
        if (static_cast<quint64>(text.size()) > def.max) {
            why = QStringLiteral("is too long (%1 characters)").arg(text.size());
            return false;
        }
        value.text = text.toLatin1();
        return true;
    }
    case Rule::Date: {
        static const QRegularExpression form(QStringLiteral("^(\\d{4})-(\\d{2})-(\\d{2})$"));
        const QRegularExpressionMatch m = form.match(text);
        const QDate date = m.hasMatch() ? QDate(m.captured(1).toInt(), m.captured(2).toInt(),
                                                m.captured(3).toInt())
                                        : QDate();
        if (!date.isValid()) {
            why = QStringLiteral("is not a date");
            return false;
        }
        if (date.year() < 1980 || date.year() > 1980 + 127) {
            why = QStringLiteral("is out of range");
            return false;
        }
        value.number =
            static_cast<quint64>(((date.year() - 1980) << 9) | (date.month() << 5) | date.day());
        return true;
    }
    case Rule::PartNumber: {
        static const QRegularExpression form(
            QStringLiteral("^(\\d{1,6})\\.(\\d{4})\\.(\\d{2,3})$"));
        const QRegularExpressionMatch m = form.match(text);
        if (!m.hasMatch()) {
            why = QStringLiteral("is not in the form NUMBER.SUB.VARIANT");
            return false;
        }
        value.number = m.captured(1).toULongLong() * 10000 + m.captured(2).toULongLong();
        value.second = m.captured(3).toULongLong();
        if (value.number > kU32 || value.second > kU8) {
            why = QStringLiteral("is out of range");
            return false;
        }
        return true;
    }
    case Rule::TwoPart: {
        static const QRegularExpression form(QStringLiteral("^(\\d{1,3})\\.(\\d{2})$"));
        const QRegularExpressionMatch m = form.match(text);
        if (!m.hasMatch()) {
            why = QStringLiteral("is not in the form NN.NN");
            return false;
        }
        value.number = m.captured(1).toULongLong() * 100 + m.captured(2).toULongLong();
        if (value.number > def.max) {
            why = QStringLiteral("is out of range");
            return false;
        }
        return true;
    }
    case Rule::Hours: {
        static const QRegularExpression form(QStringLiteral("^(\\d{5})/(\\d{6})$"));
        const QRegularExpressionMatch m = form.match(text);
        if (m.hasMatch())
            value.number = m.captured(1).toULongLong() * 1000000 + m.captured(2).toULongLong();
        else if (!wholeNumber(text, kU32, value.number, why)) {
            why = QStringLiteral("is not a number of hours");
            return false;
        }
        if (value.number > def.max) {
            why = QStringLiteral("is out of range");
            return false;
        }
        return true;
    }
    }
    return false;
}

QString printedText(HwDatablock& block) {
    std::ostringstream out;
    block.printToStream(out);
    // Byte for byte, as the import reads a section's lines: a name may hold any byte.
    const std::string text = out.str();
    return QString::fromLatin1(text.data(), static_cast<int>(text.size()));
}

// The value a field shows in `lines` (a section's lines); false when its line is missing.
bool valueIn(const QStringList& lines, const FieldDef& def, QString& value) {
    const QString start = def.label + QLatin1Char(':');
    int seen = 0;
    for (const QString& raw : lines) {
        if (!raw.startsWith(start))
            continue;
        if (seen++ != def.line)
            continue;
        QString rest = raw.mid(start.size());
        if (rest.endsWith(QLatin1Char('\r')))
            rest.chop(1);
        int lead = 0;
        while (lead < rest.size() && rest[lead] == QLatin1Char(' '))
            ++lead;
        rest = rest.mid(lead);
        if (def.column >= 0) {
            const QStringList parts =
                rest.split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
            if (def.column >= parts.size())
                return false;
            rest = parts[def.column];
        } else if (def.suffix > 0 && rest.endsWith(QString(def.suffix, QLatin1Char(' ')))) {
            rest.chop(def.suffix);
        }
        value = rest;
        return true;
    }
    return false;
}

// The block object of `block` with its field table; false when the block has no fields.
bool open(const QByteArray& block, std::unique_ptr<HwDatablock>& object, Table& table) {
    if (block.size() < 8)
        return false;
    const quint16 id = bytes::getLE<quint16>(block, 0);
    table = tableFor(id, block);
    if (table.defs.isEmpty())
        return false;
    object = blockCatalogue::makeBlock(id, block);
    return object && table.isClass(object.get());
}

// The bytes with the checksum word left out: what a setter decides.
QByteArray withoutChecksum(QByteArray block) {
    if (block.size() >= 6)
        block.remove(4, 2);
    return block;
}

int findDef(const Table& table, const QString& name) {
    for (int i = 0; i < table.defs.size(); ++i)
        if (table.defs[i].name.compare(name, Qt::CaseInsensitive) == 0)
            return i;
    return -1;
}

QString namesOf(const Table& table) {
    QStringList names;
    for (const FieldDef& def : table.defs)
        names << def.name;
    return names.join(QStringLiteral(", "));
}

} // namespace

namespace recordFields {

bool hasFields(quint16 id) {
    const BlockKindInfo kind = blockCatalogue::describe(id);
    const QLatin1String cls(kind.className);
    // Modification120 has fields only when it holds codes, which the image decides.
    return cls == QLatin1String("HwDatablockModification120") ||
           !tableFor(id, QByteArray()).defs.isEmpty();
}

QVector<RecordField> fields(const QByteArray& block) {
    QVector<RecordField> result;
    std::unique_ptr<HwDatablock> object;
    Table table;
    if (!open(block, object, table))
        return result;
    const QStringList lines = printedText(*object).split(QLatin1Char('\n'));
    for (const FieldDef& def : table.defs) {
        RecordField field;
        field.name = def.name;
        field.label = def.label;
        field.line = def.line;
        field.column = def.column;
        field.trailingBlanks = def.suffix;
        valueIn(lines, def, field.value);
        field.settable = def.set != nullptr;
        field.rule = field.settable ? ruleText(def)
                                    : QStringLiteral("read only: the block's class has no "
                                                     "setter for it");
        Value value;
        QString why;
        if (field.settable && parse(def, field.value, value, why)) {
            std::unique_ptr<HwDatablock> copy =
                blockCatalogue::makeBlock(bytes::getLE<quint16>(block, 0), block);
            def.set(*copy, value);
            field.readsBack = withoutChecksum(copy->getByteArrayData()) == withoutChecksum(block);
        }
        result << field;
    }
    return result;
}

Outcome setField(QByteArray& block, const QString& name, const QString& text) {
    std::unique_ptr<HwDatablock> object;
    Table table;
    if (!open(block, object, table))
        return Outcome::failure(
            ResultCode::NoFields,
            QStringLiteral("block %1 has no named fields").arg(bytes::getLE<quint16>(block, 0)));
    const int found = findDef(table, name);
    if (found < 0)
        return Outcome::failure(
            ResultCode::UnknownField,
            QStringLiteral("no field %1; the block has %2").arg(name, namesOf(table)));
    const FieldDef& def = table.defs[found];
    if (block.size() < table.recordSize)
        return Outcome::failure(
            ResultCode::Corrupt,
            QStringLiteral("%1 cannot be set: the block has %2 bytes, its record %3")
                .arg(def.name)
                .arg(block.size())
                .arg(table.recordSize));
    if (def.set == nullptr)
        return Outcome::failure(
            ResultCode::ReadOnly,
            QStringLiteral("%1 is read only: the block's class has no setter for it")
                .arg(def.name));
    Value value;
    QString why;
    if (!parse(def, text, value, why))
        return Outcome::failure(ResultCode::DoesNotFit,
                                QStringLiteral("%1: '%2' %3; the field takes %4")
                                    .arg(def.name, text, why, ruleText(def)));
    def.set(*object, value);
    block = object->getByteArrayData();
    return Outcome::success();
}

bool sectionValue(const QStringList& sectionLines, const RecordField& field, QString& value) {
    FieldDef def;
    def.label = field.label;
    def.line = field.line;
    def.column = field.column;
    def.suffix = field.trailingBlanks;
    return valueIn(sectionLines, def, value);
}

QString fieldNames(const QByteArray& block) {
    std::unique_ptr<HwDatablock> object;
    Table table;
    if (!open(block, object, table))
        return QString();
    return namesOf(table);
}

} // namespace recordFields
} // namespace Tupsim
