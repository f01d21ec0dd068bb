// The library's report model as dicts, lists and plain values, names in snake_case.
#include "ReportDicts.h"

#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

namespace py = pybind11;

namespace epromPython {

std::string snakeCase(const QString& name) {
    std::string snake;
    snake.reserve(static_cast<std::size_t>(name.size()) + 4);
    for (const QChar c : name) {
        const char letter = c.toLatin1();
        if (letter >= 'A' && letter <= 'Z') {
            snake += '_';
            snake += static_cast<char>(letter - 'A' + 'a');
        } else {
            snake += letter;
        }
    }
    return snake;
}

py::object toPython(const QVariant& value) {
    switch (static_cast<int>(value.type())) {
    case QMetaType::UnknownType:
        return py::none();
    case QMetaType::Bool:
        return py::bool_(value.toBool());
    case QMetaType::Int:
    case QMetaType::LongLong:
        return py::int_(value.toLongLong());
    case QMetaType::UInt:
    case QMetaType::ULongLong:
        return py::int_(value.toULongLong());
    case QMetaType::Double:
        return py::float_(value.toDouble());
    case QMetaType::QVariantMap: {
        py::dict dict;
        const QVariantMap map = value.toMap();
        for (auto it = map.begin(); it != map.end(); ++it)
            dict[py::str(snakeCase(it.key()))] = toPython(it.value());
        return std::move(dict);
    }
    case QMetaType::QVariantList:
    case QMetaType::QStringList: {
        py::list list;
        for (const QVariant& item : value.toList())
            list.append(toPython(item));
        return std::move(list);
    }
    default: {
        const QByteArray utf8 = value.toString().toUtf8();
        return py::reinterpret_steal<py::object>(
            PyUnicode_DecodeUTF8(utf8.constData(), utf8.size(), "replace"));
    }
    }
}

} // namespace epromPython
