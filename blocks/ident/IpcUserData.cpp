// Import and text form shared by the two opaque IPC user blocks.
#include "blocks/ident/IpcUserData.h"

#include "blocks/ident/BlockFields.h"

namespace Tupsim {
namespace ipcuser {

int importRecord(HwDatablock& block, QByteArray& image, const void* record, const Layout& layout) {
    QByteArray raw = blockfields::recordCopy(record, layout.imageSize);
    if (raw.isEmpty())
        return 1;
    const quint16 size = bytes::getLE<quint16>(raw, 2);
    const bool exact = bytes::getLE<quint16>(raw, 0) == layout.id && size == layout.imageSize;
    const bool verified = block.verifyChecksum(reinterpret_cast<unsigned short*>(raw.data()),
                                               static_cast<unsigned short>(raw.size()), true);
    if (!verified && !exact) {
        blockfields::signalRejected(1040001, layout.rejectText);
        return 1;
    }
    const int count = std::min<int>(size, layout.imageSize);
    if (image.size() < count)
        image.resize(count);
    image.replace(0, count, raw.constData(), count);
    blockfields::keepRecordChecksum(block, raw);
    return 0;
}

void print(std::ostream& out, const QByteArray& image, const Layout& layout) {
    out << "# Das sind die IPC User " << blockfields::format("%u", unsigned{layout.id})
        << " Daten\n";
    out << "ID:            IPC_USER_" << blockfields::format("%u", unsigned{layout.id}) << "\n";
    for (int offset = layout.dataOffset; offset < layout.imageSize; ++offset)
        out << "1:     " << static_cast<char>(bytes::getLE<quint8>(image, offset)) << "\n";
    out << "\n";
}

} // namespace ipcuser
} // namespace Tupsim
