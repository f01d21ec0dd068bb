// The id table of the old-style block directory: every registered id with the class that
// interprets it.
#include "directory/OldStyleDirectory.h"

#include "EpromDatablock.h"
#include "directory/TableCatalogue.h"
#include "templates/HwDatablockTemplate.h"
#include "templates/HwDatablockTemplateWithoutChecksum.h"

#include <memory>

namespace Tupsim {
namespace oldstyle {

namespace {

// The generic misc-data table of N1 rows by N2 columns, factor 1.
template <unsigned int N1, unsigned int N2> HwDatablock* createMisc(int id, const char* idString) {
    return new HwDatablockTemplate<MiscData<int, N1, N2>, int, double, N1, N2>(idString, id, 0, 1.0,
                                                                               false);
}

HwDatablock* createCounterBytes(int id, const char* idString) {
    return new HwDatablockTemplateWithoutChecksum<MiscData<unsigned char, 1, 2048>, unsigned char,
                                                  double, 1, 2048>(idString, id, 0, 1.0, false);
}

constexpr DirectoryRow plain(int first, int last, Factory make, const char* className,
                             BlockKind kind, const char* textId) {
    return {first, last, make, nullptr, false, className, kind, textId, 0, 0};
}
constexpr DirectoryRow misc(int id, Factory make, const char* className, const char* idString,
                            quint32 rows, quint32 cols) {
    return {id,       id,   make, idString, false, className, BlockKind::CalibrationTable,
            idString, rows, cols};
}
constexpr DirectoryRow catalogue(int first, int last) {
    return {first,   last, nullptr, nullptr, false, nullptr, BlockKind::CalibrationTable,
            nullptr, 0,    0};
}

#define EPROM_BLOCKS(first, last, Class, Kind, TextId)                                             \
    plain(first, last, create<Class>, #Class, BlockKind::Kind, TextId),
#define EPROM_BLOCKS_MISC(id, Rows, Cols, TextId)                                                  \
    misc(id, createMisc<Rows, Cols>, "HwDatablockTemplate", TextId, Rows, Cols),
#define EPROM_BLOCKS_COUNTER_BYTES(id, TextId)                                                     \
    misc(id, createCounterBytes, "HwDatablockTemplateWithoutChecksum", TextId, 1, 2048),
#define EPROM_BLOCKS_TABLES(first, last, Converted) catalogue(first, last),
#define EPROM_BLOCKS_END(id, Class)                                                                \
    {id, id, create<Class>, nullptr, true, #Class, BlockKind::End, "END", 0, 0},

const DirectoryRow kRows[] = {
#include "directory/OldStyleBlocks.def"
};

// A shrunk QByteArray keeps its allocation: the prototype gets a fresh copy of what is left, so
// that the memory of its full-size image is given back.
void releaseSpareCapacity(HwDatablock& prototype) {
    const QByteArray kept = prototype.getByteArrayData();
    HwDatablock holder(false);
    holder.setDataWithoutChecksumCheck(reinterpret_cast<const unsigned char*>(kept.constData()),
                                       static_cast<unsigned int>(kept.size()));
    prototype.replaceDataInList(&holder);
}

// Makes and registers one prototype; a refused duplicate is deleted again.
void registerOne(IdHwDatablockOldStyleClassDict& dict, int id, Factory make, const char* idString,
                 bool keepImage) {
    std::unique_ptr<HwDatablock> prototype(make(id, idString));
    if (!keepImage) {
        prototype->resizeData(8); // one object per id: each is kept small until it prints
        releaseSpareCapacity(*prototype);
    }
    if (dict.insert({id, prototype.get()}).second)
        prototype.release();
}

} // namespace

const DirectoryRow* directoryRows(std::size_t& count) {
    count = sizeof kRows / sizeof kRows[0];
    return kRows;
}

bool miscCapacity(quint16 id, quint32& rows, quint32& cols) {
    for (const DirectoryRow& row : kRows)
        if (row.idString != nullptr && row.first == id) {
            rows = row.maxRows;
            cols = row.maxCols;
            return true;
        }
    return false;
}

void fillDirectory(IdHwDatablockOldStyleClassDict& dict) {
    std::size_t tableRows = 0;
    const CatalogueEntry* table = tableCatalogue(tableRows);
    for (const DirectoryRow& row : kRows) {
        if (row.make == nullptr) {
            for (std::size_t i = 0; i < tableRows; ++i)
                if (table[i].id >= row.first && table[i].id <= row.last)
                    registerOne(dict, table[i].id, table[i].recipe.make, nullptr, false);
            continue;
        }
        for (int id = row.first; id <= row.last; ++id)
            registerOne(dict, id, row.make, row.idString, row.keepImage);
    }
}

} // namespace oldstyle
} // namespace Tupsim
