// Block record: header accessors on short images, setters, data transfers, dumps; diagnostics:
// debug lines, error printer, service log, error registration and class names.
#include "support/Blocks.h"

#include <HwDatablock.h>
#include <HwDebug.h>
#include <HwError.h>

#include <QFile>
#include <QObject>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>
#include <sstream>

using namespace Tupsim;
using namespace Tupsim::test;

TEST(HwDatablock, FreshHeaderAndSettersThatKeepTheChecksumValid) {
    ServiceRecorders services;
    HwDatablock block(true);
    EXPECT_EQ(hex(block.getByteArrayData()), "00 00 08 00 00 00 00 00");
    EXPECT_EQ(block.getBlockSize(), 8);
    EXPECT_TRUE(block.getStopConversionOnError());
    EXPECT_EQ(block.getDataFormatTyp(), HwDataFormatReference);
    EXPECT_EQ(block.getDatablockClassTyp(), HwDatablockClassNone);
    block.setBlockId(10000);
    EXPECT_EQ(hex(block.getByteArrayData()), "10 27 08 00 e8 d8 00 00");
    block.setBlockSize(0x0C0A);
    EXPECT_EQ(hex(block.getByteArrayData()), "10 27 0a 0c e6 cc 00 00");
    block.setAlignment(4);
    EXPECT_EQ(block.getAlignment(), 4);
    EXPECT_TRUE(block.verifyChecksum());
    block.setChecksum(0x1111);
    EXPECT_EQ(hex(block.getByteArrayData()), "10 27 0a 0c 11 11 04 00");
    EXPECT_FALSE(block.verifyChecksum());

    load(block, bytesOf({0xFF, 0xFF, 0x40, 0x00})); // the end id reports size four
    EXPECT_EQ(block.getBlockSize(), 4);
    EXPECT_EQ(block.getMagicIdentifierEventCount(), 0x452D0004u);
}

TEST(HwDatablock, ShortImagesReadAsZeroAndSettersDoNothing) {
    ServiceRecorders services;
    HwDatablock block(false);
    // id 0x0201, size 0x0403, checksum 0x0605, alignment 0x0807, cut to each length
    const QByteArray full = bytesOf({0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08});
    const std::function<void()> setters[] = {
        [&] { block.setBlockId(0x1234); }, [&] { block.setBlockSize(99); },
        [&] { block.setChecksum(7); }, [&] { block.setAlignment(3); }};
    for (int n = 0; n < 8; ++n) {
        load(block, full.left(n));
        EXPECT_EQ(block.getId(), n >= 2 ? 0x0201u : 0u) << n;
        EXPECT_EQ(block.getBlockSize(), n >= 4 ? 0x0403 : 0) << n;
        EXPECT_EQ(block.getChecksum(), n >= 6 ? 0x0605 : 0) << n;
        EXPECT_EQ(block.getAlignment(), 0) << n;
        EXPECT_EQ(block.getChecksum32(), 0u) << n;
        setters[n / 2](); // the setter of the first field that does not fit
        EXPECT_EQ(hex(block.getByteArrayData()), hex(full.left(n))) << n;
    }
}

TEST(HwDatablock, DataTransfers) {
    ServiceRecorders services;
    HwDatablock block(false);
    EXPECT_FALSE(block.setData(static_cast<const unsigned char*>(nullptr), 4));
    EXPECT_TRUE(block.setDataWithoutChecksumCheck(static_cast<const unsigned char*>(nullptr), 4));
    EXPECT_FALSE(block.setData(static_cast<HwDatablock*>(nullptr)));
    EXPECT_FALSE(block.setDataWithoutChecksumCheck(static_cast<HwDatablock*>(nullptr)));
    EXPECT_EQ(hex(block.getByteArrayData()), "00 00 08 00 00 00 00 00");

    // A bad image is kept even though the check fails.
    QByteArray bad = bytesOf({0x02, 0x00, 0x08, 0x00, 0x00, 0x00, 0x00, 0x00});
    EXPECT_FALSE(block.setData(bad));
    EXPECT_EQ(block.getByteArrayData(), bad);

    // setData(other) reports the other block's check and takes its format.
    HwDatablock other(false);
    other.setBlockId(7);
    other.setDataFormatTyp(static_cast<HwEDataFormatTyp>(5));
    EXPECT_TRUE(block.setData(&other));
    EXPECT_EQ(block.getDataFormatTyp(), 5);
    EXPECT_EQ(block.getByteArrayData(), other.getByteArrayData());

    HwDatablock source(false);
    source.setBlockId(3);
    HwDatablock target(false);
    EXPECT_FALSE(target.setHwDatablockFirmwareConform(&source));
    EXPECT_EQ(target.getByteArrayData(), source.getByteArrayData());
    EXPECT_FALSE(target.setHwDatablockFirmwareConform(nullptr));

    HwDatablock copy(block);
    EXPECT_EQ(copy.getByteArrayData(), block.getByteArrayData());
    copy.replaceDataInList(&source);
    EXPECT_EQ(copy.getByteArrayData(), source.getByteArrayData());
    EXPECT_EQ(copy.getDataFormatTyp(), 5);
}

TEST(HwDatablock, PrintToStreamWritesSixtyOneThenSixtyBytesPerLine) {
    HwDatablock block(false);
    load(block, QByteArray(121, 'a'));
    std::ostringstream out;
    block.printToStream(out);
    EXPECT_EQ(out.str(), "\n" + std::string(61, 'a') + "\n" + std::string(60, 'a') + "\n");
    out << 255; // the stream's number format is restored
    EXPECT_EQ(out.str().substr(out.str().size() - 3), "255");

    HwDatablock empty(false);
    empty.resizeData(0);
    std::ostringstream emptyOut;
    empty.printToStream(emptyOut);
    EXPECT_EQ(emptyOut.str(), "\n\n");
}

TEST(HwDatablock, HexDumpPromotesBytesAsSignedChars) {
    char bytes[17] = {0x01, static_cast<char>(0x80)};
    testing::internal::CaptureStdout();
    HwDatablock::printHexDump(bytes, 17);
    const std::string out = testing::internal::GetCapturedStdout();
    EXPECT_EQ(out, "01 ffffff80 00 00 00 00 00 00 00 00 00 00 00 00 00 00 \n00 \n");
}

TEST(Diagnostics, InitTablesAndLinesAfterACheck) {
    ServiceRecorders services;
    HwDebug::init();
    EXPECT_EQ(services.debug.initCalls, 1);
    ASSERT_EQ(services.debug.levelTexts.size(), 6);
    EXPECT_EQ(services.debug.levelTexts[2], "       Warning:     ");
    ASSERT_EQ(services.debug.classTexts.size(), 13);
    EXPECT_EQ(services.debug.classTexts[8], "          Eeprom, ");
    HwDebug::exit();
    EXPECT_EQ(services.debug.exitCalls, 1);

    // A check then a line: the line takes the last class and level.
    HwDatablock block(false);
    EXPECT_TRUE(block.chkdbg(8, 2));
    block.dbgout(QStringLiteral("text"));
    ASSERT_EQ(services.debug.lines.size(), 1u);
    EXPECT_EQ(services.debug.lines[0].module, 2);
    EXPECT_EQ(services.debug.lines[0].cls, 8);
    EXPECT_EQ(services.debug.lines[0].level, 2);
    EXPECT_EQ(services.debug.lines[0].text, "text");
    block.dbgout(4, QStringLiteral("other"));
    EXPECT_EQ(services.debug.lines[1].level, 4);

    // a disabled class suppresses the line but still becomes the last class
    services.debug.mask = 0;
    HwDebug::println(3, 1, QStringLiteral("hidden"));
    EXPECT_EQ(services.debug.lines.size(), 2u);
    EXPECT_EQ(HwDebug::getLastClass(), 3);
    EXPECT_EQ(HwDebug::getLastLevel(), 1);
    EXPECT_FALSE(block.chkdbg(8));
    EXPECT_EQ(HwDebug::getLastLevel(), 5); // the object's own level
}

TEST(Diagnostics, ErrorPrinterWritesPrefixLogAndHistory) {
    ServiceRecorders services;
    services.system.log = std::tmpfile();
    ASSERT_NE(services.system.log, nullptr);
    testing::internal::CaptureStderr();
    printHwError("Alignment of Block %d is wrong!\n", 42);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "\033[1;31mError:\033[0;0m   Alignment of Block 42 is wrong!\n");
    std::rewind(services.system.log);
    char buffer[64] = {};
    ASSERT_NE(std::fgets(buffer, sizeof buffer, services.system.log), nullptr);
    EXPECT_STREQ(buffer, "Alignment of Block 42 is wrong!\n");
    std::fclose(services.system.log);
    services.system.log = nullptr;
    EXPECT_EQ(services.debug.history, QStringList{"Alignment of Block 42 is wrong!\n"});
}

TEST(Diagnostics, ServiceLogAppendsDatedLines) {
    ServiceRecorders services;
    QTemporaryDir dir;
    services.system.rwPath = dir.path();
    HwDebug::srvExtFileOutput("x");
    HwDebug::srvExtFileOutput("second");
    QFile file(dir.path() + "/SrvExt.log");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString text = QString::fromLocal8Bit(file.readAll());
    const QRegularExpression pattern(
        QStringLiteral("^\\d{4}-\\d{2}-\\d{2}; \\d{2}:\\d{2} -- x\r\n\\d{4}-\\d{2}-\\d{2}; "
                       "\\d{2}:\\d{2} -- second\r\n$"));
    EXPECT_TRUE(pattern.match(text).hasMatch()) << text.toStdString();

    services.system.rwPath = dir.path() + "/missing/dir"; // cannot open: the line is lost quietly
    HwDebug::srvExtFileOutput("lost");
}

TEST(Diagnostics, ErrorsAreRegisteredOnce) {
    ServiceRecorders services;
    HwDatablock::registerErrors();
    HwDatablock::registerErrors();
    EXPECT_EQ(services.errors.registerCalls, 1);
    ASSERT_EQ(services.errors.registered.size(), 3u);
    EXPECT_EQ(services.errors.registered[0].code, 1040000);
    EXPECT_EQ(services.errors.registered[0].number1, 2);
    EXPECT_EQ(services.errors.registered[0].number2, 80);
    EXPECT_EQ(services.errors.registered[1].code, 1040001);
    EXPECT_EQ(services.errors.registered[1].number2, 202);
    EXPECT_STREQ(services.errors.registered[1].text,
                 "Check of new EEPROM data failed, download to Eeprom is denied");
    EXPECT_EQ(services.errors.registered[2].code, 1040002);
    EXPECT_STREQ(services.errors.registered[2].text, "WriteToEepromFailed");
}

namespace {
class NamedBlock : public QObject, public HwDatablock {
public:
    NamedBlock() : HwDatablock(false) { setObjectName(QStringLiteral("Named")); }
};
} // namespace

TEST(Diagnostics, ClassNames) {
    HwDatablock plain(false);
    EXPECT_EQ(plain.getClassName(QStringLiteral("A")), "A<no QObject class>");
    NamedBlock named;
    EXPECT_EQ(named.getClassName(QStringLiteral("A")), "ANamed");
}
