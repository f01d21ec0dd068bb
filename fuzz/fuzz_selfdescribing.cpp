// Fuzz target: the self-describing block and its generic typed access: header getters, the
// debug pages, the table walk with its typed and text getters, both byte-order passes, and the
// write round trip (what write builds walks back to the same tables).
#include "FuzzSupport.h"

#include <CommonDatablockAccess.h>
#include <HwDatablock2Edition.h>

#include "core/BlockHeader.h"

#include <memory>
#include <sstream>

using namespace Tupsim;

namespace {

void load(HwDatablock& block, const QByteArray& image) {
    block.setDataWithoutChecksumCheck(reinterpret_cast<const unsigned char*>(image.constData()),
                                      static_cast<unsigned int>(image.size()));
}

std::unique_ptr<CommonDatablockAccess> walk(const QByteArray& image, bool list) {
    auto* block = new HwDatablock2Edition;
    load(*block, image);
    block->setListFormat(list);
    return std::make_unique<CommonDatablockAccess>(block, nullptr, true);
}

void readEverything(const CommonDatablockAccess& access) {
    access.getUpdateIndex();
    const unsigned int count = access.getBlockCount();
    for (unsigned int b = 0; b <= count; ++b) {
        access.getRowCount(b);
        const unsigned int cols = access.getColCount(b);
        access.getRowIdType(b);
        access.getColumnIdType(b);
        access.getDataTypeList(b);
        access.getRowIdStringList(b);
        access.getColIdStringList(b);
        access.getDataInStringVector(b);
        for (unsigned int c = 0; c < cols && c < 4; ++c) {
            access.getDataType(c, b);
            access.getStringColumn(c, b);
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::quietHost();
    fuzz::Input input(data, size);
    const unsigned flags = input.byte();
    QByteArray image = input.rest();
    // Ids from 20000 on are self-describing; the input picks one, or keeps its own when it is
    // one of them.
    const bool own = image.size() >= 2 && (flags & 1) && quint8(image[1]) >= 0x4E;
    if (!own && image.size() >= 2) {
        image[0] = static_cast<char>(0x20);
        image[1] = static_cast<char>(0x4E + ((flags >> 4) & 0x0F));
    }
    const bool list = flags & 2;

    HwDatablock2Edition block;
    block.setData(image);
    block.getId();
    block.getUpdateIndex();
    block.computeChecksum32();
    block.getRowIdType();
    block.getColumnIdType();
    block.getSizeOfRowIdType();
    block.getSizeOfColumnIdType();
    for (int c = 0; c < 4; ++c)
        block.getColumnType(c);
    for (unsigned int b = 0; b < 3; ++b) {
        block.getNumberOfRows(b);
        block.getNumberOfColumns(b);
        block.getBlockSize(b);
        block.getData(b);
    }
    block.setListFormat(list);
    {
        std::ostringstream out;
        HwSDataBlockCfg cfg;
        cfg.columnDescriptions = QStringLiteral("a;b;c");
        block.printToStream(out);
        block.printDebugPageComplete(out, cfg);
        block.printDebugPageSummary(out, cfg);
        block.printDebugPageDetail(out, cfg);
    }

    // Both byte-order passes, each followed by the walk over what it produced.
    HwDatablock2Edition turned;
    load(turned, image);
    const HwEDataFormatTyp there = (flags & 4) ? HwDataFormatReference : HwDataFormatConverted;
    turned.swapDataTo(there, turned.getId(), &turned);
    readEverything(*walk(turned.getByteArrayData(), list));
    turned.swapDataTo(there == HwDataFormatConverted ? HwDataFormatReference
                                                     : HwDataFormatConverted,
                      turned.getId(), &turned);

    std::unique_ptr<CommonDatablockAccess> access = walk(image, list);
    readEverything(*access);

    // What write builds from the walked tables walks back to the same tables.
    const unsigned short id =
        static_cast<unsigned short>(header::FirstSelfDescribingId + (flags >> 4));
    const QByteArray written = access->write(id, 7);
    if (!written.isEmpty()) {
        std::unique_ptr<CommonDatablockAccess> again = walk(written, false);
        FUZZ_CHECK(again->getBlockCount() == access->getBlockCount());
        for (unsigned int b = 0; b < access->getBlockCount(); ++b)
            FUZZ_CHECK(*again->getBlockDescription(b) == *access->getBlockDescription(b));
        FUZZ_CHECK(again->write(id, 7) == written);
        HwDatablock2Edition check;
        FUZZ_CHECK(check.setData(written));
    }
    return 0;
}
