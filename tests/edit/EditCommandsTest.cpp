// epromtool set, fix, --offset and --version end to end through the built binary.
#include <EepromImage.h>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

struct ToolRun {
    int code = -1;
    QString out;
    QString err;
};

class EditCommands : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir.isValid());
        sample = readFile(QStringLiteral(EPROM_SOURCE_DIR "/examples/sample.eeprom"));
        ASSERT_FALSE(sample.isEmpty());
        write(QStringLiteral("s.eeprom"), sample);
    }

    QString path(const QString& name) const { return dir.filePath(name); }
    static QByteArray readFile(const QString& file) {
        QFile f(file);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
    QByteArray read(const QString& name) const { return readFile(path(name)); }
    void write(const QString& name, const QByteArray& bytes) const {
        QFile f(path(name));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
    }
    bool exists(const QString& name) const { return QFile::exists(path(name)); }

    ToolRun run(const QStringList& arguments) const {
        QProcess process;
        process.setWorkingDirectory(dir.path());
        process.start(QStringLiteral(EPROMTOOL_BINARY), arguments);
        process.waitForFinished(-1);
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }

    QTemporaryDir dir;
    QByteArray sample;
};

struct SetCase {
    const char* id;
    const char* assignment;
    const char* line; // the report's line of the field
    int blockOffset;
};

class SetEachKind : public EditCommands, public ::testing::WithParamInterface<SetCase> {};

TEST_P(SetEachKind, ChangesOnlyThatBlockAndVerifiesClean) {
    const SetCase& c = GetParam();
    const ToolRun set = run({"set", "s.eeprom", "--id", c.id, c.assignment});
    ASSERT_EQ(set.code, 0) << set.err.toStdString();
    EXPECT_TRUE(set.out.contains(QLatin1String(c.line))) << set.out.toStdString();
    EXPECT_TRUE(set.out.contains(QStringLiteral("wrote s.eeprom, previous kept as s.eeprom.bak")));
    EXPECT_EQ(read("s.eeprom.bak"), sample);
    EXPECT_EQ(run({"verify", "s.eeprom"}).code, 0);
    const ToolRun diff = run({"diff", "s.eeprom.bak", "s.eeprom"});
    EXPECT_TRUE(diff.out.startsWith(QStringLiteral("changed block %1 at 0x%2:")
                                        .arg(QLatin1String(c.id))
                                        .arg(c.blockOffset, 4, 16, QLatin1Char('0'))))
        << diff.out.toStdString();
    EXPECT_TRUE(diff.out.contains(QStringLiteral("1 difference")) ||
                diff.out.contains(QStringLiteral("1 changed")))
        << diff.out.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Sample, SetEachKind,
    ::testing::Values(
        SetCase{"2", "SN=123456", "  SN        102345 -> 123456", 0x0000},
        SetCase{"2", "partnumber=1000.0001.07", "  PARTNUMBER  1234.5678.02 -> 1000.0001.07",
                0x0000},
        SetCase{"2", "PRODUCTDATE=2026-11-22", "  PRODUCTDATE  2021-06-15 -> 2026-11-22", 0x0000},
        SetCase{"2", "NAME=NEW BOARD", "  NAME      RF-BOARD 6G -> NEW BOARD", 0},
        SetCase{"2", "HWCODE=12", "  HWCODE    37 -> 12", 0x0000},
        SetCase{"200", "DEPARTMENT=QA", "  DEPARTMENT  KS2104 -> QA", 0x002c},
        SetCase{"200", "OPHOURS=99", "  OPHOURS   00000/012345 -> 00000/000099", 0x002c},
        SetCase{"300", "ophours=15873", "  OPHOURS   15872 -> 15873", 0x0044},
        SetCase{"100", "SERVICECODE3=1", "  SERVICECODE3  32832 -> 1", 0x0050}));

struct RefusalCase {
    QStringList arguments;
    int code;
    const char* error;
};

class SetRefusal : public EditCommands, public ::testing::WithParamInterface<RefusalCase> {};

TEST_P(SetRefusal, OneLineTheExitCodeAndNothingWritten) {
    const RefusalCase& c = GetParam();
    const ToolRun result = run(QStringList{"set", "s.eeprom"} + c.arguments);
    EXPECT_EQ(result.code, c.code);
    EXPECT_EQ(result.err.toStdString(), std::string(c.error) + "\n");
    EXPECT_TRUE(result.out.isEmpty());
    EXPECT_EQ(read("s.eeprom"), sample);
    EXPECT_FALSE(exists("s.eeprom.bak"));
}

INSTANTIATE_TEST_SUITE_P(
    BadInput, SetRefusal,
    ::testing::Values(
        RefusalCase{
            {"--id", "2"}, 64, "epromtool: set: no FIELD=VALUE given (see 'epromtool set --help')"},
        RefusalCase{{"--id", "2", "SN"},
                    64,
                    "epromtool: set: 'SN' is not an assignment FIELD=VALUE (see 'epromtool set "
                    "--help')"},
        RefusalCase{{"--id", "2", "=5"},
                    64,
                    "epromtool: set: '=5' names no field (see 'epromtool set --help')"},
        RefusalCase{{"--id", "2", "SN==5"},
                    64,
                    "epromtool: set: 'SN==5' has '==': write FIELD=VALUE (see 'epromtool set "
                    "--help')"},
        RefusalCase{{"SN=5"}, 64, "epromtool: set: missing --id N (see 'epromtool set --help')"},
        RefusalCase{{"--id", "2", "--index", "0", "SN=5"},
                    64,
                    "epromtool: set: '0' is not a block number from 1 on (see 'epromtool set "
                    "--help')"},
        RefusalCase{
            {"--id", "7", "SN=5"}, 2, "epromtool: s.eeprom: no block with id 7; nothing written"},
        RefusalCase{{"--id", "15730", "SN=5"},
                    2,
                    "epromtool: s.eeprom: block 15730 (RFBO_ALC_FREQ) is a calibration table "
                    "block without named fields; nothing written"},
        RefusalCase{{"--id", "2", "--index", "2", "SN=5"},
                    2,
                    "epromtool: s.eeprom: block 2 number 2 asked for, the image has 1; nothing "
                    "written"},
        RefusalCase{{"--id", "300", "HOURS=5"},
                    2,
                    "epromtool: s.eeprom: block 300: no field HOURS; the block has OPHOURS; "
                    "nothing written"},
        RefusalCase{{"--id", "2", "SN=1", "HWCODE=256"},
                    2,
                    "epromtool: s.eeprom: block 2: HWCODE: '256' is out of range; the field "
                    "takes a whole number from 0 to 255; nothing written"},
        RefusalCase{{"--id", "2", "--offset", "40000", "SN=1"},
                    2,
                    "epromtool: s.eeprom: 0x9c40: the chain start 0x00009c40 lies at or past the "
                    "end of the image (32768 bytes)\n"
                    "epromtool: s.eeprom: the chain is broken, nothing set"}));

TEST_F(EditCommands, DryRunPrintsTheChangeAndWritesNothing) {
    const ToolRun result = run({"set", "s.eeprom", "--id", "2", "SN=7", "--dry-run"});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.out.toStdString(), "block 2 at 0x0000 IDENT_2:\n"
                                        "  SN        102345 -> 7\n"
                                        "  checksum  0xd013 -> 0x5fd6\n"
                                        "dry run: s.eeprom left as it is\n");
    EXPECT_EQ(read("s.eeprom"), sample);
    EXPECT_FALSE(exists("s.eeprom.bak"));
}

TEST_F(EditCommands, FixRestoresTheOriginalBytesExactly) {
    QByteArray corrupted = sample;
    corrupted[4] = static_cast<char>(corrupted[4] ^ 0xFF);                // ident checksum
    corrupted[0x2cd8 + 8] = static_cast<char>(corrupted[0x2cd8 + 8] ^ 1); // CRC-32 of 20010
    write("c.eeprom", corrupted);
    EXPECT_EQ(run({"verify", "c.eeprom"}).code, 1);

    const ToolRun dry = run({"fix", "c.eeprom", "--dry-run"});
    EXPECT_EQ(dry.code, 0);
    EXPECT_EQ(read("c.eeprom"), corrupted);

    const ToolRun onlyIdent = run({"fix", "c.eeprom", "--id", "2", "-o", "i.eeprom"});
    EXPECT_EQ(onlyIdent.code, 1) << "the CRC-32 is still bad";
    EXPECT_EQ(read("c.eeprom"), corrupted);

    const ToolRun fix = run({"fix", "c.eeprom"});
    EXPECT_EQ(fix.code, 0) << fix.err.toStdString();
    EXPECT_EQ(fix.out.toStdString(),
              "block 2 at 0x0000 IDENT_2: checksum 0xd0ec -> 0xd013\n"
              "block 20010 at 0x2cd8 USER_20010: CRC-32 0x8e558d34 -> 0x8e558d35, checksum "
              "0x58e8 stays\n"
              "2 blocks repaired\n"
              "wrote c.eeprom, previous kept as c.eeprom.bak\n");
    EXPECT_EQ(read("c.eeprom"), sample);
    EXPECT_EQ(read("c.eeprom.bak"), corrupted);

    QFile::remove(path("c.eeprom.bak"));
    const ToolRun again = run({"fix", "c.eeprom"});
    EXPECT_EQ(again.code, 0);
    EXPECT_EQ(again.out.toStdString(), "nothing to fix: c.eeprom left as it is\n");
    EXPECT_FALSE(exists("c.eeprom.bak"));
}

TEST_F(EditCommands, FixRefusesErasedAndEmptyImages) {
    const struct {
        const char* name;
        QByteArray bytes;
        const char* error;
    } cases[] = {
        {"erased.eeprom", QByteArray(64, '\xFF'),
         "epromtool: erased.eeprom: 0x0000: end block reads FF FF FF FF instead of FF FF 00 00 "
         "(erased memory?), left alone\n"},
        {"empty.eeprom", QByteArray(),
         "epromtool: empty.eeprom: 0x0000: the image is empty, "
         "left alone\n"},
    };
    for (const auto& c : cases) {
        write(QLatin1String(c.name), c.bytes);
        const ToolRun result = run({"fix", QLatin1String(c.name)});
        EXPECT_EQ(result.code, 2) << c.name;
        EXPECT_EQ(result.err.toStdString(), c.error);
        EXPECT_EQ(read(QLatin1String(c.name)), c.bytes);
        EXPECT_FALSE(exists(QLatin1String(c.name) + QStringLiteral(".bak")));
    }
}

TEST_F(EditCommands, ExportEditImportChangesTheSerialNumber) {
    ASSERT_EQ(run({"export", "s.eeprom", "-o", "s.cal"}).code, 0);
    QByteArray text = read("s.cal");
    ASSERT_TRUE(text.contains("SN:              102345\n"));
    text.replace("SN:              102345\n", "SN:              555\n");
    write("s.cal", text);
    const ToolRun result = run({"import", "s.eeprom", "s.cal", "--no-backup"});
    EXPECT_EQ(result.code, 0) << result.err.toStdString();
    EXPECT_TRUE(
        result.out.contains("block 2 at 0x0000 IDENT_2: SN 102345 -> 555, checksum 0xd013 -> "))
        << result.out.toStdString();
    EXPECT_FALSE(result.out.contains("IDENT_2 (line")) << "the section is not skipped";
    const Tupsim::EepromImage image = Tupsim::EepromImage::fromBytes(read("s.eeprom"));
    EXPECT_TRUE(image.ok());
    EXPECT_EQ(image.blockBytes(0).mid(20, 4), QByteArray::fromHex("2b020000"));
    EXPECT_EQ(read("s.eeprom").mid(44), sample.mid(44));
}

TEST_F(EditCommands, OffsetKeepsEveryByteOutsideTheChain) {
    QByteArray before;
    for (int i = 0; i < 5000; ++i)
        before.append(static_cast<char>(i * 7));
    const QByteArray after(300, '\x5A');
    write("flash.bin", before + sample + after);

    const ToolRun list = run({"list", "flash.bin", "--offset", "5000"});
    EXPECT_EQ(list.code, 0);
    EXPECT_TRUE(list.out.contains("0x1388      2  IDENT_2")) << list.out.toStdString();
    EXPECT_EQ(run({"verify", "flash.bin", "--offset", "0x1388"}).code, 0);

    ASSERT_EQ(
        run({"set", "flash.bin", "--offset", "0x1388", "--id", "2", "SN=1", "--no-backup"}).code,
        0);
    const QByteArray edited = read("flash.bin");
    ASSERT_EQ(edited.size(), before.size() + sample.size() + after.size());
    EXPECT_EQ(edited.left(5000), before);
    EXPECT_EQ(edited.mid(5000 + 44), sample.mid(44) + after);
    EXPECT_NE(edited.mid(5000, 44), sample.left(44));

    const ToolRun past = run({"verify", "flash.bin", "--offset", "999999"});
    EXPECT_EQ(past.code, 2);
    const ToolRun inside = run({"verify", "flash.bin", "--offset", "3"});
    EXPECT_EQ(inside.code, 2);
    EXPECT_EQ(run({"verify", "flash.bin", "--offset", "x"}).code, 64);
}

TEST_F(EditCommands, VersionIsTheProjectVersion) {
    const ToolRun result = run({"--version"});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.out.toStdString(), "epromtool " EPROM_PROJECT_VERSION "\n");
}

} // namespace
