// epromtool over several images: list, verify and export with -r, and inventory as text, CSV and
// JSON, with damaged, empty, oversized and unreadable files among good ones.
#include "ToolHarness.h"
#include "support/TestImages.h"

#include <EepromImage.h>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {

// A depot folder: a good sample, one with a failed checksum, an empty file, one too large, and
// a name with a blank, a comma, a quote and a non-ASCII letter.
const QString kOdd = QString::fromUtf8("odd \"m\xC3\xB6\x64ule\", 1.eeprom");

void fillDepot(const ToolHarness& tool) {
    QDir(tool.path("")).mkpath("depot/rack 2");
    tool.write("depot/a.eeprom", example("sample.eeprom"));
    QByteArray bad = example("sample.eeprom");
    bad[0x2c + 9] = static_cast<char>(bad[0x2c + 9] ^ 1);
    tool.write("depot/b.eeprom", bad);
    tool.write("depot/rack 2/empty.eeprom", QByteArray());
    tool.write("depot/rack 2/" + kOdd, example("sample.eeprom"));
    QFile large(tool.path("depot/rack 2/z large.bin"));
    if (large.open(QIODevice::WriteOnly))
        large.resize(EepromImage::MaxFileSize + 1);
}

} // namespace

TEST(ToolBatch, VerifyListAndExportOverAFolder) {
    ToolHarness tool;
    fillDepot(tool);
    const ToolResult verify = tool.run({"verify", "-r", "depot", "missing.eeprom"});
    EXPECT_EQ(verify.exitCode, 2);
    EXPECT_EQ(verify.err, "");
    EXPECT_EQ(verify.out,
              "depot/a.eeprom:\n"
              "  ok: 14 blocks checked, end block at 0x2d1c\n"
              "depot/b.eeprom:\n"
              "  0x002c: block 200: checksum BAD (stored 0x9eb7, computed 0x9fb7)\n"
              "  FAILED: 1 problem in 14 blocks, end block at 0x2d1c\n"
              "depot/rack 2/empty.eeprom:\n"
              "  0x0000: the image is empty\n"
              "  FAILED: chain broken at 0x0000 after 0 blocks, 1 problem\n"
              "depot/rack 2/" +
                  kOdd +
                  ":\n"
                  "  ok: 14 blocks checked, end block at 0x2d1c\n"
                  "depot/rack 2/z large.bin:\n"
                  "  unreadable: 16777217 bytes, too large for an EEPROM image (at most 16777216)\n"
                  "missing.eeprom:\n"
                  "  unreadable: No such file or directory\n"
                  "6 images: 2 ok, 1 failed checks, 1 broken chain, 2 unreadable\n");
    // The worst of the images decides: a failed check alone is 1.
    EXPECT_EQ(tool.run({"verify", "depot/a.eeprom", "depot/b.eeprom"}).exitCode, 1);

    const ToolResult json = tool.run({"verify", "--json", "-r", "depot"});
    const QJsonObject document = QJsonDocument::fromJson(json.out.toUtf8()).object();
    const QJsonArray images = document["images"].toArray();
    ASSERT_EQ(images.size(), 5);
    EXPECT_EQ(images[3].toObject()["image"].toString(), "depot/rack 2/" + kOdd);
    EXPECT_EQ(images[1].toObject()["exitCode"].toInt(), 1);
    EXPECT_EQ(QJsonDocument(images[4].toObject()).toJson(QJsonDocument::Compact),
              R"J({"error":"16777217 bytes, too large for an EEPROM image (at most 16777216)",)J"
              R"J("exitCode":2,"image":"depot/rack 2/z large.bin","readable":false})J");
    EXPECT_EQ(QJsonDocument(document["summary"].toObject()).toJson(QJsonDocument::Compact),
              R"({"brokenChain":1,"failedChecks":1,"images":5,"ok":2,"unreadable":1})");
    EXPECT_EQ(document["exitCode"].toInt(), 2);
    EXPECT_EQ(json.exitCode, 2);

    const ToolResult list = tool.run({"list", "depot/a.eeprom", "depot/a.eeprom"});
    EXPECT_EQ(list.exitCode, 0);
    const QStringList lines = list.outLines();
    ASSERT_EQ(lines.size(), 2 * 17 + 1);
    EXPECT_EQ(lines[0], "depot/a.eeprom:");
    EXPECT_EQ(lines[2], "  0x0000      2  IDENT_2                        44  ok        -");
    EXPECT_EQ(lines[17], "depot/a.eeprom:");
    EXPECT_EQ(lines.last(), "2 images: 2 ok, 0 failed checks, 0 broken chain, 0 unreadable");

    // export: each image behind its path as a comment; the broken and unreadable ones on
    // standard error; the summary as the last comment.
    const ToolResult exported = tool.run({"export", "-r", "depot", "--id", "300"});
    EXPECT_EQ(exported.exitCode, 2);
    const QString statistics = "# Das sind die Statisticdaten Statistics 300\n"
                               "ID:              STATISTICS_300\n"
                               "OPHOURS:         15872\n\n";
    EXPECT_EQ(exported.out,
              "# depot/a.eeprom\n" + statistics + "# depot/b.eeprom\n" + statistics +
                  "# depot/rack 2/empty.eeprom\n# depot/rack 2/" + kOdd + "\n" + statistics +
                  "# depot/rack 2/z large.bin\n"
                  "# 5 images: 2 ok, 1 failed checks, 1 broken chain, 1 unreadable\n");
    EXPECT_EQ(exported.err,
              "epromtool: depot/b.eeprom: 0x002c: block 200: checksum BAD (stored 0x9eb7, "
              "computed 0x9fb7)\n"
              "epromtool: depot/rack 2/empty.eeprom: 0x0000: the image is empty\n"
              "epromtool: depot/rack 2/empty.eeprom: the chain is broken, nothing exported\n"
              "epromtool: cannot read depot/rack 2/z large.bin: 16777217 bytes, too large for "
              "an EEPROM image (at most 16777216)\n");
    EXPECT_EQ(tool.run({"export", "-r", "depot", "-o", "all.cal"}).exitCode, 64);
    EXPECT_FALSE(QFile::exists(tool.path("all.cal")));
}

TEST(ToolBatch, InventoryAsTextCsvAndJson) {
    ToolHarness tool;
    fillDepot(tool);
    QDir(tool.path("")).mkpath("nothing here");
    const QString good = "1234.5678.02,102345,37,2021-06-15,RF-BOARD 6G,2023-11-07,15872";
    const ToolResult csv = tool.run({"inventory", "--csv", "-r", "depot", "nothing here"});
    EXPECT_EQ(csv.exitCode, 2);
    EXPECT_EQ(csv.out,
              "path,verdict,blocks,partNumber,serialNumber,hardwareCode,productDate,name,"
              "lastServiceDate,operatingHours,problems,reason\r\n"
              "depot/a.eeprom,ok,14," +
                  good +
                  ",0,\r\n"
                  "depot/b.eeprom,failed checks,14," +
                  good +
                  ",1,"
                  "\"0x002c: block 200: checksum BAD (stored 0x9eb7, computed 0x9fb7)\"\r\n"
                  "depot/rack 2/empty.eeprom,broken chain,0,,,,,,,,1,0x0000: the image is empty\r\n"
                  "\"depot/rack 2/odd \"\"m\xC3\xB6\x64ule\"\", 1.eeprom\",ok,14," +
                  good +
                  ",0,\r\n"
                  "depot/rack 2/z large.bin,unreadable,,,,,,,,,1,"
                  "\"16777217 bytes, too large for an EEPROM image (at most 16777216)\"\r\n"
                  "nothing here,unreadable,,,,,,,,,1,the directory holds no files\r\n");
    EXPECT_EQ(csv.err, "epromtool: 6 images: 2 ok, 1 failed checks, 1 broken chain, "
                       "2 unreadable\n");

    const ToolResult json = tool.run({"inventory", "--json", "-r", "depot"});
    const QJsonObject document = QJsonDocument::fromJson(json.out.toUtf8()).object();
    const QJsonArray rows = document["images"].toArray();
    ASSERT_EQ(rows.size(), 5);
    EXPECT_EQ(QJsonDocument(rows[3].toObject()).toJson(QJsonDocument::Compact),
              QString(R"({"blocks":14,"hardwareCode":37,"lastServiceDate":"2023-11-07",)"
                      R"("name":"RF-BOARD 6G","operatingHours":15872,)"
                      R"("partNumber":"1234.5678.02","path":"depot/rack 2/odd \"m)"
                      "\xC3\xB6"
                      R"(dule\", 1.eeprom","problems":0,"productDate":"2021-06-15",)"
                      R"("reason":null,"serialNumber":102345,"verdict":"ok"})")
                  .toUtf8());
    EXPECT_TRUE(rows[2].toObject()["serialNumber"].isNull());
    EXPECT_EQ(document["exitCode"].toInt(), 2);

    const ToolResult text = tool.run({"inventory", "depot/a.eeprom", "depot/rack 2/empty.eeprom"});
    EXPECT_EQ(text.out,
              "depot/a.eeprom: ok, 14 blocks, part number 1234.5678.02, SN 102345, "
              "hardware code 37, made 2021-06-15, name 'RF-BOARD 6G', last service 2023-11-07, "
              "15872 operating hours\n"
              "depot/rack 2/empty.eeprom: broken chain, 0 blocks, no ident block, "
              "0x0000: the image is empty\n"
              "2 images: 1 ok, 0 failed checks, 1 broken chain, 0 unreadable\n");
    EXPECT_EQ(tool.run({"inventory", "--csv", "--json", "depot"}).exitCode, 64);
}
