// Debug lines, error printer, service log, error registration and class names.
#include "support/Recorders.h"

#include <HwDatablock.h>
#include <HwDebug.h>
#include <HwError.h>

#include <QDir>
#include <QFile>
#include <QObject>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Tupsim;
using namespace Tupsim::test;

TEST(Diagnostics, InitHandsOverTheDescriptionTables) {
    ServiceRecorders services;
    HwDebug::init();
    EXPECT_EQ(services.debug.initCalls, 1);
    ASSERT_EQ(services.debug.levelTexts.size(), 6);
    EXPECT_EQ(services.debug.levelTexts[0], "++ CRITICAL ++: *** ");
    EXPECT_EQ(services.debug.levelTexts[2], "       Warning:     ");
    ASSERT_EQ(services.debug.classTexts.size(), 13);
    EXPECT_EQ(services.debug.classTexts[8], "          Eeprom, ");
    EXPECT_EQ(services.debug.classTexts[12], "        Diagnose, ");
    HwDebug::exit();
    EXPECT_EQ(services.debug.exitCalls, 1);
}

TEST(Diagnostics, CheckThenLineUsesTheLastClassAndLevel) {
    ServiceRecorders services;
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
