// Record fields, record edits, checksum repair and chain offsets of the image layer.
#include "support/Bytes.h"

#include <BlockCatalogue.h>
#include <EepromImage.h>
#include <ImageImport.h>
#include <ImageRepair.h>
#include <RecordEdit.h>
#include <RecordFields.h>
#include <gtest/gtest.h>

namespace Tupsim {
namespace {

using test::bytesOf;
using test::hex;
using test::sealChecksum;

// A zero-filled block of `size` bytes with a valid checksum.
QByteArray fresh(quint16 id, int size) {
    QByteArray block(size, '\0');
    block[0] = static_cast<char>(id & 0xFF);
    block[1] = static_cast<char>(id >> 8);
    block[2] = static_cast<char>(size & 0xFF);
    block[3] = static_cast<char>(size >> 8);
    sealChecksum(block);
    return block;
}

QByteArray sealed(QByteArray block) {
    sealChecksum(block);
    return block;
}

// A chain of the given blocks and the end block, filled up with erased bytes.
QByteArray chain(const QVector<QByteArray>& blocks, int size = 256) {
    QByteArray image;
    for (const QByteArray& block : blocks)
        image += block;
    image += bytesOf({0xFF, 0xFF, 0, 0});
    image += QByteArray(size - image.size(), '\xFF');
    return image;
}

struct SetCase {
    quint16 id;
    int size;
    const char* field;
    const char* value;
    int offset;          // of the bytes the field stores
    const char* stored;  // those bytes in hexadecimal
    const char* printed; // the value the block prints afterwards
};

class SetFieldTest : public ::testing::TestWithParam<SetCase> {};

TEST_P(SetFieldTest, StoresExactBytesAndAValidChecksum) {
    const SetCase& c = GetParam();
    QByteArray block = fresh(c.id, c.size);
    QString error;
    ASSERT_TRUE(recordFields::setField(block, QString::fromLatin1(c.field),
                                       QString::fromLatin1(c.value), error))
        << error.toStdString();
    const QByteArray expected = QByteArray::fromHex(QByteArray(c.stored));
    EXPECT_EQ(hex(block.mid(c.offset, expected.size())), hex(expected));
    EXPECT_EQ(hex(block), hex(sealed(block))) << "checksum refreshed";
    bool found = false;
    for (const RecordField& field : recordFields::fields(block))
        if (field.name.compare(QLatin1String(c.field), Qt::CaseInsensitive) == 0) {
            found = true;
            EXPECT_EQ(field.value.toStdString(), c.printed);
            EXPECT_TRUE(field.readsBack);
        }
    EXPECT_TRUE(found);
}

INSTANTIATE_TEST_SUITE_P(
    EveryKind, SetFieldTest,
    ::testing::Values(SetCase{2, 44, "EEPROMSIZE", "32768", 8, "00800000", "32768"},
                      SetCase{2, 44, "partnumber", "1234.5678.03", 12, "4e61bc0003",
                              "1234.5678.03"},
                      SetCase{2, 44, "HWCODE", "255", 17, "ff", "255"},
                      SetCase{2, 44, "PRODUCTINDEX", "03.01", 18, "2d01", "03.01"},
                      SetCase{2, 44, "SN", "4294967295", 20, "ffffffff", "4294967295"},
                      SetCase{2, 44, "ProductDate", "2021-06-15", 24, "cf52", "2021-06-15"},
                      SetCase{2, 44, "READCODE", "65535", 26, "ffff", "65535"},
                      SetCase{2, 44, "TESTINSTRUCTION", "655.35", 28, "ffff", "655.35"},
                      SetCase{2, 44, "NAME", "ABCDEFGHIJKLMN", 30, "4142434445464748494a4b4c4d4e",
                              "ABCDEFGHIJKLMN"},
                      SetCase{10, 44, "NAME", "X Y", 30, "5820590000", "X Y"},
                      SetCase{10502, 28, "JOBNR", "70000", 8, "70110100", "70000"},
                      SetCase{10502, 28, "OSC1SUB_H", "513", 26, "0102", "513"},
                      SetCase{12000, 12, "SN", "16909060", 8, "04030201", "16909060"},
                      SetCase{12001, 40, "MODEL", "SMX100", 8, "534d5831303000", "SMX100"},
                      SetCase{200, 24, "DEPARTMENT", "AB", 8, "414200000000", "AB"},
                      SetCase{200, 24, "SERVICEDATE", "1980-01-01", 14, "2100", "1980-01-01"},
                      SetCase{200, 24, "OPHOURS", "00000/262143", 16, "ffff0300", "00000/262143"},
                      SetCase{200, 24, "OPHOURS", "123456", 16, "40e20100", "00000/123456"},
                      SetCase{201, 24, "REPAIRNUMBER", "4711", 20, "6712", "4711"},
                      SetCase{209, 24, "SERVICECODE", "17", 22, "1100", "17"},
                      SetCase{300, 12, "OPHOURS", "4294967295", 8, "ffffffff", "4294967295"},
                      SetCase{100, 28, "SERVICECODE1", "17405", 8, "fd43", "17405"},
                      SetCase{110, 28, "servicecode10", "65535", 26, "ffff", "65535"},
                      SetCase{11300, 16, "COUNT_VALUE2", "9", 12, "09000000", "9"},
                      SetCase{11302, 16, "COUNT_VALUE1", "8", 8, "08000000", "8"},
                      SetCase{10604, 12, "COUNT_VALUE", "3", 8, "03000000", "3"},
                      SetCase{11204, 12, "COUNT_VALUE", "4", 8, "04000000", "4"}));

struct RefusalCase {
    quint16 id;
    int size;
    const char* field;
    const char* value;
    const char* error;
};

class RefusalTest : public ::testing::TestWithParam<RefusalCase> {};

TEST_P(RefusalTest, NamesTheFieldAndItsRuleAndChangesNothing) {
    const RefusalCase& c = GetParam();
    QByteArray block = fresh(c.id, c.size);
    const QByteArray before = block;
    QString error;
    EXPECT_FALSE(recordFields::setField(block, QString::fromLatin1(c.field),
                                        QString::fromUtf8(c.value), error));
    EXPECT_EQ(error.toUtf8().toStdString(), c.error);
    EXPECT_EQ(hex(block), hex(before));
}

INSTANTIATE_TEST_SUITE_P(
    BadValues, RefusalTest,
    ::testing::Values(
        RefusalCase{2, 44, "SERIAL", "1",
                    "no field SERIAL; the block has ALIGNMENT, EEPROMSIZE, PARTNUMBER, HWCODE, "
                    "PRODUCTINDEX, SN, PRODUCTDATE, READCODE, TESTINSTRUCTION, NAME"},
        RefusalCase{2, 44, "ALIGNMENT", "1",
                    "ALIGNMENT is read only: the block's class has no setter for it"},
        RefusalCase{2, 44, "SN", "4294967296",
                    "SN: '4294967296' is out of range; the field takes a whole number from 0 to "
                    "4294967295"},
        RefusalCase{2, 44, "SN", "-1",
                    "SN: '-1' is not a whole number; the field takes a whole number from 0 to "
                    "4294967295"},
        RefusalCase{2, 44, "HWCODE", "256",
                    "HWCODE: '256' is out of range; the field takes a whole number from 0 to 255"},
        RefusalCase{2, 44, "NAME", "ABCDEFGHIJKLMNO",
                    "NAME: 'ABCDEFGHIJKLMNO' is too long (15 characters); the field takes at "
                    "most 14 printable ASCII characters"},
        RefusalCase{2, 44, "PRODUCTDATE", "2021-02-29",
                    "PRODUCTDATE: '2021-02-29' is not a date; the field takes a date YYYY-MM-DD "
                    "from 1980-01-01 to 2107-12-31"},
        RefusalCase{2, 44, "PRODUCTDATE", "1979-12-31",
                    "PRODUCTDATE: '1979-12-31' is out of range; the field takes a date "
                    "YYYY-MM-DD from 1980-01-01 to 2107-12-31"},
        RefusalCase{2, 44, "PRODUCTINDEX", "655.36",
                    "PRODUCTINDEX: '655.36' is out of range; the field takes NN.NN: two parts, "
                    "the second of two digits, from 00.00 to 655.35"},
        RefusalCase{2, 44, "PARTNUMBER", "429497.0000.00",
                    "PARTNUMBER: '429497.0000.00' is out of range; the field takes "
                    "NUMBER.SUB.VARIANT: a part number of at most 4294967295 written as its "
                    "number, a dot and its four-digit sub-number, then a dot and the variant "
                    "from 00 to 255"},
        RefusalCase{200, 24, "DEPARTMENT", "ABCDEFG",
                    "DEPARTMENT: 'ABCDEFG' is too long (7 characters); the field takes at most 6 "
                    "printable ASCII characters"},
        RefusalCase{200, 24, "OPHOURS", "262144",
                    "OPHOURS: '262144' is out of range; the field takes operating hours from 0 "
                    "to 262143, as 00000/000000 or a plain number"},
        RefusalCase{12001, 40, "MODEL", "caf\u00e9",
                    "MODEL: 'caf\u00e9' has a character that is not printable ASCII; the field "
                    "takes at most 31 printable ASCII characters"},
        RefusalCase{100, 28, "SERVICECODE11", "1",
                    "no field SERVICECODE11; the block has SERVICECODE1, SERVICECODE2, "
                    "SERVICECODE3, SERVICECODE4, SERVICECODE5, SERVICECODE6, SERVICECODE7, "
                    "SERVICECODE8, SERVICECODE9, SERVICECODE10"},
        RefusalCase{2, 20, "SN", "1", "SN cannot be set: the block has 20 bytes, its record 44"},
        RefusalCase{15730, 56, "SN", "1", "block 15730 has no named fields"}));

TEST(RecordFields, ANameWithBytesThePrintingCannotShowDoesNotReadBack) {
    QByteArray block = fresh(2, 44);
    block.replace(30, 4, QByteArray("AB\0Z", 4));
    block = sealed(block);
    for (const RecordField& field : recordFields::fields(block))
        if (field.name == QLatin1String("NAME")) {
            EXPECT_EQ(field.value.toStdString(), "AB");
            EXPECT_FALSE(field.readsBack);
        } else {
            // A product date of 0 prints as 1980-00-00, which is no date.
            EXPECT_EQ(field.readsBack, field.settable && field.name != QLatin1String("PRODUCTDATE"))
                << field.name.toStdString();
        }
}

TEST(RecordEdit, AppliesAllOrNothingAndReportsEveryChange) {
    const QByteArray ident = fresh(2, 44);
    EepromImage image = EepromImage::fromBytes(chain({ident, fresh(300, 12)}));
    const QByteArray before = image.bytes();

    RecordEdit bad = planRecordEdit(image, 2, 1, {{"SN", "5"}, {"HWCODE", "999"}});
    EXPECT_FALSE(bad.ok);
    QString error;
    EXPECT_FALSE(applyRecordEdit(image, bad, error));
    EXPECT_EQ(image.bytes(), before);

    const RecordEdit twice = planRecordEdit(image, 2, 1, {{"SN", "5"}, {"sn", "6"}});
    EXPECT_EQ(twice.error.toStdString(), "SN is assigned twice");
    EXPECT_EQ(planRecordEdit(image, 2, 2, {{"SN", "5"}}).error.toStdString(),
              "block 2 number 2 asked for, the image has 1");
    EXPECT_EQ(planRecordEdit(image, 7, 1, {{"SN", "5"}}).error.toStdString(), "no block with id 7");

    const RecordEdit edit = planRecordEdit(image, 2, 1, {{"sn", "5"}, {"NAME", "X"}});
    ASSERT_TRUE(edit.ok) << edit.error.toStdString();
    ASSERT_EQ(edit.changes.size(), 2);
    EXPECT_EQ(edit.changes[0].field.toStdString(), "SN");
    EXPECT_EQ(edit.changes[0].before.toStdString(), "0");
    EXPECT_EQ(edit.changes[0].after.toStdString(), "5");
    EXPECT_EQ(edit.checksumBefore,
              static_cast<unsigned char>(ident[4]) | (static_cast<unsigned char>(ident[5]) << 8));
    ASSERT_TRUE(applyRecordEdit(image, edit, error)) << error.toStdString();
    EXPECT_TRUE(image.ok());
    EXPECT_EQ(hex(image.blockBytes(0).mid(20, 4)), "05 00 00 00");
    EXPECT_EQ(image.bytes().mid(44), before.mid(44)) << "only the ident block changes";
}

TEST(ImageRepair, RestoresTheChecksumAndCrcAndRefusesWhatTheWalkCannotDelimit) {
    // A self-describing block: header, CRC-32 at byte 8, then payload.
    QByteArray described = fresh(20010, 16);
    described[12] = 0x42;
    // Its CRC-32 is still 0: the first repair makes the image whole.
    EepromImage whole = EepromImage::fromBytes(chain({fresh(300, 12), described}));
    RepairPlan plan = planRepair(whole);
    QString error;
    ASSERT_TRUE(applyRepair(whole, plan, error));
    ASSERT_TRUE(whole.ok());
    EXPECT_TRUE(planRepair(whole).nothingToDo());
    const QByteArray original = whole.bytes();

    QByteArray corrupted = original;
    corrupted[4] = static_cast<char>(corrupted[4] ^ 0x55);        // statistics checksum
    corrupted[12 + 8] = static_cast<char>(corrupted[12 + 8] ^ 1); // CRC-32 of block 20010
    EepromImage broken = EepromImage::fromBytes(corrupted);
    plan = planRepair(broken);
    ASSERT_EQ(plan.repairs.size(), 2);
    EXPECT_TRUE(plan.repairs[0].checksum);
    EXPECT_FALSE(plan.repairs[0].crc);
    EXPECT_TRUE(plan.repairs[1].crc);
    EXPECT_TRUE(plan.refused.isEmpty());
    ASSERT_TRUE(applyRepair(broken, plan, error));
    EXPECT_EQ(hex(broken.bytes()), hex(original));

    EXPECT_EQ(planRepair(EepromImage::fromBytes(corrupted), 20010).repairs.size(), 1);

    QByteArray cut = corrupted.left(12 + 8);
    cut[12 + 2] = 100; // block 20010 claims 100 bytes
    const RepairPlan refused = planRepair(EepromImage::fromBytes(cut));
    ASSERT_EQ(refused.refused.size(), 1);
    EXPECT_EQ(refused.refused[0].offset, 12);
    EXPECT_EQ(planRepair(EepromImage::fromBytes(QByteArray(64, '\xFF'))).refused.size(), 1);
}

TEST(ChainOffset, BlocksCountFromTheFileAndBytesBeforeTheChainStay) {
    const QByteArray prefix = QByteArray::fromHex("0102030405060708090a");
    const QByteArray body = chain({fresh(2, 44)}, 64);
    EepromImage image = EepromImage::fromBytes(prefix + body, prefix.size());
    ASSERT_TRUE(image.ok());
    EXPECT_EQ(image.block(0).offset, 10);
    EXPECT_EQ(image.endOffset(), 54);

    const RecordEdit edit = planRecordEdit(image, 2, 1, {{"SN", "1"}});
    QString error;
    ASSERT_TRUE(applyRecordEdit(image, edit, error)) << error.toStdString();
    EXPECT_EQ(image.bytes().left(10), prefix);
    EXPECT_EQ(image.bytes().size(), prefix.size() + body.size());
    EXPECT_EQ(image.bytes().mid(54), body.mid(44));

    const EepromImage past = EepromImage::fromBytes(prefix + body, 74);
    ASSERT_TRUE(past.chainBroken());
    EXPECT_EQ(past.chainProblems()[0].text.toStdString(),
              "the chain start 0x0000004a lies at or past the end of the image (74 bytes)");
    EXPECT_TRUE(EepromImage::fromBytes(prefix + body, 3).chainBroken());
}

TEST(RecordImport, ReadsEditedFieldsAndKeepsWhatThePrintingCannotShow) {
    QByteArray ident = fresh(2, 44);
    ident.replace(30, 4, QByteArray("AB\0Z", 4));
    ident = sealed(ident);
    const EepromImage image = EepromImage::fromBytes(chain({ident, fresh(200, 24)}));

    const QByteArray untouched = "# Das sind die Kopfdaten\n"
                                 "ID:              IDENT_2\n"
                                 "SN:              0\n"
                                 "NAME:            AB\n\n";
    ImportPlan plan = planImport(image, untouched);
    ASSERT_TRUE(plan.ok) << plan.error.toStdString();
    ASSERT_EQ(plan.blocks.size(), 1);
    EXPECT_EQ(plan.blocks[0].outcome, ImportedBlock::Unchanged);
    EXPECT_TRUE(plan.skipped.isEmpty());

    QByteArray edited = untouched;
    edited.replace("SN:              0", "SN:              77");
    plan = planImport(image, edited);
    ASSERT_EQ(plan.blocks.size(), 1);
    ASSERT_EQ(plan.blocks[0].outcome, ImportedBlock::Changed);
    EXPECT_EQ(hex(plan.blocks[0].after.mid(20, 4)), "4d 00 00 00");
    EXPECT_EQ(hex(plan.blocks[0].after.mid(30, 4)), hex(QByteArray("AB\0Z", 4)))
        << "the unedited name keeps its stored bytes";

    edited.replace("NAME:            AB", "NAME:            CD");
    plan = planImport(image, edited);
    EXPECT_EQ(hex(plan.blocks[0].after.mid(30, 4)), hex(QByteArray("CD\0\0", 4)));

    const QByteArray bad = "ID:              SERVICE_200\nSERVICEDATE:     2024-13-01\n";
    plan = planImport(image, bad);
    EXPECT_FALSE(plan.ok);
    EXPECT_EQ(plan.error.toStdString(),
              "section SERVICE_200 (line 1), SERVICEDATE: '2024-13-01' is not a date; the field "
              "takes a date YYYY-MM-DD from 1980-01-01 to 2107-12-31");
}

} // namespace
} // namespace Tupsim
