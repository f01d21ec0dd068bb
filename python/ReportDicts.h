// The library's report model as Python objects: its maps as dicts whose keys are the model's
// names in snake_case, its lists as lists, null as None.
#pragma once

#include <QString>
#include <QVariant>
#include <pybind11/pybind11.h>

namespace epromPython {

// "offsetA" -> "offset_a", "eventCounter" -> "event_counter": the only mapping of names
// between the tool's JSON and the module's dicts.
std::string snakeCase(const QString& name);
pybind11::object toPython(const QVariant& value);

} // namespace epromPython
