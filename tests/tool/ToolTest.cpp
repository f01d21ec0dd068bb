// epromtool end to end: report text and exit codes, what the writing commands leave on disk, and
// that a broken chain or a malformed file never gets anything written.
#include "ToolHarness.h"
#include "support/TestImages.h"

#include <EepromImage.h>
#include <ImageExport.h>
#include <ImageImport.h>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

using namespace Tupsim;
using namespace Tupsim::test;

TEST(Tool, ListingsMatchTheirGoldensAndJsonHasEveryBlockField) {
    ToolHarness tool;
    tool.write("sample.eeprom", example("sample.eeprom"));
    tool.write("good.bin", goodImage());
    const char* const cases[][3] = {{"list", "sample.eeprom", "sample_list.txt"},
                                    {"verify", "sample.eeprom", "sample_verify.txt"},
                                    {"list", "good.bin", "list_good.txt"},
                                    {"verify", "good.bin", "verify_good.txt"}};
    for (const auto& c : cases) { // command, image, golden
        SCOPED_TRACE(c[2]);
        const ToolResult result = tool.run({c[0], c[1]});
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.out, ToolHarness::golden(c[2], result.out));
        EXPECT_EQ(result.err, "");
    }
    const ToolResult list = tool.run({"list", "--json", "good.bin"});
    ASSERT_EQ(list.exitCode, 0);
    const auto block = [](const QByteArray& bytes, int offset, const char* className,
                          const char* kind, const char* textId, const QString& crc = "null") {
        return QStringLiteral(
                   R"({"alignment":0,"checksum":{"computed":%1,"ok":true,"stored":%1},)"
                   R"("className":"%2","crc32":%3,"end":false,"id":%4,"kind":"%5","name":"%8",)"
                   R"("offset":%6,"overCapacity":null,"size":%7,"textId":"%8"})")
            .arg(QString::number(word(bytes, 4)), className, crc, QString::number(word(bytes, 0)),
                 kind, QString::number(offset), QString::number(bytes.size()), textId);
    };
    const QString crc = QStringLiteral(R"({"computed":%1,"eventCounter":false,"ok":true,)"
                                       R"("stored":%1})")
                            .arg(crcField(selfDescribingBlock()));
    EXPECT_EQ(
        QJsonDocument::fromJson(list.out.toUtf8()).toJson(QJsonDocument::Compact),
        QStringLiteral(R"({"blocks":[%1,%2,%3,{"alignment":0,"checksum":null,)"
                       R"("className":"HwDatablockEnd","crc32":null,"end":true,"id":65535,)"
                       R"("kind":"end","name":"END","offset":48,"overCapacity":null,)"
                       R"("size":4,"textId":"END"}],"endOffset":48,)"
                       R"("exitCode":0,"free":12,"image":"good.bin","imageSize":64,"ok":true,)"
                       R"("problems":[],"used":52})")
            .arg(block(identBlock(), 0, "HwDatablockIdent", "identification", "IDENT_2"),
                 block(calibBlock(), 16, "HwDatablockSsynOcxoRefCalValue", "calibration record",
                       "SSYN_OCXO_REF_CAL_VALUE"),
                 block(selfDescribingBlock(), 28, "HwDatablock2Edition", "self-describing",
                       "USER_20001", crc))
            .toUtf8());
}

TEST(Tool, BrokenChainsExitWithTwoAndNothingIsWritten) {
    ToolHarness tool;
    tool.write("in.txt", example("sample.cal"));
    for (const BrokenChain& c : brokenChains()) {
        SCOPED_TRACE(c.what);
        const QString problem = QStringLiteral("%1: %2").arg(hex4(c.offset), c.problem);
        tool.write("broken.bin", c.image);
        const ToolResult verify = tool.run({"verify", "broken.bin"});
        EXPECT_EQ(verify.exitCode, 2);
        EXPECT_EQ(verify.outLines(),
                  QStringList({problem, QStringLiteral("FAILED: chain broken at %1 after %2 "
                                                       "block%3, 1 problem")
                                            .arg(hex4(c.offset))
                                            .arg(c.blocksRead)
                                            .arg(c.blocksRead == 1 ? "" : "s")}));
        const ToolResult exported = tool.run({"export", "broken.bin", "-o", "cal.txt"});
        EXPECT_EQ(exported.exitCode, 2);
        EXPECT_EQ(exported.err, "epromtool: broken.bin: " + problem +
                                    "\nepromtool: broken.bin: the chain is broken, nothing "
                                    "exported\n");
        const ToolResult imported = tool.run({"import", "broken.bin", "in.txt"});
        EXPECT_EQ(imported.exitCode, 2);
        EXPECT_TRUE(imported.err.endsWith(
            "epromtool: broken.bin: the chain is broken, nothing imported\n"));
        EXPECT_EQ(imported.out, "");
        EXPECT_EQ(tool.read("broken.bin"), c.image);
        EXPECT_EQ(tool.entries(), QStringList({"broken.bin", "in.txt"}));
    }
}

// Unreadable input or a malformed section exits with 2, an unwritable output with 3, a wrong
// command line with 64: one line on stderr each, and nothing written.
TEST(Tool, BadPathsAndCommandLines) {
    ToolHarness tool;
    tool.write("g", goodImage());
    tool.write("s.eeprom", example("sample.eeprom"));
    tool.write("bad.cal",
               editLine(example("sample.cal"), "ID:  RFBO_ALC_DATA", "COUNT:", "COUNT:  5*10"));
    tool.write("c", exportImage(EepromImage::fromBytes(goodImage())).c_str());
    tool.write("file", "a file where a folder should be");
    QDir(tool.path(".")).mkdir("dir");
    const struct {
        QStringList arguments;
        int exitCode;
        const char* err; // the start of the line
    } cases[] = {
        {{"list", "nope"}, 2, "cannot read nope: No such file or directory\n"},
        {{"verify", "dir"}, 2, "cannot read dir: Is a directory\n"},
        {{"import", "g", "dir"}, 2, "cannot read dir: Is a directory\n"},
        {{"export", "g", "--id", "2", "--id", "9", "-o", "x"}, 2, "g: no block with id 9\n"},
        {{"export", "g", "-o", "file/c"}, 3, "cannot write file/c: "},
        {{"import", "g", "c", "-o", "file/new.bin"}, 3, "cannot write file/new.bin: "},
        {{"import", "g", "c", "-o", "dir"},
         3,
         "cannot write dir: Is a directory; dir left as it is\n"},
        {{"sample", "-o", "file/s.eeprom"}, 3, "cannot write file/s.eeprom: "},
        {{}, 64, "no command given (see 'epromtool --help')\n"},
        {{"frob"}, 64, "unknown command 'frob' (see 'epromtool --help')\n"},
        {{"list"}, 64, "list: missing IMAGE"},
        {{"show", "a", "b"}, 64, "show: unexpected argument 'b'"},
        {{"show", "g"}, 64, "show: missing --id N"},
        {{"show", "g", "--id", "65536"}, 64, "show: '65536' is not a block id"},
        {{"export", "g", "--id", "0xZZ", "-o", "x"}, 64, "export: '0xZZ' is not a block id"},
        {{"sample"}, 64, "sample: missing -o FILE"},
        {{"list", "g", "--offset", "12x"}, 64, "list: '12x' is not an offset"},
        {{"list", "g", "--offset", "0x80000000"}, 64, "list: '0x80000000' is not an offset"},
        {{"import", "s.eeprom", "bad.cal"},
         2,
         "bad.cal: section RFBO_ALC_DATA, line 53: row count 5 above the capacity 4; nothing "
         "written\n"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.arguments.join(' ').toStdString());
        const ToolResult result = tool.run(c.arguments);
        EXPECT_EQ(result.exitCode, c.exitCode);
        EXPECT_TRUE(result.err.startsWith(QStringLiteral("epromtool: ") + c.err))
            << result.err.toStdString();
        EXPECT_EQ(result.err.count('\n'), 1);
        if (c.exitCode != 3) { // a failed import still tells what it would have done
            EXPECT_EQ(result.out, "");
        }
    }
    EXPECT_EQ(tool.entries(), QStringList({"bad.cal", "c", "dir", "file", "g", "s.eeprom"}));
    EXPECT_EQ(tool.read("g"), goodImage());
    EXPECT_EQ(tool.read("s.eeprom"), example("sample.eeprom"));
    const ToolResult help = tool.run({"--help"});
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_TRUE(help.out.contains("  64  usage error"));
}

TEST(Tool, ImportWritesTheImageAndKeepsABackup) {
    ToolHarness tool;
    const QByteArray original = example("sample.eeprom");
    tool.write("image.bin", original);
    tool.write("cal.txt", sampleCalWithEditedCell());
    EepromImage edited = EepromImage::fromBytes(original);
    ASSERT_TRUE(applyPlan(edited, planImport(edited, tool.read("cal.txt"))).ok());
    const ToolResult dry = tool.run({"import", "image.bin", "cal.txt", "--dry-run"});
    EXPECT_EQ(dry.exitCode, 0);
    EXPECT_EQ(dry.outLines().last(), "dry run: image.bin left as it is");
    EXPECT_EQ(tool.read("image.bin"), original);

    const ToolResult copy = tool.run({"import", "image.bin", "cal.txt", "-o", "new.bin"});
    EXPECT_EQ(copy.exitCode, 0);
    EXPECT_EQ(copy.outLines().last(), "wrote new.bin");
    EXPECT_EQ(tool.read("new.bin"), edited.bytes());

    const ToolResult inPlace = tool.run({"import", "image.bin", "cal.txt"});
    EXPECT_EQ(inPlace.exitCode, 0);
    const QStringList lines = inPlace.outLines();
    EXPECT_TRUE(lines.contains(
        QStringLiteral("block 15731 at 0x00a4 RFBO_ALC_DATA: 1 cell "
                       "changed, checksum %1 -> %2")
            .arg(hex4(word(original, 0xa4 + 4)), hex4(word(edited.bytes(), 0xa4 + 4)))));
    EXPECT_TRUE(lines.contains(
        "section USER_20010 (line 118): self-describing blocks are not imported, left as it was"));
    EXPECT_EQ(lines.mid(lines.size() - 2),
              QStringList({"12 of 14 blocks have a section in cal.txt, 1 replaced",
                           "wrote image.bin, previous kept as image.bin.bak"}));
    EXPECT_EQ(tool.read("image.bin"), edited.bytes());
    EXPECT_EQ(tool.read("image.bin.bak"), original);

    // A folder where the backup belongs stops the write before the target is touched; the
    // backup holds what the target held, whatever that was.
    tool.write("new.bin", "older content");
    QDir(tool.path(".")).mkdir("new.bin.bak");
    const ToolResult blocked = tool.run({"import", "image.bin", "cal.txt", "-o", "new.bin"});
    EXPECT_EQ(blocked.exitCode, 3);
    EXPECT_TRUE(blocked.err.startsWith("epromtool: cannot write new.bin.bak: "));
    EXPECT_EQ(tool.read("new.bin"), "older content");
    QDir(tool.path(".")).rmdir("new.bin.bak");
    ASSERT_EQ(tool.run({"import", "image.bin", "cal.txt", "-o", "new.bin"}).exitCode, 0);
    EXPECT_EQ(tool.read("new.bin.bak"), "older content");

    QFile::remove(tool.path("image.bin.bak"));
    tool.write("image.bin", original);
    const ToolResult noBackup = tool.run({"import", "image.bin", "cal.txt", "--no-backup"});
    EXPECT_EQ(noBackup.outLines().last(), "wrote image.bin");
    EXPECT_EQ(tool.read("image.bin"), edited.bytes());
    EXPECT_EQ(tool.entries(), QStringList({"cal.txt", "image.bin", "new.bin", "new.bin.bak"}));
    // In place, as on a device, the backup goes to the working folder under a dated name.
    tool.write("image.bin", original);
    EXPECT_EQ(tool.run({"import", "image.bin", "cal.txt", "--in-place"}).exitCode, 0);
    const QStringList dated = QDir(tool.path(".")).entryList({"image.bin-*.eeprom"});
    ASSERT_EQ(dated.size(), 1);
    EXPECT_EQ(tool.read(dated[0]), original);
    EXPECT_EQ(tool.entries().size(), 5);
}

TEST(Tool, ShowDiffFailedChecksAndSample) {
    ToolHarness tool;
    tool.write("good.bin", goodImage());
    const QString headline = QStringLiteral("block 2 at 0x0000: HwDatablockIdent IDENT_2, 16 "
                                            "bytes, alignment 0, checksum %1 ok")
                                 .arg(hex4(word(identBlock(), 4)));
    const ToolResult hexDump = tool.run({"show", "good.bin", "--id", "2", "--hex"});
    EXPECT_EQ(hexDump.exitCode, 0);
    EXPECT_EQ(hexDump.outLines(),
              QStringList({headline, "0000  " + identBlock().left(8).toHex(' ') + "  " +
                                         identBlock().mid(8).toHex(' ')}));
    const ToolResult own = tool.run({"show", "good.bin", "--id", "0x0002"});
    EXPECT_EQ(own.exitCode, 0);
    EXPECT_EQ(own.out,
              headline + "\n" +
                  QString::fromStdString(exportBlock(EepromImage::fromBytes(goodImage()), 0)));
    // Chosen blocks are exported in chain order, whatever the order of the ids.
    const ToolResult some = tool.run({"export", "good.bin", "--id", "20001", "--id", "0x2710"});
    EXPECT_EQ(some.exitCode, 0);
    EXPECT_EQ(some.out.toStdString(), exportBlock(EepromImage::fromBytes(goodImage()), 1) +
                                          exportBlock(EepromImage::fromBytes(goodImage()), 2));
    const ToolResult none = tool.run({"show", "good.bin", "--id", "7"});
    EXPECT_EQ(none.exitCode, 2);
    EXPECT_EQ(none.err, "epromtool: good.bin: no block with id 7\n");

    // A payload byte of block 10000 changed, its checksum left stale: exit code 1, and exported
    // all the same with the failure on stderr.
    QByteArray bad = goodImage();
    bad[25] = 0x22;
    tool.write("bad.bin", bad);
    const ToolResult verify = tool.run({"verify", "bad.bin"});
    EXPECT_EQ(verify.exitCode, 1);
    EXPECT_EQ(
        verify.outLines(),
        QStringList({QStringLiteral("0x0010: block 10000: checksum BAD (stored %1, "
                                    "computed %2)")
                         .arg(hex4(word(calibBlock(), 4)), hex4(word(sealed(bad.mid(16, 12)), 4))),
                     "FAILED: 1 problem in 4 blocks, end block at 0x0030"}));
    const ToolResult list = tool.run({"list", "bad.bin"});
    EXPECT_EQ(list.exitCode, 1);
    EXPECT_EQ(list.outLines().value(2),
              "0x0010  10000  SSYN_OCXO_REF_CAL_VALUE     12  BAD       -");
    const ToolResult exported = tool.run({"export", "bad.bin", "-o", "cal.txt"});
    EXPECT_EQ(exported.exitCode, 1);
    EXPECT_TRUE(exported.err.startsWith("epromtool: bad.bin: 0x0010: block 10000: checksum BAD"));
    EXPECT_EQ(tool.entries(), QStringList({"bad.bin", "cal.txt", "good.bin"}));
    const ToolResult diff = tool.run({"diff", "good.bin", "bad.bin"});
    EXPECT_EQ(diff.exitCode, 1);
    EXPECT_EQ(diff.outLines(), QStringList({"changed block 10000 at 0x0010: 1 payload byte changed",
                                            "1 difference: 1 changed, 0 removed, 0 added"}));
    const QJsonObject diffJson =
        QJsonDocument::fromJson(tool.run({"diff", "--json", "good.bin", "bad.bin"}).out.toUtf8())
            .object();
    EXPECT_EQ(QJsonDocument(diffJson.value("differences").toArray()).toJson(QJsonDocument::Compact),
              QByteArray(R"([{"bytesChanged":1,"headerChanges":[],"id":10000,"kind":"changed",)"
                         R"("offsetA":16,"offsetB":16,"sizeA":12,"sizeB":12}])"));
    EXPECT_EQ(QJsonDocument(diffJson.value("problemsB").toArray()).toJson(QJsonDocument::Compact),
              QStringLiteral("[{\"code\":\"checksum failed\",\"message\":\"block 10000: "
                             "checksum BAD (stored %1, computed %2)\",\"offset\":16}]")
                  .arg(hex4(word(calibBlock(), 4)), hex4(word(sealed(bad.mid(16, 12)), 4)))
                  .toUtf8());
    EXPECT_EQ(tool.run({"diff", "good.bin", "good.bin"}).outLines(),
              QStringList("no differences in 4 blocks"));

    ASSERT_EQ(tool.run({"sample", "-o", "s.eeprom"}).exitCode, 0);
    // On a mismatch `make examples` regenerates the examples.
    EXPECT_TRUE(tool.read("s.eeprom") == example("sample.eeprom"));
}
