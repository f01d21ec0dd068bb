// Every table class of the library (the catalogue's and the misc-data tables), with its capacity,
// as a list of actions that the fuzz targets and the seed maker instantiate per class.
#pragma once

#include <HwCalibTableBlocks.h>

#include "templates/HwDatablockTemplate.h"
#include "templates/HwDatablockTemplateWithoutChecksum.h"

#include <string>
#include <vector>

namespace fuzz {

using namespace Tupsim;

struct Capacity {
    unsigned int rows;
    unsigned int cols;
};

template <typename R, typename V, unsigned int Rows, unsigned int Cols>
Capacity capacityOf(HwDatablockBaseTemplate<R, V, Rows, Cols>*) {
    return {Rows, Cols};
}
template <typename R, typename V, unsigned int Rows, unsigned int Cols>
Capacity capacityOf(HwDatablockBaseTemplateIndex<R, V, Rows, Cols>*) {
    return {Rows, Cols};
}
template <typename R, typename V, unsigned int D, unsigned int Rows, unsigned int Cols>
inline Capacity capacityOf(HwDatablockBaseTemplateExtended<R, V, D, Rows, Cols>*) {
    return {Rows, Cols};
}
template <typename R, typename V, unsigned int Rows, unsigned int Cols>
Capacity capacityOf(HwDatablockBaseTemplateWexW<R, V, Rows, Cols>*) {
    return {Rows, Cols};
}
template <class D, typename R, typename V, unsigned int Rows, unsigned int Cols, bool K>
inline Capacity capacityOf(HwDatablockMiscTemplate<D, R, V, Rows, Cols, K>*) {
    return {Rows, Cols};
}

using TableAction = void (*)(const std::string&);

inline char* wexwName() {
    static char name[] = "WEXW_IQ_RF_IMBALANCE";
    return name;
}

// One entry per class, in a fixed order: Action::run<Class>(argument, make), where make()
// returns a new block of the class.
template <class Action> std::vector<TableAction> tableActions() {
#define EPROM_TABLE_BLOCK(Class, Template, Args, Name, Id, Factor, Axis)                           \
    [](const std::string& a) { Action::template run<Class>(a, [] { return new Class(false); }); },
#define EPROM_TABLE_BLOCK_TCXO(Class, Template, Args, Name, Id, Factor, Axis)                      \
    EPROM_TABLE_BLOCK(Class, Template, Args, Name, Id, Factor, Axis)
#define EPROM_TABLE_BLOCK_HEADED(Class, Template, Args, Name, Id, Factor, Title, Key, Limit,       \
                                 Message, RowsMessage, OwnPrint, Axis)                             \
    EPROM_TABLE_BLOCK(Class, Template, Args, Name, Id, Factor, Axis)
#define EPROM_TABLE_BLOCK_NAMED(Class, Template, Args, NameType, Id, Factor, Axis)                 \
    [](const std::string& a) {                                                                     \
        Action::template run<Class>(a, [] { return new Class(wexwName(), 0, false); });            \
    },
#define EPROM_BLOCKS_MISC(id, Rows, Cols, TextId)                                                  \
    [](const std::string& a) {                                                                     \
        using Misc = HwDatablockTemplate<MiscData<int, Rows, Cols>, int, double, Rows, Cols>;      \
        Action::template run<Misc>(a, [] { return new Misc(TextId, id, 0, 1.0, false); });         \
    },
#define EPROM_BLOCKS_COUNTER_BYTES(id, TextId)                                                     \
    [](const std::string& a) {                                                                     \
        using Bytes = HwDatablockTemplateWithoutChecksum<MiscData<unsigned char, 1, 2048>,         \
                                                         unsigned char, double, 1, 2048>;          \
        Action::template run<Bytes>(a, [] { return new Bytes(TextId, id, 0, 1.0, false); });       \
    },
    return {
#include "HwCalibTableBlocks.def"
#include "directory/OldStyleBlocks.def"
    };
}

} // namespace fuzz
