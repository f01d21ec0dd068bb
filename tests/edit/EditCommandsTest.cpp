// epromtool set, fix, --offset and --version end to end through the built binary.
#include "support/TestImages.h"
#include "tool/ToolHarness.h"

#include <gtest/gtest.h>

using namespace Tupsim::test;

namespace {

class EditCommands : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_FALSE(sample.isEmpty());
        tool.write("s.eeprom", sample);
    }
    ToolHarness tool;
    const QByteArray sample = example("sample.eeprom");
};

TEST_F(EditCommands, SetChangesOnlyThatBlockAndVerifiesClean) {
    const struct {
        const char* id;
        const char* assignment;
        const char* line; // the report's line of the field
    } cases[] = {
        {"2", "SN=123456", "  SN        102345 -> 123456"},
        {"200", "OPHOURS=99", "  OPHOURS   00000/012345 -> 00000/000099"},
        {"300", "ophours=15873", "  OPHOURS   15872 -> 15873"},
        {"100", "SERVICECODE3=1", "  SERVICECODE3  32832 -> 1"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.assignment);
        tool.write("s.eeprom", sample);
        const ToolResult set = tool.run({"set", "s.eeprom", "--id", c.id, c.assignment});
        ASSERT_EQ(set.exitCode, 0) << set.err.toStdString();
        EXPECT_TRUE(set.outLines().contains(c.line)) << set.out.toStdString();
        EXPECT_EQ(set.outLines().last(), "wrote s.eeprom, previous kept as s.eeprom.bak");
        EXPECT_EQ(tool.run({"verify", "s.eeprom"}).exitCode, 0);
        EXPECT_EQ(tool.run({"diff", "s.eeprom.bak", "s.eeprom"}).outLines().value(1),
                  "1 difference: 1 changed, 0 removed, 0 added");
    }
}

TEST_F(EditCommands, SetRefusalsGiveOneLineTheExitCodeAndWriteNothing) {
    const struct {
        QStringList arguments;
        int code; // 64: the message ends with " (see 'epromtool set --help')"
        const char* error;
    } cases[] = {
        {{"--id", "2"}, 64, "set: no FIELD=VALUE given"},
        {{"--id", "2", "SN"}, 64, "set: 'SN' is not an assignment FIELD=VALUE"},
        {{"--id", "2", "=5"}, 64, "set: '=5' names no field"},
        {{"--id", "2", "SN==5"}, 64, "set: 'SN==5' has '==': write FIELD=VALUE"},
        {{"SN=5"}, 64, "set: missing --id N"},
        {{"--id", "2", "--index", "0", "SN=5"}, 64, "set: '0' is not a block number from 1 on"},
        {{"--id", "7", "SN=5"}, 2, "s.eeprom: no block with id 7; nothing written"},
        {{"--id", "15730", "SN=5"},
         2,
         "s.eeprom: block 15730 (RFBO_ALC_FREQ) is a calibration table block without named "
         "fields; nothing written"},
        {{"--id", "2", "--index", "2", "SN=5"},
         2,
         "s.eeprom: block 2 number 2 asked for, the image has 1; nothing written"},
        {{"--id", "2", "SN=1", "HWCODE=256"},
         2,
         "s.eeprom: block 2: HWCODE: '256' is out of range; the field takes a whole number from "
         "0 to 255; nothing written"},
        {{"--id", "2", "--offset", "40000", "SN=1"},
         2,
         "s.eeprom: 0x9c40: the chain start 0x00009c40 lies at or past the end of the image "
         "(32768 bytes)\nepromtool: s.eeprom: the chain is broken, nothing set"},
    };
    for (const auto& c : cases) {
        const ToolResult result = tool.run(QStringList{"set", "s.eeprom"} + c.arguments);
        EXPECT_EQ(result.exitCode, c.code) << c.error;
        EXPECT_EQ(result.err.toStdString(),
                  std::string("epromtool: ") + c.error +
                      (c.code == 64 ? " (see 'epromtool set --help')\n" : "\n"));
        EXPECT_EQ(result.out, "");
    }
    const ToolResult dry = tool.run({"set", "s.eeprom", "--id", "2", "SN=7", "--dry-run"});
    EXPECT_EQ(dry.exitCode, 0);
    EXPECT_EQ(dry.out, "block 2 at 0x0000 IDENT_2:\n"
                       "  SN        102345 -> 7\n"
                       "  checksum  0xd013 -> 0x5fd6\n"
                       "dry run: s.eeprom left as it is\n");
    EXPECT_EQ(tool.read("s.eeprom"), sample);
    EXPECT_EQ(tool.entries(), QStringList("s.eeprom"));
}

TEST_F(EditCommands, FixRestoresTheOriginalBytesExactly) {
    QByteArray corrupted = sample;
    corrupted[4] = static_cast<char>(corrupted[4] ^ 0xFF);                // ident checksum
    corrupted[0x2cd8 + 8] = static_cast<char>(corrupted[0x2cd8 + 8] ^ 1); // CRC-32 of 20010
    tool.write("c.eeprom", corrupted);
    EXPECT_EQ(tool.run({"fix", "c.eeprom", "--dry-run"}).exitCode, 0);
    EXPECT_EQ(tool.read("c.eeprom"), corrupted);
    // The CRC-32 is still bad.
    EXPECT_EQ(tool.run({"fix", "c.eeprom", "--id", "2", "-o", "i.eeprom"}).exitCode, 1);
    EXPECT_EQ(tool.read("c.eeprom"), corrupted);

    const ToolResult fix = tool.run({"fix", "c.eeprom"});
    EXPECT_EQ(fix.exitCode, 0) << fix.err.toStdString();
    EXPECT_EQ(fix.out, "block 2 at 0x0000 IDENT_2: checksum 0xd0ec -> 0xd013\n"
                       "block 20010 at 0x2cd8 USER_20010: CRC-32 0x8e558d34 -> 0x8e558d35, "
                       "checksum 0x58e8 stays\n"
                       "2 blocks repaired\n"
                       "wrote c.eeprom, previous kept as c.eeprom.bak\n");
    EXPECT_EQ(tool.read("c.eeprom"), sample);
    EXPECT_EQ(tool.read("c.eeprom.bak"), corrupted);

    QFile::remove(tool.path("c.eeprom.bak"));
    const ToolResult again = tool.run({"fix", "c.eeprom"});
    EXPECT_EQ(again.exitCode, 0);
    EXPECT_EQ(again.out, "nothing to fix: c.eeprom left as it is\n");

    // An erased image is left alone.
    const QByteArray erased(64, '\xFF');
    tool.write("erased.eeprom", erased);
    const ToolResult onErased = tool.run({"fix", "erased.eeprom"});
    EXPECT_EQ(onErased.exitCode, 2);
    EXPECT_EQ(onErased.err, "epromtool: erased.eeprom: 0x0000: end block reads FF FF FF FF "
                            "instead of FF FF 00 00 (erased memory?), left alone\n");
    EXPECT_EQ(tool.read("erased.eeprom"), erased);
    EXPECT_EQ(tool.entries(), QStringList({"c.eeprom", "erased.eeprom", "i.eeprom", "s.eeprom"}));
}

TEST_F(EditCommands, OffsetKeepsEveryByteOutsideTheChain) {
    const QByteArray before = QByteArray("0123456789").repeated(500);
    const QByteArray after(300, '\x5A');
    tool.write("flash.bin", before + sample + after);

    const ToolResult list = tool.run({"list", "flash.bin", "--offset", "5000"});
    EXPECT_EQ(list.exitCode, 0);
    EXPECT_TRUE(list.out.contains("0x1388      2  IDENT_2")) << list.out.toStdString();
    const ToolResult set =
        tool.run({"set", "flash.bin", "--offset", "0x1388", "--id", "2", "SN=1", "--no-backup"});
    ASSERT_EQ(set.exitCode, 0);
    const QByteArray edited = tool.read("flash.bin");
    EXPECT_EQ(edited.left(5000), before);
    EXPECT_EQ(edited.mid(5000 + 44), sample.mid(44) + after);
    EXPECT_NE(edited.mid(5000, 44), sample.left(44));

    EXPECT_EQ(tool.run({"verify", "flash.bin", "--offset", "x"}).exitCode, 64);
    const ToolResult version = tool.run({"--version"});
    EXPECT_EQ(version.exitCode, 0);
    EXPECT_EQ(version.out, "epromtool " EPROM_PROJECT_VERSION "\n");
}

} // namespace
