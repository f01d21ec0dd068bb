// Writes the seed inputs of the fuzz targets: every block of the sample image, a fresh image of
// every known id, each table class's printout, self-describing blocks of every element type, and
// the sample image with its calibration file. Usage: fuzz_seeds SAMPLE.eeprom SAMPLE.cal OUTDIR
#include "TableClasses.h"
#include "core/BlockHeader.h"

#include <BlockCatalogue.h>
#include <CommonDatablockAccess.h>
#include <EepromImage.h>

#include <QDir>
#include <QFile>
#include <algorithm>
#include <cstdio>
#include <memory>
#include <sstream>
#include <type_traits>

using namespace Tupsim;

namespace {

QString outDir;
int tableIndex = 0;

void writeSeed(const QString& target, const QString& name, const QByteArray& bytes) {
    QDir().mkpath(outDir + "/" + target);
    QFile file(outDir + "/" + target + "/" + name);
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
}

QByteArray readAll(const char* path) {
    QFile file(QString::fromLocal8Bit(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray le16(unsigned value) {
    QByteArray bytes(2, '\0');
    bytes[0] = char(value & 0xFF);
    bytes[1] = char(value >> 8);
    return bytes;
}

// A table of two rows and three columns (as far as the class holds them), printed.
struct SeedAction {
    template <class Block, class Make> static void run(const std::string&, Make make) {
        const fuzz::Capacity capacity = fuzz::capacityOf<Block>();
        std::unique_ptr<Block> block(make());
        const unsigned rows = std::min(2u, capacity.rows);
        const unsigned cols = std::min(3u, capacity.cols);
        block->setRowCount(rows);
        block->setColCount(cols);
        for (unsigned r = 0; r < rows; ++r)
            for (unsigned c = 0; c < cols; ++c)
                block->setCalValue(
                    static_cast<std::remove_reference_t<decltype(block->getBlock()->values[0][0])>>(
                        r * 10 + c + 1),
                    r, c);
        std::ostringstream printed;
        block->printToStream(printed);
        const int index = tableIndex++;
        writeSeed("text", QString("table_%1").arg(index, 3, 10, QChar('0')),
                  QByteArray(1, char(index)) + QByteArray::fromStdString(printed.str()));
    }
};

HwSBlockDescription tableOf(quint32 type) {
    HwSBlockDescription table;
    table.rowCount = 2;
    table.colCount = 2;
    table.rowIdType = type;
    table.colIdType = 19; // CHAR5
    table.colTypes = {type, 25};
    const int width = type == 25 ? 3 : int(CommonDatablockAccess::getSizeInBytes(ETypeId(type)));
    table.values.resize(2);
    for (int r = 0; r < 2; ++r) {
        QByteArray value;
        for (int i = 0; i < width; ++i)
            value.append(char(type == 25 ? 'a' + i + r : 0x11 * (r + 1) + i));
        table.rowIds.append(value).append(type == 25 ? QByteArray(1, '\0') : QByteArray());
        if (width > 0)
            table.values[0].push_back(value);
        table.values[1].push_back(QByteArray("t") + char('0' + r));
    }
    table.colIds = QByteArray("A\0\0\0\0B\0\0\0\0", 10);
    return table;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: fuzz_seeds SAMPLE.eeprom SAMPLE.cal OUTDIR\n");
        return 2;
    }
    const QByteArray sample = readAll(argv[1]);
    const QByteArray calibration = readAll(argv[2]);
    outDir = QString::fromLocal8Bit(argv[3]);
    const EepromImage image = EepromImage::fromBytes(sample);
    const QByteArray used = sample.left(image.bytesUsed());
    const int end = image.endOffset();
    const QByteArray endBlock = end >= 0 ? sample.mid(end, image.bytesUsed() - end) : QByteArray();

    for (int i = 0; i < image.blockCount(); ++i) {
        const QByteArray block = image.blockBytes(i);
        const QString name = QString("sample_%1_%2").arg(i).arg(image.block(i).id);
        writeSeed("block", name, QByteArray(3, '\0') + block);
        if (image.block(i).id >= header::FirstSelfDescribingId)
            writeSeed("selfdescribing", name, QByteArray(1, '\1') + block);
        if (!image.block(i).isEnd)
            writeSeed("image", name,
                      le16(block.size() + endBlock.size()) + block + endBlock + calibration);
    }
    writeSeed("image", "sample", le16(used.size()) + used + calibration);
    for (quint16 id : blockCatalogue::knownIds()) {
        const QByteArray fresh = blockCatalogue::makeBlock(id, QByteArray())->getByteArrayData();
        writeSeed("block", QString("fresh_%1").arg(id), QByteArray(3, '\0') + fresh.left(4093));
    }
    fuzz::tableActions<SeedAction>();
    for (fuzz::TableAction action : fuzz::tableActions<SeedAction>())
        action(std::string());
    for (quint32 type = 1; type <= 27; ++type) {
        CommonDatablockAccess builder(nullptr, nullptr, false);
        builder.addBlock(tableOf(type));
        builder.addBlock(tableOf(type == 1 ? 2 : 1));
        writeSeed("selfdescribing", QString("type_%1").arg(type),
                  QByteArray(1, '\1') + builder.write(header::FirstSelfDescribingId, 100));
    }
    return 0;
}
