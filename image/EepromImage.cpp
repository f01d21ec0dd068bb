// A whole EEPROM image: the chain walk, the checks of every block and the block replacement.
#include "EepromImage.h"

#include "HwDatablock.h"
#include "ImageSource.h"
#include "core/BlockHeader.h"
#include "core/Checks.h"
#include "image/TableKinds.h"

#include <QFile>
#include <QFileInfo>
#include <cstdlib>
#ifdef __linux__
#include <sys/mman.h>
#endif

namespace Tupsim {

namespace {

QString bytesText(int count) {
    return count == 1 ? QStringLiteral("1 byte") : QStringLiteral("%1 bytes").arg(count);
}

const unsigned char* at(const QByteArray& bytes, int offset) {
    return reinterpret_cast<const unsigned char*>(bytes.constData()) + offset;
}

} // namespace

QString hex16(unsigned value) {
    return QStringLiteral("0x%1").arg(value, 4, 16, QLatin1Char('0'));
}

QString hex32(unsigned value) {
    return QStringLiteral("0x%1").arg(value, 8, 16, QLatin1Char('0'));
}

EepromImage::EepromImage() {
    walk();
}

EepromImage EepromImage::fromBytes(const QByteArray& bytes, int chainStart) {
    EepromImage result;
    result.image = bytes;
    result.start = chainStart;
    result.walk();
    return result;
}

namespace {

// The whole file in a buffer of its own. A large image is read into memory marked for huge
// pages: faulting in 4 KiB pages one by one would cost more than reading the file.
bool readWhole(QFile& file, qint64 size, QByteArray& content, std::shared_ptr<char>& storage) {
    constexpr std::size_t kHugePage = 2 * 1024 * 1024;
#ifdef __linux__
    if (static_cast<std::size_t>(size) >= kHugePage) {
        const std::size_t capacity =
            (static_cast<std::size_t>(size) + 1 + kHugePage - 1) / kHugePage * kHugePage;
        storage.reset(static_cast<char*>(std::aligned_alloc(kHugePage, capacity)), &std::free);
        if (storage) {
            madvise(storage.get(), capacity, MADV_HUGEPAGE);
            // One byte more than the size said: a file that grew meanwhile is noticed.
            const qint64 got = file.read(storage.get(), size + 1);
            if (got < 0)
                return false;
            content = QByteArray::fromRawData(storage.get(), static_cast<int>(got));
            return true;
        }
    }
#endif
    storage.reset();
    content = file.read(size + 1);
    return file.error() == QFileDevice::NoError;
}

} // namespace

Outcome EepromImage::fromFile(const QString& path, EepromImage& result, int chainStart) {
    Outcome read = readFile(path, result, chainStart);
    if (!read.ok())
        read.message = QStringLiteral("cannot read %1: %2").arg(path, read.message);
    return read;
}

Outcome EepromImage::readFile(const QString& path, EepromImage& result, int chainStart) {
    QString reason;
    QFile file(path);
    QByteArray content;
    std::shared_ptr<char> storage;
    // Opened first and asked why only when that fails: one file system call less per image
    // when many are read.
    const bool opened = file.open(QIODevice::ReadOnly);
    qint64 size = opened ? file.size() : 0;
    // Devices are read like files, once, by their real size: a block device tells it through
    // the device (its file size is 0), a source that tells none is read up to one byte past
    // the limit.
    if (opened && (size == 0 || file.isSequential())) {
        ImageSource source;
        const Outcome inspected = inspectSource(path, source);
        if (!inspected.ok())
            return inspected;
        size = source.size < 0 ? MaxFileSize : source.size;
    }
    if (!opened) {
        const QFileInfo info(path);
        reason = !info.exists() ? QStringLiteral("No such file or directory")
                 : info.isDir() ? QStringLiteral("Is a directory")
                                : file.errorString();
    } else if (size > MaxFileSize)
        reason = QStringLiteral("%1 bytes, too large for an EEPROM image (at most %2)")
                     .arg(size)
                     .arg(MaxFileSize);
    else if (!readWhole(file, size, content, storage))
        reason = file.errorString();
    else if (content.size() > size)
        reason =
            QStringLiteral("too large for an EEPROM image (more than %1 bytes)").arg(MaxFileSize);
    if (!reason.isEmpty())
        return Outcome::failure(ResultCode::Unreadable, reason);
    result = fromBytes(content, chainStart);
    result.storage = storage;
    return Outcome::success();
}

void EepromImage::walk() {
    blocks.clear();
    broken.clear();
    used = 0;
    auto fail = [this](int offset, const QString& text) {
        broken.append({offset, ResultCode::ChainBroken, text});
    };
    if (image.isEmpty())
        return fail(0, QStringLiteral("the image is empty"));

    if (start < 0 || start >= image.size())
        return fail(qMax(start, 0),
                    QStringLiteral("the chain start %1 lies at or past the end of the image (%2)")
                        .arg(hex32(static_cast<unsigned>(start)), bytesText(image.size())));

    // Every step moves at least 8 bytes on, so the walk ends after at most size / 8 steps.
    int offset = start;
    for (;;) {
        const int left = image.size() - offset;
        if (left == 0)
            return fail(offset,
                        QStringLiteral("no end block: the chain runs to the end of the image"));
        const header::BlockHeader head = header::read(image, static_cast<std::uint64_t>(offset));
        if (left >= 2 && head.isEnd()) {
            if (left < header::EndSize)
                return fail(
                    offset,
                    QStringLiteral("end block cut short: %1 of 4 left").arg(bytesText(left)));
            // Erased memory reads FF FF FF FF.
            if (!head.isIntactEnd())
                return fail(offset,
                            QStringLiteral("end block reads %1 instead of FF FF 00 00%2")
                                .arg(QString::fromLatin1(
                                         image.mid(offset, header::EndSize).toHex(' ').toUpper()),
                                     head.size == 0xFFFF ? QStringLiteral(" (erased memory?)")
                                                         : QString()));
            ImageBlock end;
            end.offset = offset;
            end.id = head.id;
            end.size = header::EndSize;
            end.isEnd = true;
            blocks.append(end);
            used = offset + header::EndSize;
            return;
        }
        if (left < header::Size)
            return fail(
                offset,
                QStringLiteral("block header cut short: %1 of 8 left").arg(bytesText(left)));
        const quint16 id = head.id;
        const quint16 size = head.size;
        if (size < header::Size)
            return fail(offset, QStringLiteral("block %1 has size %2, less than its 8-byte header")
                                    .arg(id)
                                    .arg(size));
        if (size > left)
            return fail(offset,
                        QStringLiteral("block %1 of %2 runs past the end of the image (%3 left)")
                            .arg(QString::number(id), bytesText(size), bytesText(left)));
        ImageBlock entry;
        entry.offset = offset;
        entry.id = id;
        entry.size = size;
        entry.alignment = head.alignment;
        check(entry);
        blocks.append(entry);
        offset += size;
    }
}

void EepromImage::check(ImageBlock& entry) const {
    const header::BlockHeader head = header::read(image, static_cast<std::uint64_t>(entry.offset));
    const unsigned char* block = at(image, entry.offset);
    const auto size = static_cast<std::size_t>(entry.size);
    entry.hasChecksum = true;
    entry.storedChecksum = head.checksum;
    entry.computedChecksum = checks::blockChecksum(block, size);
    entry.checksumOk = entry.computedChecksum == entry.storedChecksum;

    const BlockKind kind = blockCatalogue::kindOf(entry.id);
    if (kind == BlockKind::SelfDescribing) {
        entry.hasCrc = true;
        entry.storedCrc = head.crc32;
        entry.computedCrc = checks::crc32Skipping4to11(block, size);
        if (entry.size <= 11)
            entry.crcOk = false;
        else if (entry.storedCrc == entry.computedCrc)
            entry.crcOk = true;
        else
            entry.crcOk = entry.eventCounter = head.holdsEventCountMark();
    }
    if (kind == BlockKind::CalibrationTable)
        entry.capacity = tableKinds::overCapacity(entry.id, at(image, entry.offset), size);
}

QByteArray EepromImage::blockBytes(int index) const {
    if (index < 0 || index >= blocks.size())
        return QByteArray();
    return image.mid(blocks[index].offset, blocks[index].size);
}

BlockKindInfo EepromImage::kindOf(int index) const {
    if (index < 0 || index >= blocks.size())
        return BlockKindInfo();
    return blockCatalogue::describe(blocks[index].id);
}

QString EepromImage::name(int index) const {
    return QString::fromStdString(kindOf(index).name());
}

std::unique_ptr<HwDatablock> EepromImage::makeBlock(int index) const {
    if (index < 0 || index >= blocks.size())
        return nullptr;
    return blockCatalogue::makeBlock(blocks[index].id, blockBytes(index));
}

int EepromImage::find(quint16 id, int from) const {
    for (int i = qMax(from, 0); i < blocks.size(); ++i)
        if (blocks[i].id == id)
            return i;
    return -1;
}

QVector<ImageProblem> EepromImage::problems() const {
    QVector<ImageProblem> found;
    for (const ImageBlock& entry : blocks) {
        if (entry.ok())
            continue;
        const QString block = QStringLiteral("block %1: ").arg(entry.id);
        if (!entry.checksumOk)
            found.append(
                {entry.offset, ResultCode::ChecksumFailed,
                 block + QStringLiteral("checksum BAD (stored %1, computed %2)")
                             .arg(hex16(entry.storedChecksum), hex16(entry.computedChecksum))});
        // A block of 11 bytes or less fails even where the bytes it has agree.
        if (!entry.crcOk && entry.size <= 11)
            found.append(
                {entry.offset, ResultCode::CrcFailed,
                 block + QStringLiteral("CRC-32 BAD (%1 bytes cannot hold one)").arg(entry.size)});
        else if (!entry.crcOk)
            found.append({entry.offset, ResultCode::CrcFailed,
                          block + QStringLiteral("CRC-32 BAD (stored %1, computed %2)")
                                      .arg(hex32(entry.storedCrc), hex32(entry.computedCrc))});
        if (!entry.capacity.ok())
            found.append({entry.offset, entry.capacity.code, block + entry.capacity.message});
    }
    return found + broken;
}

bool EepromImage::ok() const {
    if (chainBroken())
        return false;
    for (const ImageBlock& entry : blocks)
        if (!entry.ok())
            return false;
    return true;
}

int EepromImage::endOffset() const {
    if (chainBroken() || blocks.isEmpty() || !blocks.last().isEnd)
        return -1;
    return blocks.last().offset;
}

Outcome EepromImage::replaceBlock(int index, const QByteArray& block) {
    QMap<int, QByteArray> one;
    one.insert(index, block);
    return replaceBlocks(one);
}

Outcome EepromImage::replaceBlocks(const QMap<int, QByteArray>& replacements) {
    if (chainBroken())
        return Outcome::failure(ResultCode::ChainBroken, QStringLiteral("the chain is broken"));
    for (auto it = replacements.begin(); it != replacements.end(); ++it) {
        const QByteArray& block = it.value();
        if (it.key() < 0 || it.key() >= blocks.size() || blocks[it.key()].isEnd)
            return Outcome::failure(ResultCode::UnknownBlock,
                                    QStringLiteral("there is no data block %1").arg(it.key()));
        const header::BlockHeader head = header::read(block);
        if (block.size() < header::Size || head.size != block.size() || head.isEnd())
            return Outcome::failure(
                ResultCode::Corrupt,
                QStringLiteral("the new block %1 of %2 bytes is not a block image")
                    .arg(it.key())
                    .arg(block.size()));
    }
    QByteArray rebuilt = image.left(start);
    rebuilt.reserve(image.size());
    for (int i = 0; i < blocks.size(); ++i)
        rebuilt += replacements.contains(i) ? replacements.value(i)
                                            : image.mid(blocks[i].offset, blocks[i].size);
    if (rebuilt.size() > image.size())
        return Outcome::failure(ResultCode::NoRoom,
                                QStringLiteral("the new chain needs %1 bytes, the image holds %2")
                                    .arg(rebuilt.size())
                                    .arg(image.size()));
    // The free bytes follow as they were: a grown chain cuts them short at the end, a shrunk
    // one is filled up with erased bytes.
    rebuilt += image.mid(used);
    if (rebuilt.size() > image.size())
        rebuilt.truncate(image.size());
    else if (rebuilt.size() < image.size())
        rebuilt += QByteArray(image.size() - rebuilt.size(), '\xFF');
    image = rebuilt;
    walk();
    return Outcome::success();
}

} // namespace Tupsim
