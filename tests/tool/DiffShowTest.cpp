// epromtool diff and show: block pairing, changed header fields, byte counts, hex dumps.
#include "TestImages.h"
#include "ToolHarness.h"

#include <BlockCatalogue.h>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>
#include <sstream>

using namespace Tupsim::test;

namespace {

QString checksumOf(const QByteArray& block) {
    const unsigned value =
        static_cast<unsigned char>(block[4]) | (static_cast<unsigned char>(block[5]) << 8);
    return QStringLiteral("0x%1").arg(value, 4, 16, QLatin1Char('0'));
}

} // namespace

TEST(ToolDiff, ReportsChangedRemovedAndAddedBlocks) {
    ToolHarness tool;
    // B drops the ident block, changes two payload bytes and the size of the calibration block,
    // and adds block 10001 before the end.
    QByteArray calibB = calibBlock() + bytesOf({0x05, 0x06});
    calibB[2] = 0x0E; // size 14
    calibB[8] = 0x11;
    calibB[11] = 0x44;
    sealChecksum(calibB);
    const QByteArray added = sealed(bytesOf({0x11, 0x27,    // id 10001
                                             0x08, 0x00,    // size 8
                                             0x00, 0x00,    // checksum
                                             0x00, 0x00})); // alignment
    tool.write("a.bin", goodImage());
    tool.write("b.bin", calibB + selfDescribingBlock() + added + endBlock());

    const ToolResult diff = tool.run({"diff", "a.bin", "b.bin"});
    EXPECT_EQ(diff.exitCode, 0);
    EXPECT_EQ(diff.outLines(),
              QStringList({"removed block 2 at 0x0000, 16 bytes",
                           QStringLiteral("changed block 10000 at 0x0010 -> 0x0000: size 12 -> 14, "
                                          "checksum %1 -> %2, 4 payload bytes changed")
                               .arg(checksumOf(calibBlock()), checksumOf(calibB)),
                           "added   block 10001 at 0x0022, 8 bytes",
                           "free space behind the end block differs",
                           "3 differences: 1 changed, 1 removed, 1 added"}));

    const QJsonObject json =
        QJsonDocument::fromJson(tool.run({"diff", "--json", "a.bin", "b.bin"}).out.toUtf8())
            .object();
    const QJsonArray differences = json["differences"].toArray();
    ASSERT_EQ(differences.size(), 3);
    const QJsonObject changed = differences[1].toObject();
    EXPECT_EQ(changed["kind"].toString(), "changed");
    EXPECT_EQ(changed["id"].toInt(), 10000);
    EXPECT_EQ(changed["offsetA"].toInt(), 16);
    EXPECT_EQ(changed["offsetB"].toInt(), 0);
    EXPECT_EQ(changed["bytesChanged"].toInt(), 4);
    const QJsonObject fields = changed["headerChanges"].toObject();
    EXPECT_EQ(fields["size"].toArray(), QJsonArray({12, 14}));
    EXPECT_FALSE(fields.contains("alignment"));
    EXPECT_EQ(differences[0].toObject()["kind"].toString(), "removed");
    EXPECT_FALSE(differences[0].toObject().contains("offsetB"));
    EXPECT_EQ(differences[2].toObject()["offsetB"].toInt(), 34);
    EXPECT_TRUE(json["freeSpaceDiffers"].toBool());
}

TEST(ToolDiff, PairsRepeatedIdsInOrderAndPassesOnImageHealth) {
    ToolHarness tool;
    QByteArray second = calibBlock();
    second[6] = 0x01; // alignment 1
    sealChecksum(second);
    tool.write("a.bin", calibBlock() + calibBlock() + endBlock());
    tool.write("b.bin", calibBlock() + second + endBlock());

    const ToolResult diff = tool.run({"diff", "a.bin", "b.bin"});
    EXPECT_EQ(diff.exitCode, 0);
    EXPECT_EQ(diff.outLines(),
              QStringList({QStringLiteral("changed block 10000 at 0x000c: checksum %1 -> %2, "
                                          "alignment 0 -> 1")
                               .arg(checksumOf(calibBlock()), checksumOf(second)),
                           "1 difference: 1 changed, 0 removed, 0 added"}));

    const ToolResult same = tool.run({"diff", "a.bin", "a.bin"});
    EXPECT_EQ(same.exitCode, 0);
    EXPECT_EQ(same.outLines(), QStringList({"no differences in 2 blocks"}));

    // A damaged checksum on either side shows on stderr and in the exit code.
    second[9] = 0x7F;
    tool.write("c.bin", calibBlock() + second + endBlock());
    const ToolResult damaged = tool.run({"diff", "a.bin", "c.bin"});
    EXPECT_EQ(damaged.exitCode, 1);
    EXPECT_TRUE(damaged.err.startsWith("epromtool: c.bin: 0x000c: block 10000: checksum BAD"));
}

TEST(ToolShow, PrintsTheBlockInHexOrThroughItsCatalogue) {
    ToolHarness tool;
    tool.write("good.bin", goodImage());
    const QString headline =
        QStringLiteral("block 2 at 0x0000: HwDatablockIdent IDENT_2, 16 bytes, alignment 0, "
                       "checksum %1 ok")
            .arg(checksumOf(identBlock()));

    const ToolResult hex = tool.run({"show", "good.bin", "--id", "2", "--hex"});
    EXPECT_EQ(hex.exitCode, 0);
    EXPECT_EQ(hex.outLines(),
              QStringList({headline, QStringLiteral("0000  02 00 10 00 %1 %2 00 00  4d 4f 44 31 "
                                                    "00 00 00 00")
                                         .arg(checksumOf(identBlock()).mid(4),
                                              checksumOf(identBlock()).mid(2, 2))}));

    // Without --hex the block goes through the catalogue's own printing.
    std::ostringstream printed;
    epromtool::makeBlockCatalogue()->print(identBlock(), printed);
    const ToolResult own = tool.run({"show", "good.bin", "--id", "0x0002"});
    EXPECT_EQ(own.exitCode, 0);
    EXPECT_EQ(own.out, headline + "\n" + QString::fromStdString(printed.str()));

    const QJsonObject json =
        QJsonDocument::fromJson(
            tool.run({"show", "good.bin", "--id", "20001", "--json"}).out.toUtf8())
            .object();
    const QJsonArray blocks = json["blocks"].toArray();
    ASSERT_EQ(blocks.size(), 1);
    EXPECT_EQ(blocks[0].toObject()["hex"].toString(),
              QString::fromLatin1(selfDescribingBlock().toHex()));
    EXPECT_EQ(blocks[0].toObject()["offset"].toInt(), 28);

    const ToolResult none = tool.run({"show", "good.bin", "--id", "7"});
    EXPECT_EQ(none.exitCode, 2);
    EXPECT_EQ(none.err, "epromtool: good.bin: no block with id 7\n");
    EXPECT_EQ(none.out, "");
}
