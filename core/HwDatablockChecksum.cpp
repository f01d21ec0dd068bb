// The 16-bit block checksum and the CRC-32, both taken over the reference form of an image.
#include "HwDatablock.h"

#include "HwDebug.h"
#include "HwError.h"
#include "IDebugServer.h"
#include "core/BlockHeader.h"
#include "core/Checks.h"
#include "core/ConversionScope.h"
#include "core/Converters.h"
#include "core/HwBytes.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace Tupsim {

namespace {

void oddSizeMessageBox() {
    debugServer()->debugMessageBox("Compute datablock checksum", "Block size not an even number !",
                                   true, HwDebug::ModuleNumber, 17, 0, 0);
}

const unsigned char* view(const char* bytes) {
    return reinterpret_cast<const unsigned char*>(bytes);
}

// Lends a check the reference form of a block's image. A block in the reference form lends its
// own image, and nothing is copied. Otherwise a copy of the block is converted and its image
// stands in for the block's during the check. When the check is done, the block is left exactly
// as converting it there and back would have left it: where the way back undoes the way there,
// the block keeps its own image and only takes what the check wrote into the header; otherwise
// the copy takes the way back and the block takes the copy.
class ReferenceLoan {
public:
    ReferenceLoan(HwDatablock& block, QByteArray HwDatablock::*image,
                  HwEDataFormatTyp HwDatablock::*format)
        : block(block), image(image), format(format) {
        original = block.getDataFormatTyp();
        id = static_cast<unsigned short>(block.getId());
        // An image mid-conversion is taken as it stands: the rule converting it is running.
        if (original == HwDataFormatReference || conversion::inProgress(block))
            return;
        copy.emplace(block);
        block.swapDataTo(HwDataFormatReference, id, &*copy);
        if (copy->getDataFormatTyp() != HwDataFormatReference) {
            copy.reset(); // no conversion applies: the block is checked as it stands
            return;
        }
        std::swap(block.*image, (*copy).*image);
        block.*format = HwDataFormatReference;
    }
    ReferenceLoan(const ReferenceLoan&) = delete;
    ReferenceLoan& operator=(const ReferenceLoan&) = delete;
    ~ReferenceLoan() { giveBack(); }

    unsigned short blockId() const { return id; }

    void giveBack() {
        if (!copy)
            return;
        std::swap(block.*image, (*copy).*image);
        block.*format = original;
        // The way back is chosen from the reference form, as the conversion chooses it.
        const HwEDatablockClassTyp classBefore = copy->getDatablockClassTyp();
        const bool genericBack = copy->verifyChecksum32();
        if (copy->getDatablockClassTyp() != classBefore)
            block.setDatablockClassTyp(copy->getDatablockClassTyp());
        const bool genericThere =
            original == HwDataFormatConverted && id >= header::FirstSelfDescribingId;
        if (genericBack && genericThere) {
            takeHeaderWrites(); // the generic pass is its own inverse
        } else if (genericBack) {
            copy->swapBlock(original, id, &*copy);
            block.*image = (*copy).*image;
            block.setDataFormatTyp(original);
        } else {
            conversion::convertById(original, id, *copy);
            block.setDataWithoutChecksumCheck(&*copy);
        }
        copy.reset();
    }

private:
    // The generic pass leaves the header as it is, so the check's writes there (the checksum
    // field) are all that tells the copy from the block.
    void takeHeaderWrites() {
        const QByteArray& lent = (*copy).*image;
        QByteArray& own = block.*image;
        const int end =
            std::min({lent.size(), own.size(), static_cast<int>(header::Crc32Offset + 4)});
        for (int i = 0; i < end; ++i)
            if (own.at(i) != lent.at(i))
                own[i] = lent.at(i);
    }

    HwDatablock& block;
    QByteArray HwDatablock::*image;
    HwEDataFormatTyp HwDatablock::*format;
    HwEDataFormatTyp original = HwDataFormatReference;
    unsigned short id = 0;
    std::optional<HwDatablock> copy;
};

} // namespace

const unsigned int HwDatablock::sTable[256] = {
#include "core/Crc32Table.def"
};

unsigned short HwDatablock::computeChecksum(unsigned short* words, unsigned short size) {
    if (size % 2 != 0)
        oddSizeMessageBox();
    if (words == nullptr)
        return 0;
    return checks::blockChecksum(reinterpret_cast<const unsigned char*>(words), size);
}

unsigned short HwDatablock::computeChecksum() {
    ReferenceLoan loan(*this, &HwDatablock::data, &HwDatablock::dataFormat);
    unsigned int size = getBlockSize();
    if (size % 2 != 0)
        oddSizeMessageBox();
    setChecksum(0);
    if (size > static_cast<unsigned int>(data.size())) {
        printHwError("HwDatablock::computeChecksum: size mismatch (blockId %d swapBlockId %d "
                     "blockSize %d / arraySize %d)\n",
                     loan.blockId(), loan.blockId(), size, static_cast<int>(data.size()));
        size = static_cast<quint16>(data.size());
    }
    const quint16 sum = checks::wordSum(view(data.constData()), size);
    loan.giveBack();
    return static_cast<unsigned short>(-sum);
}

bool HwDatablock::verifyChecksum(unsigned short* words, unsigned short size, bool) {
    if (words != nullptr &&
        checks::wordSum(reinterpret_cast<const unsigned char*>(words), size) == 0)
        return true;
    if (chkdbg(HwDebug::Eeprom, HwDebug::Warning))
        dbgout(
            QStringLiteral("verifyChecksum(): Wrong checksum! at EepromBlockId %1").arg(getId()));
    return false;
}

bool HwDatablock::verifyChecksum() {
    bool passed = false;
    unsigned int size = 0;
    unsigned short id = 0;
    {
        ReferenceLoan loan(*this, &HwDatablock::data, &HwDatablock::dataFormat);
        id = loan.blockId();
        size = getBlockSize();
        if (size > static_cast<unsigned int>(data.size())) {
            printHwError("HwDatablock::verifyChecksum: size mismatch (blockId %d swapBlockId %d "
                         "blockSize %d / arraySize %d)\n",
                         id, id, size, static_cast<int>(data.size()));
            size = static_cast<quint16>(data.size());
        }
        passed = size != 0 && checks::wordSum(view(data.constData()), size) == 0;
        if (!passed && chkdbg(HwDebug::Eeprom, HwDebug::Warning))
            dbgout(QStringLiteral("verifyChecksum(): Wrong checksum! at EepromBlockId %1").arg(id));
    }
    if (passed)
        return true;
    if (size % 4 != 0)
        printHwError("Alignment of Block %d is wrong!\n", id);
    return false;
}

unsigned int HwDatablock::computeChecksum32(unsigned char* source, unsigned int length) {
    if (source == nullptr || length == 0)
        return 0;
    if (getDataFormatTyp() == HwDataFormatReference)
        return checks::crc32Skipping4to11(source, length);
    // The caller's buffer stays as it is: a copy is converted.
    std::vector<char> copy(source, source + length);
    swapBlock(HwDataFormatReference, copy.data(), static_cast<unsigned short>(length));
    return checks::crc32Skipping4to11(view(copy.data()), length);
}

unsigned int HwDatablock::computeChecksum32() {
    unsigned int length = getBlockSize();
    if (length > static_cast<unsigned int>(data.size()))
        length = static_cast<unsigned int>(data.size());
    // Read only: no detach of a shared image.
    return computeChecksum32(reinterpret_cast<unsigned char*>(const_cast<char*>(data.constData())),
                             length);
}

unsigned int HwDatablock::getChecksum32() {
    if (data.size() < 6)
        return 0;
    // The field may reach past a short image: the missing bytes count as zero.
    unsigned char field[4] = {0, 0, 0, 0};
    const int at = static_cast<int>(header::Crc32Offset);
    for (int i = 0; i < 4 && at + i < data.size(); ++i)
        field[i] = static_cast<unsigned char>(data.at(at + i));
    return bytes::getLE<quint32>(reinterpret_cast<const char*>(field), 4, 0);
}

bool HwDatablock::verifyChecksum32() {
    const unsigned int stored = getChecksum32();
    if (getBlockSize() <= 11)
        return false;
    if (stored == computeChecksum32())
        return true;
    if (stored == getMagicIdentifierEventCount()) {
        setDatablockClassTyp(HwDatablockClassEventCount);
        return true;
    }
    if (chkdbg(HwDebug::Eeprom, HwDebug::Warning))
        dbgout(
            QStringLiteral("verifyChecksum(): Wrong checksum! at EepromBlockId %1").arg(getId()));
    return false;
}

bool HwDatablock::verifyChecksum32(unsigned char* source, unsigned int length) {
    std::fputs("OUCH!!! Wieos bin ich jetzert hier?\n", stderr);
    unsigned int stored = 0;
    unsigned int computed = 65535;
    if (length > 11) {
        stored = getChecksum32();
        computed = computeChecksum32(source, length);
        if (stored != computed && chkdbg(HwDebug::Eeprom, HwDebug::Warning))
            dbgout(QStringLiteral("verifyChecksum(): Wrong checksum! at EepromBlockId %1")
                       .arg(getId()));
    }
    return stored == computed;
}

} // namespace Tupsim
