// epromtool on broken chains, unreadable paths and wrong command lines: one clear line, the
// right exit code, and nothing read or written out of bounds.
#include "TestImages.h"
#include "ToolHarness.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

using namespace Tupsim::test;

namespace {

struct BrokenCase {
    const char* what;
    QByteArray image;
    const char* problem; // the line verify and list print for it
    const char* summary; // verify's last line
};

} // namespace

TEST(ToolBadInput, BrokenChainsNameTheOffsetAndExitWithTwo) {
    const QByteArray head = identBlock(); // 16 bytes, so the damage starts at 0x0010
    const BrokenCase cases[] = {
        {"empty file", QByteArray(), "0x0000: the image is empty",
         "FAILED: chain broken at 0x0000 after 0 blocks, 1 problem"},
        {"one byte", bytesOf({0x02}), "0x0000: block header cut short: 1 byte of 8 left",
         "FAILED: chain broken at 0x0000 after 0 blocks, 1 problem"},
        {"all 0x00", QByteArray(32, '\0'),
         "0x0000: block 0 has size 0, less than its 8-byte header",
         "FAILED: chain broken at 0x0000 after 0 blocks, 1 problem"},
        {"all 0xFF", QByteArray(32, '\xFF'),
         "0x0000: end block reads FF FF FF FF instead of FF FF 00 00 (erased memory?)",
         "FAILED: chain broken at 0x0000 after 0 blocks, 1 problem"},
        {"size field below the header",
         head + bytesOf({0x10, 0x27, 0x07, 0x00, 0, 0, 0, 0}) + endBlock(), // size 7
         "0x0010: block 10000 has size 7, less than its 8-byte header",
         "FAILED: chain broken at 0x0010 after 1 block, 1 problem"},
        {"block past the end", head + bytesOf({0x10, 0x27, 0x40, 0x00, 0, 0, 0, 0}) + endBlock(),
         "0x0010: block 10000 of 64 bytes runs past the end of the image (12 bytes left)",
         "FAILED: chain broken at 0x0010 after 1 block, 1 problem"},
        {"no end block", head + calibBlock(),
         "0x001c: no end block: the chain runs to the end of the image",
         "FAILED: chain broken at 0x001c after 2 blocks, 1 problem"},
        {"end block cut short", head + bytesOf({0xFF, 0xFF, 0x00}),
         "0x0010: end block cut short: 3 bytes of 4 left",
         "FAILED: chain broken at 0x0010 after 1 block, 1 problem"},
        {"header cut short", head + bytesOf({0x10, 0x27, 0x0C, 0x00, 0x00}),
         "0x0010: block header cut short: 5 bytes of 8 left",
         "FAILED: chain broken at 0x0010 after 1 block, 1 problem"},
        {"end data not zero", head + bytesOf({0xFF, 0xFF, 0x01, 0x00}),
         "0x0010: end block reads FF FF 01 00 instead of FF FF 00 00",
         "FAILED: chain broken at 0x0010 after 1 block, 1 problem"},
    };
    ToolHarness tool;
    for (const BrokenCase& c : cases) {
        SCOPED_TRACE(c.what);
        tool.write("broken.bin", c.image);
        const ToolResult verify = tool.run({"verify", "broken.bin"});
        EXPECT_EQ(verify.exitCode, 2);
        EXPECT_EQ(verify.outLines(), QStringList({c.problem, c.summary}));

        const ToolResult list = tool.run({"list", "broken.bin"});
        EXPECT_EQ(list.exitCode, 2);
        EXPECT_TRUE(list.outLines().contains(c.problem));

        // Nothing is exported or imported from a broken chain, and nothing is written.
        const ToolResult exported = tool.run({"export", "broken.bin", "-o", "cal.txt"});
        EXPECT_EQ(exported.exitCode, 2);
        EXPECT_FALSE(tool.exists("cal.txt"));
        tool.write("cal.txt", "ID:  X\n");
        const ToolResult imported = tool.run({"import", "broken.bin", "cal.txt"});
        EXPECT_EQ(imported.exitCode, 2);
        EXPECT_TRUE(imported.err.contains("broken.bin: the chain is broken, nothing imported"));
        EXPECT_EQ(tool.read("broken.bin"), c.image);
        EXPECT_FALSE(tool.exists("broken.bin.bak"));
        QFile::remove(tool.path("cal.txt"));
    }
}

TEST(ToolBadInput, UnreadablePathsGiveOneLineWithPathAndReason) {
    ToolHarness tool;
    QDir(tool.path(".")).mkdir("folder");
    tool.write("good.bin", goodImage());

    const ToolResult missing = tool.run({"list", "nope.bin"});
    EXPECT_EQ(missing.exitCode, 2);
    EXPECT_EQ(missing.err, "epromtool: cannot read nope.bin: No such file or directory\n");
    EXPECT_EQ(missing.out, "");

    const ToolResult folder = tool.run({"verify", "folder"});
    EXPECT_EQ(folder.exitCode, 2);
    EXPECT_EQ(folder.err, "epromtool: cannot read folder: Is a directory\n");

    const ToolResult second = tool.run({"diff", "good.bin", "nope.bin"});
    EXPECT_EQ(second.exitCode, 2);
    EXPECT_EQ(second.err, "epromtool: cannot read nope.bin: No such file or directory\n");

    const ToolResult calibration = tool.run({"import", "good.bin", "folder"});
    EXPECT_EQ(calibration.exitCode, 2);
    EXPECT_EQ(calibration.err, "epromtool: cannot read folder: Is a directory\n");
    EXPECT_FALSE(tool.exists("good.bin.bak"));
}

TEST(ToolBadInput, UsageErrorsExitWith64AndPrintNothingElse) {
    ToolHarness tool;
    tool.write("good.bin", goodImage());
    const struct {
        QStringList arguments;
        const char* message;
    } cases[] = {
        {{}, "epromtool: no command given (see 'epromtool --help')"},
        {{"frob"}, "epromtool: unknown command 'frob' (see 'epromtool --help')"},
        {{"list"}, "epromtool: list: missing IMAGE (see 'epromtool list --help')"},
        {{"list", "a", "b"},
         "epromtool: list: unexpected argument 'b' (see 'epromtool list --help')"},
        {{"import", "good.bin"},
         "epromtool: import: missing CALFILE (see 'epromtool import --help')"},
        {{"show", "good.bin"}, "epromtool: show: missing --id N (see 'epromtool show --help')"},
        {{"show", "good.bin", "--id", "65536"},
         "epromtool: show: '65536' is not a block id (see 'epromtool show --help')"},
        {{"export", "good.bin", "--id", "0xZZ"},
         "epromtool: export: '0xZZ' is not a block id (see 'epromtool export --help')"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.arguments.join(' ').toStdString());
        const ToolResult result = tool.run(c.arguments);
        EXPECT_EQ(result.exitCode, 64);
        EXPECT_EQ(result.err, QString::fromLatin1(c.message) + "\n");
        EXPECT_EQ(result.out, "");
    }
    const ToolResult help = tool.run({"--help"});
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_TRUE(help.out.contains("  64  usage error"));
    EXPECT_TRUE(
        help.out.contains("  import   read the blocks back from an ASCII calibration file"));
    EXPECT_EQ(tool.run({"verify", "--help"}).exitCode, 0);
}
