// epromtool list and verify: golden text, JSON read back, failed checksums and CRCs.
#include "TestImages.h"
#include "ToolHarness.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

using namespace Tupsim::test;

namespace {

unsigned word(const QByteArray& bytes, int offset) {
    return static_cast<unsigned char>(bytes[offset]) |
           (static_cast<unsigned char>(bytes[offset + 1]) << 8);
}

unsigned crcField(const QByteArray& bytes) {
    return word(bytes, 8) | (word(bytes, 10) << 16);
}

QString hex4(unsigned value) {
    return QStringLiteral("0x%1").arg(value, 4, 16, QLatin1Char('0'));
}

QString hex8(unsigned value) {
    return QStringLiteral("0x%1").arg(value, 8, 16, QLatin1Char('0'));
}

QJsonObject jsonOf(const ToolResult& result) {
    return QJsonDocument::fromJson(result.out.toUtf8()).object();
}

} // namespace

TEST(ToolList, GoodImageMatchesTheGoldenText) {
    ToolHarness tool;
    tool.write("good.bin", goodImage());

    const ToolResult list = tool.run({"list", "good.bin"});
    EXPECT_EQ(list.exitCode, 0);
    EXPECT_EQ(list.out, ToolHarness::golden("list_good.txt", list.out));
    EXPECT_EQ(list.err, "");

    const ToolResult verify = tool.run({"verify", "good.bin"});
    EXPECT_EQ(verify.exitCode, 0);
    EXPECT_EQ(verify.out, ToolHarness::golden("verify_good.txt", verify.out));
    EXPECT_EQ(verify.err, "");
}

TEST(ToolList, JsonListingReadsBack) {
    ToolHarness tool;
    const QByteArray image = goodImage();
    tool.write("good.bin", image);

    const ToolResult list = tool.run({"list", "--json", "good.bin"});
    ASSERT_EQ(list.exitCode, 0);
    const QJsonObject root = jsonOf(list);
    EXPECT_EQ(root["image"].toString(), "good.bin");
    EXPECT_EQ(root["imageSize"].toInt(), 64);
    EXPECT_EQ(root["endOffset"].toInt(), 48);
    EXPECT_EQ(root["used"].toInt(), 52);
    EXPECT_EQ(root["free"].toInt(), 12);
    EXPECT_EQ(root["exitCode"].toInt(), 0);
    EXPECT_TRUE(root["problems"].toArray().isEmpty());

    const QJsonArray blocks = root["blocks"].toArray();
    ASSERT_EQ(blocks.size(), 4);
    const int offsets[] = {0, 16, 28, 48};
    const int ids[] = {2, 10000, 20001, 65535};
    const int sizes[] = {16, 12, 20, 4};
    // Named by the directory's classes; the self-describing block by its kind.
    const char* classes[] = {"HwDatablockIdent", "HwDatablockSsynOcxoRefCalValue",
                             "HwDatablock2Edition", "HwDatablockEnd"};
    for (int i = 0; i < 4; ++i) {
        const QJsonObject block = blocks[i].toObject();
        EXPECT_EQ(block["offset"].toInt(), offsets[i]) << i;
        EXPECT_EQ(block["id"].toInt(), ids[i]) << i;
        EXPECT_EQ(block["size"].toInt(), sizes[i]) << i;
        EXPECT_EQ(block["end"].toBool(), i == 3) << i;
        EXPECT_EQ(block["className"].toString(), classes[i]) << i;
    }
    // The stored checksum is the one in the bytes, and it verifies.
    const QJsonObject calib = blocks[1].toObject()["checksum"].toObject();
    EXPECT_EQ(calib["stored"].toInt(), static_cast<int>(word(image, 16 + 4)));
    EXPECT_EQ(calib["computed"].toInt(), calib["stored"].toInt());
    EXPECT_TRUE(calib["ok"].toBool());
    EXPECT_TRUE(blocks[1].toObject()["crc32"].isNull());
    const QJsonObject crc = blocks[2].toObject()["crc32"].toObject();
    EXPECT_EQ(crc["stored"].toVariant().toLongLong(), crcField(selfDescribingBlock()));
    EXPECT_TRUE(crc["ok"].toBool());
    EXPECT_FALSE(crc["eventCounter"].toBool());
    // The end block carries neither.
    EXPECT_TRUE(blocks[3].toObject()["checksum"].isNull());
    EXPECT_TRUE(blocks[3].toObject()["crc32"].isNull());

    const QJsonObject verify = jsonOf(tool.run({"verify", "good.bin", "--json"}));
    EXPECT_TRUE(verify["ok"].toBool());
    EXPECT_EQ(verify["blocks"].toInt(), 3);
    EXPECT_EQ(verify["endOffset"].toInt(), 48);
}

TEST(ToolVerify, ReportsEachFailedChecksumAndCrcWithItsValues) {
    ToolHarness tool;
    QByteArray calib = calibBlock();
    const unsigned storedChecksum = word(calib, 4);
    calib[9] = 0x22; // payload changed, checksum left as it was
    QByteArray selfDescribing = selfDescribingBlock();
    const unsigned storedCrc = crcField(selfDescribing);
    selfDescribing[14] = 0x05; // rows changed; the 16-bit checksum is resealed, the CRC is not
    sealChecksum(selfDescribing);
    QByteArray expectedCrc = selfDescribing;
    sealCrc(expectedCrc);
    tool.write("bad.bin", identBlock() + calib + selfDescribing + endBlock());

    const ToolResult verify = tool.run({"verify", "bad.bin"});
    EXPECT_EQ(verify.exitCode, 1);
    EXPECT_EQ(
        verify.outLines(),
        QStringList({QStringLiteral("0x0010: block 10000: checksum BAD (stored %1, computed %2)")
                         .arg(hex4(storedChecksum), hex4(word(sealed(calib), 4))),
                     QStringLiteral("0x001c: block 20001: CRC-32 BAD (stored %1, computed %2)")
                         .arg(hex8(storedCrc), hex8(crcField(expectedCrc))),
                     "FAILED: 2 problems in 3 blocks, end block at 0x0030"}));

    const ToolResult list = tool.run({"list", "bad.bin"});
    EXPECT_EQ(list.exitCode, 1);
    // The name column's width follows the names; the verdicts close each row.
    const QStringList rows = list.outLines().mid(2, 2);
    ASSERT_EQ(rows.size(), 2);
    EXPECT_TRUE(rows[0].startsWith("0x0010  10000  ")) << rows[0].toStdString();
    EXPECT_TRUE(rows[0].endsWith("   12  BAD       -")) << rows[0].toStdString();
    EXPECT_TRUE(rows[1].startsWith("0x001c  20001  USER_20001  ")) << rows[1].toStdString();
    EXPECT_TRUE(rows[1].endsWith("   20  ok        BAD")) << rows[1].toStdString();

    const QJsonObject json = jsonOf(tool.run({"verify", "--json", "bad.bin"}));
    EXPECT_FALSE(json["ok"].toBool());
    EXPECT_EQ(json["exitCode"].toInt(), 1);
    const QJsonArray problems = json["problems"].toArray();
    ASSERT_EQ(problems.size(), 2);
    EXPECT_EQ(problems[0].toObject()["offset"].toInt(), 16);
    EXPECT_EQ(problems[1].toObject()["offset"].toInt(), 28);
}

TEST(ToolVerify, CrcFieldRulesForSelfDescribingBlocks) {
    ToolHarness tool;
    // The event-counter mark 0x452D0000 + block size stands in for a CRC.
    QByteArray counter = bytesOf({0x22, 0x4E,             // id 20002
                                  0x10, 0x00,             // size 16
                                  0x00, 0x00,             // checksum
                                  0x00, 0x00,             // alignment
                                  0x10, 0x00, 0x2D, 0x45, // mark 0x452D0010
                                  0x07, 0x00, 0x00, 0x00});
    sealChecksum(counter);
    // Eight bytes cannot hold a CRC at all.
    const QByteArray tiny = sealed(bytesOf({0x20, 0x4E,    // id 20000
                                            0x08, 0x00,    // size 8
                                            0x00, 0x00,    // checksum
                                            0x00, 0x00})); // alignment
    tool.write("crc.bin", counter + tiny + endBlock());

    const ToolResult verify = tool.run({"verify", "crc.bin"});
    EXPECT_EQ(verify.exitCode, 1);
    EXPECT_EQ(verify.outLines(),
              QStringList({"0x0010: block 20000: CRC-32 BAD (8 bytes cannot hold one)",
                           "FAILED: 1 problem in 2 blocks, end block at 0x0018"}));

    const ToolResult show = tool.run({"show", "crc.bin", "--id", "20002", "--hex"});
    EXPECT_EQ(show.outLines().value(0),
              QStringLiteral("block 20002 at 0x0000: HwDatablock2Edition USER_20002, 16 bytes, "
                             "alignment 0, checksum "
                             "%1 ok, CRC-32 0x452d0010 ok (event counter)")
                  .arg(hex4(word(counter, 4))));
    const QJsonObject json = jsonOf(tool.run({"list", "crc.bin", "--json"}));
    const QJsonObject crc = json["blocks"].toArray()[0].toObject()["crc32"].toObject();
    EXPECT_TRUE(crc["ok"].toBool());
    EXPECT_TRUE(crc["eventCounter"].toBool());
}
