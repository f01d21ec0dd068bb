// Which blocks a calibration file replaces, and the line reported for each block looked up.
#include "FakeCatalogue.h"
#include "TestImages.h"

#include <CalibrationImport.h>
#include <ImageReport.h>

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Tupsim::test;
using namespace epromtool;

namespace {

QByteArray smallBlock(int idLow, int last) {
    return sealed(bytesOf({idLow, 0x27, // id 0x27xx
                           0x0A, 0x00,  // size 10
                           0x00, 0x00,  // checksum
                           0x00, 0x00,  // alignment
                           0x00, last}));
}

QString checksumOf(const QByteArray& block) {
    const unsigned value =
        static_cast<unsigned char>(block[4]) | (static_cast<unsigned char>(block[5]) << 8);
    return QStringLiteral("0x%1").arg(value, 4, 16, QLatin1Char('0'));
}

} // namespace

TEST(CalibrationImport, ReplacesOnlyBlocksThatReadTheirSectionAndChanged) {
    const QByteArray changes = smallBlock(0x10, 0x01);    // 10000: its last byte becomes 99
    const QByteArray unreadable = smallBlock(0x12, 0x01); // 10002: the reader fails
    const QByteArray noAscii = smallBlock(0x13, 0x01);    // 10003: reads no ASCII form
    const QByteArray absent = smallBlock(0x14, 0x01);     // 10004: section not in the file
    const QByteArray same = smallBlock(0x15, 99);         // 10005: reads back as it is
    QTemporaryDir dir;
    QFile file(dir.filePath("image.bin"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(changes + unreadable + noAscii + absent + same + endBlock());
    file.close();
    FakeCatalogue catalogue;
    ImageReport report;
    ASSERT_TRUE(report.load(dir.filePath("image.bin"), catalogue));

    CalibrationImport import;
    QString error;
    ASSERT_TRUE(import.read(report, catalogue, "99\nID:  FAKE\n", error));
    QByteArray expected = changes;
    expected[9] = 99;
    sealChecksum(expected);
    EXPECT_EQ(import.outcome(),
              QStringList({QStringLiteral("block 10000 at 0x0000 FAKE: 1 byte changed, checksum "
                                          "%1 -> %2")
                               .arg(checksumOf(changes), checksumOf(expected)),
                           "block 10002 at 0x000a FAKE: could not be read, left as it was",
                           "block 10005 at 0x0028 FAKE: unchanged"}));
    ASSERT_EQ(import.replacements().keys(), QList<int>({0}));
    EXPECT_EQ(import.replacements().value(0), expected);

    // Without any FAKE section nothing is looked up.
    ASSERT_TRUE(import.read(report, catalogue, "99\nID:  OTHER\n", error));
    EXPECT_EQ(import.lookedUp(), 0);
    EXPECT_TRUE(import.replacements().isEmpty());
}
