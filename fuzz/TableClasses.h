// Every table class of the library (the catalogue's and the misc-data tables), as a list of
// actions that the fuzz targets and the seed maker instantiate per class, in the order of the
// block lists; the capacity is the catalogue's rule.
#pragma once

#include "directory/CatalogueRows.h"
#include "directory/TableTraits.h"

#include <functional>
#include <string>
#include <vector>

namespace fuzz {

using namespace Tupsim;

using Capacity = catalogue::TableShape;

template <class Block> constexpr Capacity capacityOf() {
    return catalogue::tableShape<Block>();
}

using TableAction = std::function<void(const std::string&)>;

inline char* wexwName() {
    static char name[] = "WEXW_IQ_RF_IMBALANCE";
    return name;
}

// One action per class: Action::run<Class>(argument, make), where make() returns a new block of
// the class.
template <class Action> struct ActionCollector : catalogue::IgnoreRows {
    std::vector<TableAction> actions;
    template <class Class> void table(const catalogue::TableRow&) {
        actions.push_back([](const std::string& a) {
            Action::template run<Class>(a, [] { return new Class(false); });
        });
    }
    template <class Class> void namedTable(quint16) {
        actions.push_back([](const std::string& a) {
            Action::template run<Class>(a, [] { return new Class(wexwName(), 0, false); });
        });
    }
    template <class Class> void misc(int id, const char*, const char* textId) {
        actions.push_back([id, textId](const std::string& a) {
            Action::template run<Class>(
                a, [id, textId] { return new Class(textId, id, 0, 1.0, false); });
        });
    }
};

template <class Action> std::vector<TableAction> tableActions() {
    ActionCollector<Action> collector;
    catalogue::visitTableRows(collector);
    catalogue::visitDirectoryRows(collector);
    return collector.actions;
}

} // namespace fuzz
