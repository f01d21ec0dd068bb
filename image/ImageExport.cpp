// An EEPROM image written as an ASCII calibration file, block by block.
#include "ImageExport.h"

#include "HwDatablock2Edition.h"
#include "HwSDataBlockCfg.h"
#include "image/TableKinds.h"

#include <sstream>

namespace Tupsim {

namespace {

constexpr int kBytesPerLine = 16;

// Comment lines of hexadecimal bytes under "# CLASS ID, SIZE bytes" and the remark.
std::string hexForm(const BlockKindInfo& kind, const QByteArray& block, const QString& remark) {
    std::ostringstream out;
    out << "# " << kind.className << ' ' << kind.id << ", " << block.size() << " bytes"
        << remark.toStdString() << '\n';
    for (int at = 0; at < block.size(); at += kBytesPerLine)
        out << "# " << block.mid(at, kBytesPerLine).toHex(' ').toStdString() << '\n';
    out << '\n';
    return out.str();
}

} // namespace

std::string exportBlock(const EepromImage& image, int index) {
    if (index < 0 || index >= image.blockCount())
        return std::string();
    const ImageBlock& entry = image.block(index);
    const BlockKindInfo kind = image.kindOf(index);
    const QByteArray bytes = image.blockBytes(index);
    // A table prints as many rows and columns as its counts claim, which a damaged image may
    // set to millions: such a block is written as bytes.
    if (!entry.capacity.ok())
        return hexForm(kind, bytes, QStringLiteral(": ") + entry.capacity.message);
    std::ostringstream out;
    if (kind.kind == BlockKind::SelfDescribing) {
        HwDatablock2Edition block;
        block.setDataWithoutChecksumCheck(reinterpret_cast<const unsigned char*>(bytes.constData()),
                                          static_cast<unsigned int>(bytes.size()));
        block.printToStream2Edition(out, HwSDataBlockCfg());
        return out.str();
    }
    // Opaque blocks print a plain dump, and some records print nothing: neither is a section.
    if (kind.known() && kind.kind != BlockKind::Opaque)
        image.makeBlock(index)->printToStream(out);
    if (out.tellp() <= 0)
        return hexForm(kind, bytes, QString());
    return out.str();
}

std::string exportImage(const EepromImage& image, const QSet<quint16>& ids) {
    std::string text;
    for (int i = 0; i < image.blockCount(); ++i)
        if (ids.isEmpty() || ids.contains(image.block(i).id))
            text += exportBlock(image, i);
    return text;
}

} // namespace Tupsim
