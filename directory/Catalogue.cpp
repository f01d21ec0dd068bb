// The catalogue built once from the block lists: the table list's rows, then the directory rows
// in their order (the first row of an id wins), indexed by id in 65,536 slots.
#include "directory/Catalogue.h"

#include "directory/CatalogueRows.h"
#include "directory/OldStyleConversion.h"
#include "directory/TableTraits.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace Tupsim {
namespace catalogue {

namespace {

template <class Class> HwDatablock* createNamed(int id, const char* idString) {
    return new Class(idString, id, 0, 1.0, false);
}

std::string textIdOf(const char* pattern, int id) {
    if (pattern == nullptr)
        return std::string();
    char text[64];
    std::snprintf(text, sizeof text, pattern, static_cast<unsigned>(id));
    return text;
}

// The calibration table list's rows that have one object per id.
struct TableCollector : IgnoreRows {
    std::vector<TableFacts> rows;
    template <class Class> void table(const TableRow& row) {
        const TableShape shape = tableShape<Class>();
        rows.push_back({row.id,
                        row.className,
                        row.textId,
                        row.headed ? TableTemplate::Headed : shape.form,
                        shape.rows,
                        shape.cols,
                        countsOffset<Class>(),
                        imageSize<Class>(),
                        row.axisId,
                        row.readsBack,
                        row.decimals,
                        rows.size(),
                        {&oldstyle::create<Class>, &oldstyle::tableRule<Class>}});
    }
};

class Catalogue : public IgnoreRows {
public:
    Catalogue() {
        slot.fill(-1);
        TableCollector collected;
        visitTableRows(collected);
        tableRows = std::move(collected.rows);
        visitDirectoryRows(*this);
        // The table list's rows outside the directory still belong to their id.
        for (const TableFacts& row : tableRows)
            if (Entry* entry = at(row.id))
                entry->table = entry->table != nullptr ? entry->table : &row;
            else
                store(tableEntry(row, false)).info.kind = BlockKind::Unknown;
        for (const TableFacts& row : tableRows)
            if (row.axisId != 0)
                if (Entry* axis = at(row.axisId))
                    axis->isAxis = true;
        std::sort(all.begin(), all.end(),
                  [](const Entry& a, const Entry& b) { return a.id() < b.id(); });
        slot.fill(-1);
        for (std::size_t i = 0; i < all.size(); ++i)
            slot[all[i].id()] = static_cast<int>(i);
    }

    const Entry* find(quint16 id) const {
        const int i = slot[id];
        return i < 0 ? nullptr : &all[static_cast<std::size_t>(i)];
    }

    std::vector<Entry> all;
    std::vector<TableFacts> tableRows;

    // The visitor's rows.
    template <class Class>
    void block(int first, int last, const char* className, BlockKind kind, const char* textId) {
        for (int id = first; id <= last; ++id)
            plain<Class>(id, className, kind, textId);
    }
    template <class Class, class RuleClass>
    void converted(int first, int last, const char* className, BlockKind kind, const char* textId) {
        for (int id = first; id <= last; ++id)
            if (Entry* entry = plain<Class>(id, className, kind, textId))
                entry->conversion = {&oldstyle::create<Class>, &oldstyle::ownRule<RuleClass>};
    }
    template <class Class> void misc(int id, const char* className, const char* textId) {
        Entry entry;
        entry.info.id = static_cast<quint16>(id);
        entry.info.className = className;
        entry.info.textId = textId;
        entry.info.kind = BlockKind::CalibrationTable;
        const TableShape shape = tableShape<Class>();
        entry.info.tableTemplate = shape.form;
        entry.maxRows = shape.rows;
        entry.maxCols = shape.cols;
        entry.countsOffset = countsOffset<Class>();
        entry.make = &createNamed<Class>;
        entry.idString = textId;
        store(std::move(entry));
    }
    void tables(int first, int last, bool converted) {
        for (const TableFacts& row : tableRows)
            if (row.id >= first && row.id <= last)
                store(tableEntry(row, converted));
    }
    template <class RuleClass> void conversionOnly(int first, int last, oldstyle::Factory make) {
        for (int id = first; id <= last; ++id) {
            Entry entry;
            entry.info.id = static_cast<quint16>(id);
            entry.conversion = {make, &oldstyle::tableRule<RuleClass>};
            store(std::move(entry));
        }
    }
    template <class Class> void end(int id, const char* className) {
        if (Entry* entry = plain<Class>(id, className, BlockKind::End, "END"))
            entry->keepImage = true;
    }

private:
    Entry* at(quint16 id) {
        const int i = slot[id];
        return i < 0 ? nullptr : &all[static_cast<std::size_t>(i)];
    }
    // The first row of an id wins: a later one is dropped, and nullptr returned.
    Entry* storeNew(Entry entry) {
        if (slot[entry.info.id] >= 0)
            return nullptr;
        slot[entry.info.id] = static_cast<int>(all.size());
        all.push_back(std::move(entry));
        return &all.back();
    }
    Entry& store(Entry entry) {
        const quint16 id = entry.info.id;
        Entry* stored = storeNew(std::move(entry));
        return stored != nullptr ? *stored : *at(id);
    }
    template <class Class>
    Entry* plain(int id, const char* className, BlockKind kind, const char* textId) {
        Entry entry;
        entry.info.id = static_cast<quint16>(id);
        entry.info.className = className;
        entry.info.textId = textIdOf(textId, id);
        entry.info.kind = kind;
        entry.make = &oldstyle::create<Class>;
        entry.schema = records::schemaOf<Class>();
        return storeNew(std::move(entry));
    }
    Entry tableEntry(const TableFacts& row, bool converted) const {
        Entry entry;
        entry.info.id = row.id;
        entry.info.className = row.className;
        entry.info.textId = row.textId;
        entry.info.kind = BlockKind::CalibrationTable;
        entry.info.tableTemplate = row.form;
        entry.maxRows = row.maxRows;
        entry.maxCols = row.maxCols;
        entry.countsOffset = row.countsOffset;
        entry.info.readsBack = row.readsBack;
        entry.make = row.recipe.make;
        entry.axisId = row.axisId;
        entry.table = &row;
        if (converted)
            entry.conversion = row.recipe;
        return entry;
    }

    std::array<int, 65536> slot;
};

const Catalogue& catalogue() {
    static const Catalogue instance = [] {
        // The core converts through the directory's converters: installed before first use.
        oldstyle::ensureConverters();
        return Catalogue();
    }();
    return instance;
}

} // namespace

const Entry* find(quint16 id) {
    return catalogue().find(id);
}

const std::vector<Entry>& entries() {
    return catalogue().all;
}

const std::vector<TableFacts>& tables() {
    return catalogue().tableRows;
}

} // namespace catalogue
} // namespace Tupsim
