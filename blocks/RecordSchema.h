// The hook by which the catalogue finds the field table of a record class: a class with named
// fields declares `static const records::RecordSchema& recordSchema();` beside its fields' table.
#pragma once

#include <type_traits>
#include <utility>

namespace Tupsim {
namespace records {

struct RecordSchema; // the field rows of one record class

namespace detail {
template <class T, class = void> struct HasSchema : std::false_type {};
template <class T>
struct HasSchema<T, std::void_t<decltype(T::recordSchema())>> : std::true_type {};
} // namespace detail

// The field table of record class T, or nullptr for a class without named fields.
template <class T> const RecordSchema* schemaOf() {
    if constexpr (detail::HasSchema<T>::value)
        return &T::recordSchema();
    else
        return nullptr;
}

} // namespace records
} // namespace Tupsim
