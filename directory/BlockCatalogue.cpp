// The public face of the catalogue: what the library knows about each id, and objects by id.
#include "BlockCatalogue.h"

#include "HwDatablock2Edition.h"
#include "core/BlockHeader.h"
#include "directory/Catalogue.h"

#include <string>

namespace Tupsim {
namespace blockCatalogue {

namespace {

bool selfDescribing(quint16 id) {
    return header::BlockHeader{id}.isSelfDescribing();
}

} // namespace

BlockKindInfo describe(quint16 id) {
    const catalogue::Entry* entry = catalogue::find(id);
    if (entry != nullptr && entry->inDirectory())
        return entry->info;
    BlockKindInfo info;
    info.id = id;
    if (selfDescribing(id)) {
        info.className = "HwDatablock2Edition";
        info.textId = "USER_" + std::to_string(id);
        info.kind = BlockKind::SelfDescribing;
    }
    return info;
}

BlockKind kindOf(quint16 id) {
    if (const catalogue::Entry* entry = catalogue::find(id))
        if (entry->inDirectory())
            return entry->info.kind;
    return selfDescribing(id) ? BlockKind::SelfDescribing : BlockKind::Unknown;
}

std::vector<quint16> knownIds() {
    std::vector<quint16> ids;
    for (const catalogue::Entry& entry : catalogue::entries())
        if (entry.inDirectory())
            ids.push_back(entry.id());
    return ids;
}

const char* kindName(BlockKind kind) {
    switch (kind) {
    case BlockKind::Unknown:
        return "unknown";
    case BlockKind::Identification:
        return "identification";
    case BlockKind::Service:
        return "service";
    case BlockKind::Statistic:
        return "statistic";
    case BlockKind::Modification:
        return "modification";
    case BlockKind::Counter:
        return "counter";
    case BlockKind::CalibrationRecord:
        return "calibration record";
    case BlockKind::CalibrationTable:
        return "calibration table";
    case BlockKind::Opaque:
        return "opaque";
    case BlockKind::SelfDescribing:
        return "self-describing";
    case BlockKind::End:
        return "end";
    }
    return "unknown";
}

const char* templateName(TableTemplate form) {
    switch (form) {
    case TableTemplate::None:
        return "";
    case TableTemplate::Base:
        return "token";
    case TableTemplate::Index:
        return "line";
    case TableTemplate::Extended:
        return "token with descriptors";
    case TableTemplate::WexW:
        return "token, ten decimals";
    case TableTemplate::Headed:
        return "headed line";
    case TableTemplate::Misc:
        return "misc token";
    }
    return "";
}

std::unique_ptr<HwDatablock> makeBlock(quint16 id, const QByteArray& image) {
    std::unique_ptr<HwDatablock> block;
    const catalogue::Entry* entry = catalogue::find(id);
    if (entry != nullptr && entry->inDirectory())
        block.reset(entry->make(id, entry->idString));
    else if (selfDescribing(id))
        block.reset(new HwDatablock2Edition());
    else
        block.reset(new HwDatablock(false));
    block->setDataWithoutChecksumCheck(reinterpret_cast<const unsigned char*>(image.constData()),
                                       static_cast<unsigned int>(image.size()));
    return block;
}

} // namespace blockCatalogue
} // namespace Tupsim
