// The calibration block classes the library declares in its catalogue lists, by block id: the
// lists are expanded here, so a row added there is known here too.
#include "TableKinds.h"

#include "TableAdapter.h"

#include <algorithm>
#include <iterator>

namespace epromtool {

namespace {

// Blocks whose name and instance their caller gives are known by class only.
const TableKind kTableKinds[] = {
#define EPROM_TABLE_BLOCK(Class, Template, Args, Name, Id, Factor)                                 \
    TableAdapter<Tupsim::Class>::kind(#Class, Id),
#define EPROM_TABLE_BLOCK_TCXO(Class, Template, Args, Name, Id, Factor)                            \
    TableAdapter<Tupsim::Class>::kind(#Class, Id),
#define EPROM_TABLE_BLOCK_HEADED(Class, Template, Args, Name, Id, Factor, Title, Key, Limit,       \
                                 Message, RowsMessage, OwnPrint)                                   \
    TableAdapter<Tupsim::Class>::kind(#Class, Id),
#define EPROM_TABLE_BLOCK_NAMED(Class, Template, Args, NameType, Id, Factor)                       \
    TableKind{#Class, Id, nullptr, nullptr, nullptr, nullptr, nullptr},
#include "HwCalibTableBlocks.def"
};

} // namespace

const TableKind* TableKinds::find(quint16 id) {
    const auto found = std::find_if(std::begin(kTableKinds), std::end(kTableKinds),
                                    [id](const TableKind& kind) { return kind.id == id; });
    return found == std::end(kTableKinds) ? nullptr : found;
}

} // namespace epromtool
