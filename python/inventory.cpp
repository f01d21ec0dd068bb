// epromdatablock.inventory: the library's inventory rows as a list of dicts, one per image.
#include <ImageInventory.h>
#include <QFile>
#include <pybind11/pybind11.h>

#include "ReportDicts.h"

namespace py = pybind11;

namespace {

// A path as Python spells it: str or os.PathLike, encoded as the file system does.
QString pathOf(const py::handle& path) {
    PyObject* encoded = nullptr;
    if (!PyUnicode_FSConverter(path.ptr(), &encoded))
        throw py::error_already_set();
    const py::bytes bytes = py::reinterpret_steal<py::bytes>(encoded);
    return QFile::decodeName(QByteArray(PyBytes_AS_STRING(bytes.ptr()),
                                        static_cast<int>(PyBytes_GET_SIZE(bytes.ptr()))));
}

py::object pathObject(const QString& path) {
    const QByteArray encoded = QFile::encodeName(path);
    PyObject* decoded = PyUnicode_DecodeFSDefaultAndSize(encoded.constData(), encoded.size());
    if (decoded == nullptr)
        throw py::error_already_set();
    return py::reinterpret_steal<py::object>(decoded);
}

py::object cellObject(const QVariant& cell) {
    if (cell.isNull())
        return py::none();
    if (cell.type() == QVariant::LongLong)
        return py::int_(cell.toLongLong());
    const QByteArray utf8 = cell.toString().toUtf8();
    return py::reinterpret_steal<py::object>(
        PyUnicode_DecodeUTF8(utf8.constData(), utf8.size(), "replace"));
}

} // namespace

void addInventory(py::module_& m) {
    m.def(
        "inventory",
        [](const py::object& paths, bool recursive, int offset) {
            QStringList names;
            if (py::isinstance<py::str>(paths) || py::isinstance<py::bytes>(paths) ||
                py::hasattr(paths, "__fspath__"))
                names << pathOf(paths);
            else
                for (const py::handle& path : paths)
                    names << pathOf(path);
            const QVector<Tupsim::InventoryColumn>& columns = Tupsim::inventoryColumns();
            py::list rows;
            Tupsim::inventory::forEachRow(
                names, recursive, offset, [&](const Tupsim::InventoryRow& row) {
                    const QVector<QVariant> cells = Tupsim::inventoryCells(row);
                    py::dict entry;
                    for (int i = 0; i < columns.size(); ++i)
                        entry[py::str(epromPython::snakeCase(QLatin1String(columns[i].key)))] =
                            i == 0 ? pathObject(row.path) : cellObject(cells[i]);
                    rows.append(entry);
                });
            return rows;
        },
        py::arg("paths"), py::arg("recursive") = false, py::arg("offset") = 0,
        "One dict per image, as `epromtool inventory --json` gives its rows with the names in "
        "snake_case: 'path', 'verdict' ('ok', 'failed checks', 'broken chain', 'unreadable'), "
        "'blocks' (the end block included), 'part_number', 'serial_number', 'hardware_code', "
        "'product_date', 'name', 'last_service_date', 'operating_hours', 'problems' and "
        "'reason'; None where the image "
        "holds no such value. `paths` is one path or a list of them; with `recursive` "
        "directories are walked (files only, in name order, symbolic links not followed). An "
        "image that cannot be read gets its row with the reason; nothing is raised for it.");
}
