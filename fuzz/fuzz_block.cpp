// Fuzz target: a block image through the class of every old-style id: construction, checksum
// checks, byte-order conversion both ways, and printing through the class and the interpreter.
#include "FuzzSupport.h"

#include <BlockCatalogue.h>
#include <HwDatablockOldStyleInterpreter.h>

#include "core/BlockHeader.h"
#include "directory/Catalogue.h"
#include "templates/TextFormat.h"

#include <algorithm>
#include <cstring>
#include <sstream>
#include <vector>

using namespace Tupsim;

namespace {

const std::vector<quint16>& ids() {
    static const std::vector<quint16> known = blockCatalogue::knownIds();
    return known;
}

HwDatablockOldStyleInterpreter& interpreter() {
    static HwDatablockOldStyleInterpreter instance;
    return instance;
}

// Header fields and checks; the printout when asked for.
void exercise(HwDatablock& block, bool print) {
    block.getId();
    block.getBlockSize();
    block.getChecksum();
    block.getAlignment();
    block.computeChecksum();
    block.verifyChecksum();
    block.getDataFormatTyp();
    if (print) {
        std::ostringstream out;
        block.printToStream(out);
    }
}

// Whether printing `image` as a table stays within the target's time limit. Counts of up to a
// million cells print whole, zeros beyond the table included: three such printouts of one input
// take seconds under the sanitizers. The unit tests print those; the target prints every table
// whose counts name at most 65,536 cells (every capacity and more) and every one whose counts
// name more than the printers' limit, which they bound by the image.
bool printable(quint16 id, const QByteArray& image) {
    const catalogue::Entry* entry = catalogue::find(id);
    if (entry == nullptr || !entry->inDirectory() ||
        entry->info.tableTemplate == TableTemplate::None)
        return true;
    const int at = entry->countsOffset;
    // A count word that the image holds only in part reads as 0, as the class reads it.
    const auto count = [&image](int from) {
        quint32 value = 0;
        if (from + 4 > image.size())
            return value;
        for (int i = 3; i >= 0; --i)
            value = value << 8 | quint8(image[from + i]);
        return value;
    };
    const quint64 cells = quint64(count(at)) * std::max<quint32>(count(at + 4), 1);
    return cells <= 65536 || cells > detail::kMaxPrintedCells;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::quietHost();
    fuzz::Input input(data, size);
    const unsigned selector = input.word();
    const unsigned flags = input.byte();
    QByteArray image = input.rest();
    // The block's own id when a class of the directory knows it, else (or when the input asks
    // for it) the id the selector picks, written into the header.
    const quint16 own = image.size() >= 2 ? quint16(quint8(image[0]) | quint8(image[1]) << 8) : 0;
    const bool keepOwn = !(flags & 1) && own < header::FirstSelfDescribingId &&
                         blockCatalogue::kindOf(own) != BlockKind::Unknown;
    const quint16 id = keepOwn ? own : ids()[selector % ids().size()];
    if (!keepOwn && image.size() >= 2) {
        image[0] = static_cast<char>(id & 0xFF);
        image[1] = static_cast<char>(id >> 8);
    }

    std::unique_ptr<HwDatablock> block = blockCatalogue::makeBlock(id, image);
    FUZZ_CHECK(block != nullptr);
    const bool print = printable(id, image);
    exercise(*block, print);

    // The checked load, as a caller that trusts nothing does it.
    std::unique_ptr<HwDatablock> checked = blockCatalogue::makeBlock(id, QByteArray());
    checked->setData(image);
    exercise(*checked, false);

    // Conversion into the converted form and back, by the id's own rule and the generic one.
    const HwEDataFormatTyp there = (flags & 2) ? HwDataFormatReference : HwDataFormatConverted;
    const HwEDataFormatTyp back =
        there == HwDataFormatConverted ? HwDataFormatReference : HwDataFormatConverted;
    HwDatablockOldStyleInterpreter::swapHwDatablock(there, id, block.get());
    exercise(*block, print && (flags & 4));
    HwDatablockOldStyleInterpreter::swapHwDatablock(back, id, block.get());
    block->swapDataTo(there, id, block.get());
    block->swapDataTo(back, id, block.get());
    exercise(*block, false);

    std::ostringstream printed;
    if (print)
        interpreter().printHwDatablockOldStyleInfo(checked.get(), printed);
    return 0;
}
