// epromtool export and import: what is written, pass-through, dry run, backups, write failures.
#include "TestImages.h"
#include "ToolHarness.h"

#include <BlockCatalogue.h>
#include <QDir>
#include <gtest/gtest.h>
#include <sstream>

using namespace Tupsim::test;

namespace {

// What the catalogue prints for the given blocks, one after the other.
QString printed(const QList<QByteArray>& blocks) {
    auto catalogue = epromtool::makeBlockCatalogue();
    std::ostringstream out;
    for (const QByteArray& block : blocks)
        catalogue->print(block, out);
    return QString::fromStdString(out.str());
}

} // namespace

TEST(ToolExport, WritesEveryChosenBlockThroughTheCatalogue) {
    ToolHarness tool;
    tool.write("good.bin", goodImage());
    const QString all = printed({identBlock(), calibBlock(), selfDescribingBlock(), endBlock()});

    const ToolResult out = tool.run({"export", "good.bin"});
    EXPECT_EQ(out.exitCode, 0);
    EXPECT_EQ(out.out, all);

    const ToolResult file = tool.run({"export", "good.bin", "-o", "cal.txt"});
    EXPECT_EQ(file.exitCode, 0);
    EXPECT_EQ(file.out, "");
    EXPECT_EQ(QString::fromUtf8(tool.read("cal.txt")), all);

    const ToolResult some = tool.run({"export", "good.bin", "--id", "20001", "--id", "0x2710"});
    EXPECT_EQ(some.exitCode, 0);
    EXPECT_EQ(some.out, printed({calibBlock(), selfDescribingBlock()})); // chain order

    const ToolResult missing =
        tool.run({"export", "good.bin", "--id", "2", "--id", "9", "-o", "x.txt"});
    EXPECT_EQ(missing.exitCode, 2);
    EXPECT_EQ(missing.err, "epromtool: good.bin: no block with id 9\n");
    EXPECT_FALSE(tool.exists("x.txt"));

    tool.write("blocker", "a file, not a folder");
    const ToolResult unwritable = tool.run({"export", "good.bin", "-o", "blocker/cal.txt"});
    EXPECT_EQ(unwritable.exitCode, 3);
    EXPECT_TRUE(unwritable.err.startsWith("epromtool: cannot write blocker/cal.txt: "));
}

TEST(ToolImport, PassesEveryByteThroughAndKeepsABackup) {
    ToolHarness tool;
    // Free space that is not erased must survive as well.
    const QByteArray image = goodImage() + bytesOf({0x12, 0x34, 0x00, 0x56});
    tool.write("image.bin", image);
    ASSERT_EQ(tool.run({"export", "image.bin", "-o", "cal.txt"}).exitCode, 0);

    const ToolResult dry =
        tool.run({"import", "image.bin", "cal.txt", "--dry-run", "-o", "new.bin"});
    EXPECT_EQ(dry.exitCode, 0);
    EXPECT_EQ(dry.outLines().last(), "dry run: new.bin left as it is");
    EXPECT_FALSE(tool.exists("new.bin"));
    EXPECT_FALSE(tool.exists("new.bin.bak"));

    const ToolResult copy = tool.run({"import", "image.bin", "cal.txt", "-o", "new.bin"});
    EXPECT_EQ(copy.exitCode, 0);
    EXPECT_EQ(copy.outLines().last(), "wrote new.bin");
    EXPECT_EQ(tool.read("new.bin"), image);
    EXPECT_FALSE(tool.exists("new.bin.bak")); // nothing was there to keep

    const ToolResult inPlace = tool.run({"import", "image.bin", "cal.txt"});
    EXPECT_EQ(inPlace.exitCode, 0);
    EXPECT_EQ(inPlace.outLines().last(), "wrote image.bin, previous kept as image.bin.bak");
    EXPECT_EQ(tool.read("image.bin"), image);
    EXPECT_EQ(tool.read("image.bin.bak"), image);

    // The backup holds what the file held before, also when that was something else.
    tool.write("new.bin", "older content");
    ASSERT_EQ(tool.run({"import", "image.bin", "cal.txt", "-o", "new.bin"}).exitCode, 0);
    EXPECT_EQ(tool.read("new.bin.bak"), "older content");
    EXPECT_EQ(tool.read("new.bin"), image);

    QFile::remove(tool.path("image.bin.bak"));
    const ToolResult noBackup = tool.run({"import", "image.bin", "cal.txt", "--no-backup"});
    EXPECT_EQ(noBackup.exitCode, 0);
    EXPECT_EQ(noBackup.outLines().last(), "wrote image.bin");
    EXPECT_FALSE(tool.exists("image.bin.bak"));
    EXPECT_EQ(tool.read("image.bin"), image);
}

TEST(ToolImport, FailedWritesLeaveTheOriginalUntouched) {
    ToolHarness tool;
    const QByteArray image = goodImage();
    tool.write("image.bin", image);
    tool.write("cal.txt", "");
    tool.write("blocker", "a file, not a folder");

    const ToolResult elsewhere =
        tool.run({"import", "image.bin", "cal.txt", "-o", "blocker/new.bin"});
    EXPECT_EQ(elsewhere.exitCode, 3);
    EXPECT_TRUE(elsewhere.err.startsWith("epromtool: cannot write blocker/new.bin: "));
    EXPECT_TRUE(elsewhere.err.endsWith("; blocker/new.bin left as it is\n"));

    // A folder where the backup belongs stops the write before the image is touched.
    QDir(tool.path(".")).mkdir("image.bin.bak");
    const ToolResult noRoomForBackup = tool.run({"import", "image.bin", "cal.txt"});
    EXPECT_EQ(noRoomForBackup.exitCode, 3);
    EXPECT_TRUE(noRoomForBackup.err.startsWith("epromtool: cannot write image.bin.bak: "));
    EXPECT_EQ(tool.read("image.bin"), image);

    QDir(tool.path(".")).mkdir("folder");
    const ToolResult folder = tool.run({"import", "image.bin", "cal.txt", "-o", "folder"});
    EXPECT_EQ(folder.exitCode, 3);
    EXPECT_EQ(folder.err, "epromtool: cannot write folder: Is a directory; folder left as it is\n");

    const QStringList left = QDir(tool.path(".")).entryList(QDir::Files);
    EXPECT_EQ(left, QStringList({"blocker", "cal.txt", "image.bin"})); // no stray temporaries
}
