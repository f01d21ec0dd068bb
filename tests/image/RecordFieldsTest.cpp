// Record schemas and fields, record edits and checksum repair of the image layer (a chain inside a
// larger file is held by the tool's and the module's tests).
#include "support/TestImages.h"

#include <BlockCatalogue.h>
#include <EepromImage.h>
#include <ImageImport.h>
#include <ImageRepair.h>
#include <RecordEdit.h>
#include <RecordFields.h>
#include <gtest/gtest.h>

#include <QHash>
#include <QRegularExpression>
#include <set>
#include <sstream>

namespace Tupsim {
namespace {

using namespace test;

// A zero-filled block of `size` bytes with a valid checksum.
QByteArray fresh(quint16 id, int size) {
    return sealed(freshImage(id, static_cast<unsigned short>(size)));
}

// A chain of the given blocks and the end block, filled up with erased bytes.
QByteArray chain(const QVector<QByteArray>& blocks, int size = 256) {
    QByteArray image;
    for (const QByteArray& block : blocks)
        image += block;
    image += endBlock();
    image += QByteArray(size - image.size(), '\xFF');
    return image;
}

// A record block of 64 bytes (more than any record) filled with `fill(offset)` from the
// alignment on; its checksum word is left as it comes.
template <typename Fill> QByteArray recordBlock(quint16 id, Fill fill) {
    QByteArray block = freshImage(id, 64);
    for (int i = 6; i < block.size(); ++i)
        block[i] = static_cast<char>(fill(i));
    return block;
}

// What the block's own class prints.
QStringList printout(quint16 id, const QByteArray& block) {
    std::ostringstream out;
    blockCatalogue::makeBlock(id, block)->printToStream(out);
    return QString::fromLatin1(out.str().c_str()).split('\n');
}

// Every "LABEL:" line the class prints shows the fields with that label and line: their values
// in their columns, or the whole rest behind the padding with the field's trailing blanks; and
// every field has its line.
void expectPrintoutShows(quint16 id, const QByteArray& block, const QVector<RecordField>& fields) {
    QHash<QString, int> seen; // lines per label so far
    int shown = 0;
    for (const QString& line : printout(id, block)) {
        const int colon = line.indexOf(':');
        if (line.isEmpty() || line.startsWith('#') || line.startsWith("ID:") || colon < 0)
            continue;
        const QString label = line.left(colon);
        const int at = seen[label]++;
        const QString rest = line.mid(colon + 1);
        QStringList columns;
        int here = 0;
        for (const RecordField& field : fields) {
            if (field.label != label || field.line != at)
                continue;
            ++here;
            if (field.column >= 0) {
                columns << field.value;
                continue;
            }
            const QString value = field.value + QString(field.trailingBlanks, ' ');
            EXPECT_TRUE(rest.endsWith(value) && rest.size() > value.size() &&
                        rest.left(rest.size() - value.size()).trimmed().isEmpty())
                << line.toStdString() << " shows no " << value.toStdString();
        }
        EXPECT_GT(here, 0) << line.toStdString() << " shows no field";
        shown += here;
        if (!columns.isEmpty()) {
            EXPECT_EQ(rest.split(QRegularExpression("\\s+"), Qt::SkipEmptyParts), columns);
        }
    }
    EXPECT_EQ(shown, fields.size());
}

// The schema of every record class agrees with what the class prints, on zero bytes and on
// printable ones; every settable field of the printable block reads back, and set on the zero
// block to the value it shows there it shows that value and leaves every other field as it was.
// Record kinds whose classes name no fields are listed.
TEST(RecordSchemas, MatchTheirClassesPrintoutsAndSetters) {
    const std::set<BlockKind> recordKinds = {BlockKind::Identification, BlockKind::Service,
                                             BlockKind::Statistic, BlockKind::Modification,
                                             BlockKind::Counter};
    std::vector<quint16> fieldless;
    int checked = 0;
    for (quint16 id : blockCatalogue::knownIds()) {
        if (!recordKinds.count(blockCatalogue::kindOf(id)))
            continue;
        if (!recordFields::hasFields(id)) {
            fieldless.push_back(id);
            continue;
        }
        SCOPED_TRACE(id);
        const QByteArray zero = sealed(recordBlock(id, [](int) { return 0; }));
        // A stale checksum: whether a field reads back leaves the checksum word aside.
        const QByteArray filled = recordBlock(id, [](int i) { return 0x21 + (i * 7) % 0x5E; });
        const QVector<RecordField> before = recordFields::fields(zero);
        const QVector<RecordField> wanted = recordFields::fields(filled);
        ASSERT_FALSE(wanted.isEmpty());
        expectPrintoutShows(id, zero, before);
        expectPrintoutShows(id, filled, wanted);
        for (const RecordField& field : wanted) {
            if (!field.settable)
                continue;
            if (!field.readsBack) { // all 32 bytes of a model name: its setter writes 31
                EXPECT_EQ(field.name.toStdString(), "MODEL");
                continue;
            }
            QByteArray block = zero;
            const Outcome set = recordFields::setField(block, field.name, field.value);
            ASSERT_TRUE(set.ok()) << set.message.toStdString();
            EXPECT_EQ(hex(block), hex(sealed(block)));
            const QVector<RecordField> after = recordFields::fields(block);
            for (int i = 0; i < after.size(); ++i) {
                EXPECT_EQ(after[i].value,
                          after[i].name == field.name ? field.value : before[i].value)
                    << field.name.toStdString() << " set, " << after[i].name.toStdString();
            }
            ++checked;
        }
    }
    EXPECT_GT(checked, 0);
    // Common statistic data, MAC address and time monitoring: byte areas without named fields.
    EXPECT_EQ(fieldless, (std::vector<quint16>{11310, 11311, 11312, 11313, 12004, 12008}));
}

// What each codec reads back from text and stores, and what it refuses with the field's rule.
TEST(RecordFields, CodecsStoreExactBytesOrRefuseWithTheFieldsRule) {
    const struct {
        quint16 id;
        int size;
        const char* field;
        const char* value;
        int offset;
        const char* stored; // nullptr: refused with `text` as its message and `code`
        const char* text;
        ResultCode code;
    } cases[] = {
        {2, 44, "partnumber", "1234.5678.03", 12, "4e61bc0003", "1234.5678.03", ResultCode::Ok},
        {2, 44, "ProductDate", "2021-06-15", 24, "cf52", "2021-06-15", ResultCode::Ok},
        {2, 44, "TESTINSTRUCTION", "655.35", 28, "ffff", "655.35", ResultCode::Ok},
        {10, 44, "NAME", "X Y", 30, "5820590000", "X Y", ResultCode::Ok},
        {12001, 40, "MODEL", "SMX100", 8, "534d5831303000", "SMX100", ResultCode::Ok},
        {200, 24, "DEPARTMENT", "AB", 8, "414200000000", "AB", ResultCode::Ok},
        {200, 24, "SERVICEDATE", "1980-01-01", 14, "2100", "1980-01-01", ResultCode::Ok},
        {200, 24, "OPHOURS", "123456", 16, "40e20100", "00000/123456", ResultCode::Ok},
        {2, 44, "SERIAL", "1", -1, nullptr,
         "no field SERIAL; the block has ALIGNMENT, EEPROMSIZE, PARTNUMBER, HWCODE, "
         "PRODUCTINDEX, SN, PRODUCTDATE, READCODE, TESTINSTRUCTION, NAME",
         ResultCode::UnknownField},
        {2, 44, "ALIGNMENT", "1", -1, nullptr,
         "ALIGNMENT is read only: the block's class has no setter for it", ResultCode::ReadOnly},
        {2, 44, "SN", "4294967296", -1, nullptr,
         "SN: '4294967296' is out of range; the field takes a whole number from 0 to "
         "4294967295",
         ResultCode::DoesNotFit},
        {2, 44, "SN", "-1", -1, nullptr,
         "SN: '-1' is not a whole number; the field takes a whole number from 0 to "
         "4294967295",
         ResultCode::DoesNotFit},
        {2, 44, "SN", "", -1, nullptr,
         "SN: '' is not a whole number; the field takes a whole number from 0 to 4294967295",
         ResultCode::DoesNotFit},
        {2, 44, "NAME", "ABCDEFGHIJKLMNO", -1, nullptr,
         "NAME: 'ABCDEFGHIJKLMNO' is too long (15 characters); the field takes at "
         "most 14 printable ASCII characters",
         ResultCode::DoesNotFit},
        {2, 44, "PRODUCTDATE", "2021-02-29", -1, nullptr,
         "PRODUCTDATE: '2021-02-29' is not a date; the field takes a date YYYY-MM-DD "
         "from 1980-01-01 to 2107-12-31",
         ResultCode::DoesNotFit},
        {2, 44, "PRODUCTDATE", "1979-12-31", -1, nullptr,
         "PRODUCTDATE: '1979-12-31' is out of range; the field takes a date "
         "YYYY-MM-DD from 1980-01-01 to 2107-12-31",
         ResultCode::DoesNotFit},
        {2, 44, "PRODUCTINDEX", "655.36", -1, nullptr,
         "PRODUCTINDEX: '655.36' is out of range; the field takes NN.NN: two parts, "
         "the second of two digits, from 00.00 to 655.35",
         ResultCode::DoesNotFit},
        {2, 44, "PARTNUMBER", "429497.0000.00", -1, nullptr,
         "PARTNUMBER: '429497.0000.00' is out of range; the field takes "
         "NUMBER.SUB.VARIANT: a part number of at most 4294967295 written as its "
         "number, a dot and its four-digit sub-number, then a dot and the variant "
         "from 00 to 255",
         ResultCode::DoesNotFit},
        {200, 24, "OPHOURS", "262144", -1, nullptr,
         "OPHOURS: '262144' is out of range; the field takes operating hours from 0 "
         "to 262143, as 00000/000000 or a plain number",
         ResultCode::DoesNotFit},
        {12001, 40, "MODEL", "caf\u00e9", -1, nullptr,
         "MODEL: 'caf\u00e9' has a character that is not printable ASCII; the field "
         "takes at most 31 printable ASCII characters",
         ResultCode::DoesNotFit},
        {2, 20, "SN", "1", -1, nullptr, "SN cannot be set: the block has 20 bytes, its record 44",
         ResultCode::Corrupt},
        {15730, 56, "SN", "1", -1, nullptr, "block 15730 has no named fields",
         ResultCode::NoFields},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.field) + "=" + c.value);
        QByteArray block = fresh(c.id, c.size);
        const Outcome set =
            recordFields::setField(block, QString::fromLatin1(c.field), QString::fromUtf8(c.value));
        if (c.stored == nullptr) {
            EXPECT_EQ(set.code, c.code);
            EXPECT_EQ(set.message.toUtf8().toStdString(), c.text);
            EXPECT_EQ(hex(block), hex(fresh(c.id, c.size)));
            continue;
        }
        ASSERT_TRUE(set.ok()) << set.message.toStdString();
        const QByteArray expected = QByteArray::fromHex(QByteArray(c.stored));
        EXPECT_EQ(hex(block.mid(c.offset, expected.size())), hex(expected));
        QStringList shown; // the field's value, once, and reading back
        for (const RecordField& field : recordFields::fields(block))
            if (field.name.compare(QLatin1String(c.field), Qt::CaseInsensitive) == 0)
                shown << field.value + (field.readsBack ? "" : " (does not read back)");
        EXPECT_EQ(shown, QStringList(QString::fromUtf8(c.text)));
    }
}

TEST(RecordEdit, ReportsEveryChangeAndTouchesOnlyItsBlock) {
    const QByteArray ident = fresh(2, 44);
    EepromImage image = EepromImage::fromBytes(chain({ident, fresh(300, 12)}));
    const QByteArray before = image.bytes();
    EXPECT_EQ(planRecordEdit(image, 2, 1, {{"SN", "5"}, {"sn", "6"}}).outcome.message,
              "SN is assigned twice");
    const RecordEdit edit = planRecordEdit(image, 2, 1, {{"sn", "5"}, {"NAME", "X"}});
    ASSERT_TRUE(edit.ok()) << edit.outcome.message.toStdString();
    ASSERT_EQ(edit.changes.size(), 2);
    EXPECT_EQ(QStringList({edit.changes[0].field, edit.changes[0].before, edit.changes[0].after}),
              QStringList({"SN", "0", "5"}));
    ASSERT_TRUE(applyPlan(image, edit).ok());
    QByteArray expected = ident;
    expected.replace(20, 4, bytesOf({5, 0, 0, 0})).replace(30, 1, "X");
    EXPECT_EQ(hex(image.bytes()), hex(sealed(expected) + before.mid(44)));
}

// The whole repair and one restricted to an id are held by the tool's fix tests.
TEST(ImageRepair, RefusesWhatTheWalkCannotDelimit) {
    const QByteArray statistics = fresh(300, 12);
    QByteArray cut = statistics + fresh(20010, 16).left(8);
    cut[4] = static_cast<char>(cut[4] ^ 0x55); // statistics checksum
    cut[12 + 2] = 100;                         // block 20010 claims 100 bytes
    EepromImage cutImage = EepromImage::fromBytes(cut);
    const RepairPlan refused = planRepair(cutImage);
    ASSERT_EQ(refused.notes.size(), 1);
    EXPECT_EQ(std::make_pair(refused.notes[0].offset, refused.notes[0].code),
              std::make_pair(12, ResultCode::ChainBroken));
    // Before the break the repair is written in place; the broken block stays as it was.
    ASSERT_TRUE(applyPlan(cutImage, refused).ok());
    EXPECT_EQ(hex(cutImage.bytes()), hex(statistics + cut.mid(12)));
}

TEST(RecordImport, ReadsEditedFieldsAndKeepsWhatThePrintingCannotShow) {
    const QByteArray ident = sealed(fresh(2, 44).replace(30, 4, QByteArray("AB\0Z", 4)));
    for (const RecordField& field : recordFields::fields(ident))
        if (field.name == QLatin1String("NAME")) {
            EXPECT_EQ(field.value.toStdString(), "AB");
            EXPECT_FALSE(field.readsBack);
        } else { // a product date of 0 prints as 1980-00-00, which is no date
            EXPECT_EQ(field.readsBack, field.settable && field.name != QLatin1String("PRODUCTDATE"))
                << field.name.toStdString();
        }
    const EepromImage image =
        EepromImage::fromBytes(chain({ident, fresh(200, 24), fresh(11300, 16)}));

    const QByteArray untouched = "# Das sind die Kopfdaten\n"
                                 "ID:              IDENT_2\n"
                                 "SN:              0\n"
                                 "NAME:            AB\n\n";
    ImportPlan plan = planImport(image, untouched);
    ASSERT_TRUE(plan.ok() && plan.blocks.size() == 1) << plan.outcome.message.toStdString();
    EXPECT_EQ(plan.blocks[0].outcome, ImportedBlock::Unchanged);
    EXPECT_TRUE(plan.skipped.isEmpty());

    // The unedited name keeps its stored bytes; an edited one is written whole.
    QByteArray edited = QByteArray(untouched).replace("SN:              0", "SN:              77");
    QByteArray expected = QByteArray(ident).replace(20, 1, "\x4d");
    EXPECT_EQ(hex(planImport(image, edited).blocks.value(0).after), hex(sealed(expected)));
    edited.replace("NAME:            AB", "NAME:            CD");
    expected.replace(30, 4, QByteArray("CD\0\0", 4));
    EXPECT_EQ(hex(planImport(image, edited).blocks.value(0).after), hex(sealed(expected)));

    // Both counters of one line, each read from its column.
    QByteArray counters = fresh(11300, 16);
    counters[12] = 9;
    EXPECT_EQ(hex(planImport(image, "ID:               SATTC_OVLDCOUNTER\n"
                                    "COUNT_VALUE:    0\t\t9\n")
                      .blocks.value(0)
                      .after),
              hex(sealed(counters)));

    const QByteArray bad = "ID:              SERVICE_200\nSERVICEDATE:     2024-13-01\n";
    plan = planImport(image, bad);
    EXPECT_EQ(plan.outcome.code, ResultCode::DoesNotFit);
    EXPECT_EQ(plan.outcome.message.toStdString(),
              "section SERVICE_200 (line 1), SERVICEDATE: '2024-13-01' is not a date; the field "
              "takes a date YYYY-MM-DD from 1980-01-01 to 2107-12-31");
}

} // namespace
} // namespace Tupsim
