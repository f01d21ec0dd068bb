// A whole EEPROM image: its chain of blocks walked once, each block checked, and what is wrong
// with it recorded by offset. Opening never fails and constructs no block object.
#pragma once

#include "BlockCatalogue.h"
#include "EpromDatablockGlobal.h"
#include "Outcome.h"

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QVector>
#include <memory>

namespace Tupsim {

class HwDatablock;

// One thing found wrong in an image, at the offset where it was found.
struct ImageProblem {
    int offset = 0;
    ResultCode code = ResultCode::Corrupt; // ChecksumFailed, CrcFailed, OverCapacity, ChainBroken
    QString text; // "block 15731: checksum BAD (stored 0x1234, computed 0x4321)"
};

// One block of the chain with the outcome of its checks.
struct ImageBlock {
    int offset = 0; // from the start of the image
    quint16 id = 0;
    int size = 0; // bytes the block occupies, header included (4 for the end block)
    quint16 alignment = 0;
    bool isEnd = false;

    bool hasChecksum = false; // the end block has no checksum of its own
    quint16 storedChecksum = 0;
    quint16 computedChecksum = 0;
    bool checksumOk = true;

    bool hasCrc = false; // self-describing blocks carry a CRC-32 at byte 8
    quint32 storedCrc = 0;
    quint32 computedCrc = 0;
    bool crcOk = true;
    bool eventCounter = false; // the CRC field holds the event-counter mark instead of a CRC

    // OverCapacity, with "counts 5*3 exceed the capacity 4*10", for a calibration table whose
    // counts exceed what its class can hold.
    Outcome capacity;

    bool ok() const { return checksumOk && crcOk && capacity.ok(); }
};

class EPROMDATABLOCK_EXPORT EepromImage {
public:
    // An empty image: one problem, "the image is empty".
    EepromImage();

    // Walks the chain of `bytes` from byte `chainStart` on; the image keeps all of `bytes` as
    // they are, and block offsets count from the start of `bytes`. A start at or past the end
    // is a broken chain.
    static EepromImage fromBytes(const QByteArray& bytes, int chainStart = 0);
    // Reads a whole file of at most MaxFileSize bytes into `image`; Unreadable ("cannot read
    // PATH: REASON") when it cannot.
    static Outcome fromFile(const QString& path, EepromImage& image, int chainStart = 0);
    // As fromFile, with only the reason as message ("No such file or directory"), for reports
    // that show the path apart.
    static Outcome readFile(const QString& path, EepromImage& image, int chainStart = 0);
    static constexpr qint64 MaxFileSize = 16 * 1024 * 1024;

    const QByteArray& bytes() const { return image; }
    // Where the chain starts; the bytes before it are never changed.
    int chainStart() const { return start; }
    int size() const { return image.size(); }

    // The blocks in chain order; the end block, when found, is the last one and counts as a
    // block: every count of blocks the library, the tool and the Python module show includes it.
    int blockCount() const { return blocks.size(); }
    const ImageBlock& block(int index) const { return blocks[index]; }
    // The block's own bytes, exactly its size.
    QByteArray blockBytes(int index) const;
    // What the catalogue knows about the block's id.
    BlockKindInfo kindOf(int index) const;
    // The block's text id where it has one, else its class name.
    QString name(int index) const;
    // The block as an object of its library class, loaded as it is (no checksum check).
    std::unique_ptr<HwDatablock> makeBlock(int index) const;
    // Index of the first block with `id` at or after `from`; -1 when there is none.
    int find(quint16 id, int from = 0) const;

    // Failed checks in chain order, then what broke the chain.
    QVector<ImageProblem> problems() const;
    // What broke the chain; empty when the chain is whole.
    const QVector<ImageProblem>& chainProblems() const { return broken; }
    bool chainBroken() const { return !broken.isEmpty(); }
    // True when the chain is whole and every block passes its checks.
    bool ok() const;

    // Offset of the end block, -1 when there is none.
    int endOffset() const;
    // Bytes up to and including the end block; 0 when the chain is broken.
    int bytesUsed() const { return used; }
    // Bytes behind the end block; 0 when the chain is broken.
    int bytesFree() const { return chainBroken() ? 0 : image.size() - used; }

    // Replaces block `index` with `block` (a whole image of one block, header included). The
    // bytes before the chain stay as they are, and the image keeps its length: the free bytes
    // follow the new end block as they were, cut short at the end of the image when the chain
    // grew, filled up with 0xFF there when it shrank. ChainBroken, UnknownBlock (the index is
    // not a data block), Corrupt (the new block is not a block image) or NoRoom (the chain
    // would no longer fit), with the image unchanged.
    Outcome replaceBlock(int index, const QByteArray& block);
    // Replaces several blocks at once, by index; all or nothing.
    Outcome replaceBlocks(const QMap<int, QByteArray>& replacements);

private:
    void walk();
    void check(ImageBlock& entry) const;

    QByteArray image;
    std::shared_ptr<char> storage; // the buffer `image` was read into, where it has one
    QVector<ImageBlock> blocks;
    QVector<ImageProblem> broken;
    int used = 0;
    int start = 0;
};

// Offsets and 16-bit values as "0x" and four hexadecimal digits, 32-bit values with eight.
EPROMDATABLOCK_EXPORT QString hex16(unsigned value);
EPROMDATABLOCK_EXPORT QString hex32(unsigned value);

} // namespace Tupsim
