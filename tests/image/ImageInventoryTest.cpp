// Many images in one call: the directory walk (order, links, empty and unlistable folders), the
// batch tally, and the inventory rows read from the ident, service and statistics blocks.
#include "support/TestImages.h"

#include <HwDatablockServiceData.h>
#include <ImageBatch.h>
#include <ImageInventory.h>
#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {

void writeFile(const QString& path, const QByteArray& bytes) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

// "PATH" for a path handed on to be read, "PATH: REASON" for one handed on with its reason.
QStringList walked(const QStringList& paths, bool recursive) {
    QStringList seen;
    imageBatch::walk(paths, recursive, [&seen](const QString& path, const QString& reason) {
        seen << (reason.isEmpty() ? path : path + QStringLiteral(": ") + reason);
    });
    return seen;
}

QByteArray serviceBlock(quint16 id, unsigned short packedDate) {
    HwDatablockServiceData block(static_cast<HwEVariantEepromDatablock>(id));
    block.setServiceDate(packedDate);
    return block.getByteArrayData();
}

unsigned short packed(int year, int month, int day) {
    return static_cast<unsigned short>(((year - 1980) << 9) | (month << 5) | day);
}

} // namespace

TEST(ImageBatch, WalkIsSortedSkipsLinksAndReportsEmptyFolders) {
    QTemporaryDir dir;
    const QString root = dir.path();
    writeFile(root + "/b.eeprom", "x");
    writeFile(root + "/a.eeprom", "x");
    writeFile(root + "/sub dir/\xC3\xBC.eeprom", "x"); // ü
    writeFile(root + "/sub dir/.hidden", "x");
    writeFile(root + "/B.eeprom", "x");
    QDir().mkpath(root + "/empty/deeper");
    ASSERT_EQ(symlink("a.eeprom", QFile::encodeName(root + "/link.eeprom").constData()), 0);
    ASSERT_EQ(symlink("sub dir", QFile::encodeName(root + "/linked dir").constData()), 0);
    ASSERT_EQ(mkfifo(QFile::encodeName(root + "/pipe").constData(), 0600), 0);

    const QString u = QString::fromUtf8("\xC3\xBC");
    EXPECT_EQ(walked({root + "/"}, true),
              QStringList({root + "/B.eeprom", root + "/a.eeprom", root + "/b.eeprom",
                           root + "/sub dir/.hidden", root + "/sub dir/" + u + ".eeprom"}));
    // Named paths keep their order and spelling; a named link is followed; an empty folder
    // says so; without -r a folder goes to the reader as it is.
    EXPECT_EQ(walked({root + "/linked dir", root + "/empty", root + "/b.eeprom"}, true),
              QStringList({root + "/linked dir/.hidden", root + "/linked dir/" + u + ".eeprom",
                           root + "/empty: the directory holds no files", root + "/b.eeprom"}));
    EXPECT_EQ(walked({root + "/empty", root + "/missing"}, false),
              QStringList({root + "/empty", root + "/missing"}));
}

TEST(ImageBatch, AFolderWithoutPermissionIsReported) {
    // Root may list anything.
    if (geteuid() == 0)
        GTEST_SKIP() << "running as root, which lists any folder";
    QTemporaryDir dir;
    const QString locked = dir.path() + "/locked";
    QDir().mkpath(locked);
    chmod(QFile::encodeName(locked).constData(), 0);
    EXPECT_EQ(walked({locked}, true),
              QStringList(locked + ": cannot list the directory: permission denied"));
    chmod(QFile::encodeName(locked).constData(), 0700);
}

// How each item is read or refused and tallied, and the sample's row, show in the tool's batch
// tests.
TEST(ImageInventory, RowsComeFromTheRecordBlocks) {
    QTemporaryDir dir;
    const QString root = dir.path();
    const QByteArray sample = example("sample.eeprom");
    // The sample's ident block, then an unused service slot, two dated ones (the later first),
    // and no statistics block.
    const QByteArray ident = sample.left(44);
    writeFile(root + "/serviced.eeprom", ident + serviceBlock(200, 0) +
                                             serviceBlock(201, packed(2025, 2, 28)) +
                                             serviceBlock(202, packed(2024, 12, 31)) + endBlock());
    // The chain breaks behind the ident block: what was read before still counts.
    writeFile(root + "/broken.eeprom", ident + bytesOf({0x10, 0x27, 0x40, 0, 0, 0, 0, 0}));
    writeFile(root + "/short ident.eeprom", goodImage()); // its ident block has 16 bytes

    const QVector<InventoryRow> rows = inventory::rows({root}, true);
    ASSERT_EQ(rows.size(), 3);
    const auto cells = [&rows](int i) {
        QStringList texts;
        for (const QVariant& cell : inventoryCells(rows[i]))
            texts << (cell.isNull() ? QStringLiteral("-") : cell.toString());
        return texts.mid(1).join(QLatin1Char('|'));
    };
    EXPECT_EQ(cells(0), "broken chain|1|1234.5678.02|102345|37|2021-06-15|RF-BOARD 6G|-|-|1|"
                        "0x002c: block 10000 of 64 bytes runs past the end of the image (8 bytes "
                        "left)");
    EXPECT_EQ(cells(1), "ok|5|1234.5678.02|102345|37|2021-06-15|RF-BOARD 6G|2025-02-28|-|0|-");
    EXPECT_EQ(cells(2), "ok|4|-|-|-|-|-|-|-|0|-");
    EXPECT_EQ(rows[2].path, root + "/short ident.eeprom");

    QStringList keys;
    for (const InventoryColumn& column : inventoryColumns())
        keys << QLatin1String(column.key) + (column.numeric ? "#" : "");
    EXPECT_EQ(keys.join(QLatin1Char(',')),
              "path,verdict,blocks#,partNumber,serialNumber#,hardwareCode#,productDate,name,"
              "lastServiceDate,operatingHours#,problems#,reason");
}

// The rows of broken chains are held with the chains themselves.
TEST(ImageInventory, AHostileIdentBlockShowsItsValuesAsStored) {
    // A hostile ident block: the right id and size, every other byte 0xFF; its values are shown
    // as stored, the product date as its bits say, the name as its 14 bytes.
    QByteArray ident(44, '\xFF');
    ident.replace(0, 8, bytesOf({0x02, 0x00, 0x2C, 0x00, 0x00, 0x00, 0x00, 0x00}));
    sealChecksum(ident);
    BatchItem item;
    item.readable = true;
    item.image = EepromImage::fromBytes(ident + endBlock());
    const InventoryRow row = inventory::rowOf(item);
    EXPECT_EQ(std::make_tuple(row.partNumber, row.serialNumber, row.hardwareCode, row.productDate),
              std::make_tuple(QStringLiteral("429496.7295.255"), qint64(4294967295), 255,
                              QStringLiteral("2107-15-31")));
    EXPECT_EQ(row.name.size(), 14);
}
