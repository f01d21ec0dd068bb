// The block catalogue: the directory's id table and the calibration table catalogue, read into
// one lookup by id.
#include "BlockCatalogue.h"

#include "HwDatablock2Edition.h"
#include "directory/OldStyleDirectory.h"
#include "directory/TableCatalogue.h"

#include <array>
#include <cstdio>

namespace Tupsim {
namespace blockCatalogue {

namespace {

constexpr quint16 kEndId = 0xFFFF;
constexpr quint16 kFirstSelfDescribingId = 20000;

struct Entry {
    BlockKindInfo info;
    oldstyle::Factory make;
    const char* idString;
};

std::string textIdOf(const char* pattern, int id) {
    if (pattern == nullptr)
        return std::string();
    char text[64];
    std::snprintf(text, sizeof text, pattern, static_cast<unsigned>(id));
    return text;
}

class Catalogue {
public:
    Catalogue() {
        slot.fill(-1);
        std::size_t rowCount = 0;
        const oldstyle::DirectoryRow* rows = oldstyle::directoryRows(rowCount);
        std::size_t tableCount = 0;
        const oldstyle::CatalogueEntry* tables = oldstyle::tableCatalogue(tableCount);
        for (std::size_t r = 0; r < rowCount; ++r) {
            const oldstyle::DirectoryRow& row = rows[r];
            if (row.make == nullptr) {
                for (std::size_t t = 0; t < tableCount; ++t)
                    if (tables[t].id >= row.first && tables[t].id <= row.last)
                        add(tables[t]);
                continue;
            }
            for (int id = row.first; id <= row.last; ++id)
                add(row, id);
        }
    }

    const Entry* find(quint16 id) const {
        const int at = slot[id];
        return at < 0 ? nullptr : &entries[static_cast<std::size_t>(at)];
    }
    std::vector<quint16> ids() const {
        std::vector<quint16> found;
        for (std::size_t id = 0; id < slot.size(); ++id)
            if (slot[id] >= 0)
                found.push_back(static_cast<quint16>(id));
        return found;
    }

private:
    // The first row of an id wins, as in the directory.
    void store(quint16 id, Entry entry) {
        if (slot[id] >= 0)
            return;
        slot[id] = static_cast<int>(entries.size());
        entries.push_back(std::move(entry));
    }
    void add(const oldstyle::DirectoryRow& row, int id) {
        Entry entry{{}, row.make, row.idString};
        entry.info.id = static_cast<quint16>(id);
        entry.info.className = row.className;
        entry.info.textId = textIdOf(row.textId, id);
        entry.info.kind = row.kind;
        if (row.idString != nullptr)
            entry.info.tableTemplate = TableTemplate::Misc;
        store(static_cast<quint16>(id), std::move(entry));
    }
    void add(const oldstyle::CatalogueEntry& table) {
        Entry entry{{}, table.recipe.make, nullptr};
        entry.info.id = static_cast<quint16>(table.id);
        entry.info.className = table.className;
        entry.info.textId = table.textId;
        entry.info.kind = BlockKind::CalibrationTable;
        entry.info.tableTemplate = table.form;
        entry.info.readsBack = table.readsBack;
        store(static_cast<quint16>(table.id), std::move(entry));
    }

    std::array<int, 65536> slot;
    std::vector<Entry> entries;
};

const Catalogue& catalogue() {
    static const Catalogue instance;
    return instance;
}

bool selfDescribing(quint16 id) {
    return id >= kFirstSelfDescribingId && id != kEndId;
}

} // namespace

BlockKindInfo describe(quint16 id) {
    if (const Entry* entry = catalogue().find(id))
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
    if (const Entry* entry = catalogue().find(id))
        return entry->info.kind;
    return selfDescribing(id) ? BlockKind::SelfDescribing : BlockKind::Unknown;
}

std::vector<quint16> knownIds() {
    return catalogue().ids();
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
    if (const Entry* entry = catalogue().find(id))
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
