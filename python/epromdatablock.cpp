// The Python module epromdatablock: the library's image layer, its calibration tables and its
// catalogue with Python types; every operation is a call into the library.
#include <BlockCatalogue.h>
#include <EepromImage.h>
#include <ImageDiff.h>
#include <ImageExport.h>
#include <ImageImport.h>
#include <ImageTables.h>
#include <RecordFields.h>
#include <ReportModel.h>
#include <SafeWrite.h>

#include "Errors.h"
#include "ReportDicts.h"
#include "TableHandle.h"

#include <QDate>
#include <QSet>
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>
#include <pybind11/stl/filesystem.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

namespace py = pybind11;
using namespace Tupsim;

// inventory.cpp
void addInventory(py::module_& m);

// QString travels as str, QByteArray as bytes.
namespace pybind11 {
namespace detail {

template <> struct type_caster<QString> {
    PYBIND11_TYPE_CASTER(QString, const_name("str"));

    bool load(handle source, bool) {
        if (!PyUnicode_Check(source.ptr()))
            return false;
        Py_ssize_t size = 0;
        const char* text = PyUnicode_AsUTF8AndSize(source.ptr(), &size);
        if (text == nullptr) {
            PyErr_Clear();
            return false;
        }
        value = QString::fromUtf8(text, static_cast<int>(size));
        return true;
    }

    static handle cast(const QString& text, return_value_policy, handle) {
        const QByteArray utf8 = text.toUtf8();
        return PyUnicode_DecodeUTF8(utf8.constData(), utf8.size(), "replace");
    }
};

template <> struct type_caster<QByteArray> {
    PYBIND11_TYPE_CASTER(QByteArray, const_name("bytes"));

    bool load(handle source, bool) {
        if (!PyBytes_Check(source.ptr()))
            return false;
        value = QByteArray(PyBytes_AS_STRING(source.ptr()),
                           static_cast<int>(PyBytes_GET_SIZE(source.ptr())));
        return true;
    }

    static handle cast(const QByteArray& data, return_value_policy, handle) {
        return PyBytes_FromStringAndSize(data.constData(), data.size());
    }
};

} // namespace detail
} // namespace pybind11

namespace {

using epromPython::ImagePtr;
using epromPython::Table;
using epromPython::toPython;

QString pathText(const std::filesystem::path& path) {
    return QString::fromStdString(path.string());
}

// Text the library prints is bytes: UTF-8 where it is valid, any other byte kept as a lone
// surrogate ("surrogateescape"), so that the text encodes back to the same bytes.
py::str text(const std::string& bytes) {
    PyObject* decoded = PyUnicode_DecodeUTF8(bytes.data(), static_cast<Py_ssize_t>(bytes.size()),
                                             "surrogateescape");
    if (decoded == nullptr)
        throw py::error_already_set();
    return py::reinterpret_steal<py::str>(decoded);
}

QByteArray textBytes(const py::str& text) {
    PyObject* encoded = PyUnicode_AsEncodedString(text.ptr(), "utf-8", "surrogateescape");
    if (encoded == nullptr)
        throw py::error_already_set();
    const py::bytes bytes = py::reinterpret_steal<py::bytes>(encoded);
    return QByteArray(PyBytes_AS_STRING(bytes.ptr()),
                      static_cast<int>(PyBytes_GET_SIZE(bytes.ptr())));
}

// Python's own reading of an index: negative ones count from the end.
int position(long long index, long long count, const char* what) {
    const long long at = index < 0 ? index + count : index;
    if (at < 0 || at >= count)
        throw py::index_error(std::string(what) + " index " + std::to_string(index) +
                              " out of range (" + std::to_string(count) + ")");
    return static_cast<int>(at);
}

quint32 cellIndex(long long index, const char* what) {
    if (index < 0 || index > 0xffffffffLL)
        epromPython::raise(Outcome::failure(
            ResultCode::OutOfRange,
            QStringLiteral("%1 %2 is outside the table").arg(QLatin1String(what)).arg(index)));
    return static_cast<quint32>(index);
}

// One block of an image, read live from the image it belongs to.
struct Block {
    ImagePtr image;
    int index;

    const ImageBlock& entry() const {
        if (index >= image->blockCount())
            throw py::index_error("the block is no longer in the image");
        return image->block(index);
    }
};

// One entry of the block's report: "checksum", "crc32", ...
py::object blockReport(const Block& b, const char* key) {
    b.entry();
    return toPython(reportModel::block(*b.image, b.index).value(QLatin1String(key)));
}

// A record field's value as Python types it.
py::object fieldValue(const RecordValue& value) {
    switch (value.type) {
    case RecordValue::Text:
        return py::cast(QString::fromLatin1(value.text));
    case RecordValue::Date:
        if (!QDate::isValid(value.year, value.month, value.day))
            return py::none();
        return py::module_::import("datetime").attr("date")(value.year, value.month, value.day);
    case RecordValue::PartNumber:
        return py::make_tuple(value.number, value.variant);
    case RecordValue::Number:
        break;
    }
    return py::int_(value.number);
}

// The named fields of a record block as {name: value}, printed or typed; None without fields.
py::object fieldDict(const Block& b, bool typed) {
    if (!recordFields::hasFields(b.entry().id))
        return py::none();
    py::dict fields;
    for (const RecordField& field : recordFields::fields(b.image->blockBytes(b.index)))
        fields[py::cast(field.name)] = typed ? fieldValue(field.typed) : py::cast(field.value);
    return std::move(fields);
}

std::optional<Block> blockOrNone(const ImagePtr& image, int index) {
    if (index < 0)
        return std::nullopt;
    return Block{image, index};
}

py::list grid(const std::vector<double>& cells, quint32 rows, quint32 cols, bool integral) {
    py::list table;
    for (quint32 row = 0; row < rows; ++row) {
        py::list line;
        for (quint32 col = 0; col < cols; ++col) {
            const double cell = cells[static_cast<std::size_t>(row) * cols + col];
            if (integral)
                line.append(py::int_(static_cast<long long>(cell)));
            else
                line.append(py::float_(cell));
        }
        table.append(line);
    }
    return table;
}

void setCell(const Table& table, long long row, long long col, double value, bool raw) {
    const quint32 r = cellIndex(row, "row");
    const quint32 c = cellIndex(col, "column");
    epromPython::check(raw ? setTableRaw(*table.image, table.index, r, c, value)
                           : setTableCell(*table.image, table.index, r, c, value));
}

ImportPlan plan(const EepromImage& image, const QByteArray& text) {
    ImportPlan result = planImport(image, text);
    epromPython::check(result.outcome);
    return result;
}

std::string blockRepr(const Block& block) {
    const ImageBlock& b = block.entry();
    QString text = QStringLiteral("<Block %1 %2 at %3, %4 bytes")
                       .arg(b.id)
                       .arg(block.image->name(block.index), hex16(b.offset))
                       .arg(b.size);
    if (!b.isEnd)
        text += b.ok() ? QStringLiteral(", ok") : QStringLiteral(", FAILED");
    return (text + QStringLiteral(">")).toStdString();
}

std::string imageRepr(const EepromImage& image) {
    const int problems = image.problems().size();
    QString text =
        QStringLiteral("<Image %1 bytes, %2 blocks").arg(image.size()).arg(image.blockCount());
    if (image.endOffset() >= 0)
        text += QStringLiteral(", end block at %1").arg(hex16(image.endOffset()));
    if (image.chainBroken())
        text += QStringLiteral(", chain broken");
    text += problems == 0
                ? QStringLiteral(", ok")
                : QStringLiteral(", %1 problem%2").arg(problems).arg(problems == 1 ? "" : "s");
    return (text + QStringLiteral(">")).toStdString();
}

} // namespace

PYBIND11_MODULE(epromdatablock, m) {
    m.doc() = "EEPROM images of the datablock library: blocks and their checks, calibration "
              "tables, calibration text export and import, and the block catalogue.";
    m.attr("__version__") = EPROM_VERSION;
    epromPython::addErrors(m);

    py::class_<ImageProblem>(m, "Problem", "One thing found wrong in an image, at its offset.")
        .def_readonly("offset", &ImageProblem::offset,
                      "Offset in the image where the problem was found.")
        .def_readonly("message", &ImageProblem::text,
                      "What is wrong, in words (the key `message` of its dict).")
        .def_property_readonly(
            "code", [](const ImageProblem& p) { return std::string(resultCodeName(p.code)); },
            "The kind of problem in words: 'checksum failed', 'CRC-32 failed', 'counts exceed "
            "the capacity' or 'chain broken'.")
        .def(
            "__str__", [](const ImageProblem& p) { return p.text; }, "The problem's text.")
        .def(
            "__repr__",
            [](const ImageProblem& p) {
                return QStringLiteral("<Problem at %1: %2>").arg(hex16(p.offset), p.text);
            },
            "A readable one-line description.");

    py::class_<Table>(m, "Table",
                      "The calibration table of one block. Reads always show the image as it is "
                      "now; setting a cell replaces the block in its image with the checksum "
                      "recomputed.")
        .def_property_readonly(
            "rows", [](const Table& t) { return t.content().rows; },
            "Stored row count (may exceed the capacity of a damaged block).")
        .def_property_readonly(
            "cols", [](const Table& t) { return t.content().cols; }, "Stored column count.")
        .def_property_readonly(
            "shape",
            [](const Table& t) {
                const TableContent c = t.content();
                return py::make_tuple(c.shownRows(), c.shownCols());
            },
            "(rows, cols) of `cells`: the stored counts, cut to the capacity.")
        .def_property_readonly(
            "capacity",
            [](const Table& t) {
                const TableContent c = t.content();
                return py::make_tuple(c.maxRows, c.maxCols);
            },
            "(rows, cols) the table's class can hold.")
        .def_property_readonly(
            "factor", [](const Table& t) { return t.content().factor; },
            "Scale factor: a cell's value is its stored value times the factor.")
        .def_property_readonly(
            "raw_type", [](const Table& t) { return t.content().rawType; },
            "Type of the stored cells: 'int16', 'uint32', 'float32', ...")
        .def_property_readonly(
            "cells",
            [](const Table& t) {
                const TableContent c = t.content();
                return grid(c.values, c.shownRows(), c.shownCols(), false);
            },
            "The cells as a list of rows of floats, factor applied as the calibration text "
            "shows them.")
        .def_property_readonly(
            "raw",
            [](const Table& t) {
                const TableContent c = t.content();
                return grid(c.raw, c.shownRows(), c.shownCols(), c.integral);
            },
            "The cells as stored: a list of rows of ints (floats for floating-point tables).")
        .def_property_readonly(
            "indexes",
            [](const Table& t) -> py::object {
                const TableContent c = t.content();
                return c.hasIndexes ? py::cast(c.indexes) : py::none();
            },
            "Row indexes of an index table, one per row; None for other tables.")
        .def_property_readonly(
            "descriptors",
            [](const Table& t) -> py::object {
                const TableContent c = t.content();
                if (!c.hasDescriptors)
                    return py::none();
                py::list descriptors;
                for (const std::string& descriptor : c.descriptors)
                    descriptors.append(text(descriptor));
                return std::move(descriptors);
            },
            "Descriptors of a table with descriptors; None for other tables.")
        .def(
            "set_cell",
            [](const Table& t, long long row, long long col, double value) {
                setCell(t, row, col, value, false);
            },
            py::arg("row"), py::arg("col"), py::arg("value"),
            "Sets a cell from a value as the calibration text shows it: divided by the factor "
            "and cut toward zero, as the text reader stores it. IndexError outside the table, "
            "ValueError when the value does not fit the stored type.")
        .def(
            "set_raw",
            [](const Table& t, long long row, long long col, double value) {
                setCell(t, row, col, value, true);
            },
            py::arg("row"), py::arg("col"), py::arg("raw"),
            "Sets a cell to a stored value as it is (integers only for integer tables). "
            "IndexError outside the table, ValueError when the value does not fit.")
        .def(
            "__repr__",
            [](const Table& t) {
                const TableContent c = t.content();
                return QStringLiteral("<Table %1 %2*%3 of %4*%5 %6, factor %7>")
                    .arg(t.image->name(t.index))
                    .arg(c.rows)
                    .arg(c.cols)
                    .arg(c.maxRows)
                    .arg(c.maxCols)
                    .arg(QString::fromStdString(c.rawType))
                    .arg(c.factor);
            },
            "A readable one-line description.");

    py::class_<Block>(m, "Block",
                      "One block of an image's chain with the outcome of its checks, read live "
                      "from the image.")
        .def_property_readonly(
            "index", [](const Block& b) { return b.index; }, "Position in the chain.")
        .def_property_readonly(
            "offset", [](const Block& b) { return b.entry().offset; },
            "Offset from the start of the image.")
        .def_property_readonly(
            "id", [](const Block& b) { return b.entry().id; }, "Block id.")
        .def_property_readonly(
            "size", [](const Block& b) { return b.entry().size; },
            "Bytes the block occupies, header included (4 for the end block).")
        .def_property_readonly(
            "alignment", [](const Block& b) { return b.entry().alignment; },
            "Alignment word of the header.")
        .def_property_readonly(
            "name", [](const Block& b) { return b.image->name(b.index); },
            "Text id where the block has one, else its class name.")
        .def_property_readonly(
            "class_name",
            [](const Block& b) { return std::string(b.image->kindOf(b.index).className); },
            "Library class that interprets the block.")
        .def_property_readonly(
            "kind",
            [](const Block& b) {
                return std::string(blockCatalogue::kindName(b.image->kindOf(b.index).kind));
            },
            "Kind of block: 'identification', 'calibration table', ...")
        .def_property_readonly(
            "is_end", [](const Block& b) { return b.entry().isEnd; }, "True for the end block.")
        .def_property_readonly(
            "checksum", [](const Block& b) { return blockReport(b, "checksum"); },
            "16-bit checksum as {'stored', 'computed', 'ok'}; None for the end block.")
        .def_property_readonly(
            "crc32", [](const Block& b) { return blockReport(b, "crc32"); },
            "CRC-32 of self-describing blocks as {'stored', 'computed', 'ok', "
            "'event_counter'}; None for other blocks.")
        .def_property_readonly(
            "over_capacity", [](const Block& b) { return blockReport(b, "overCapacity"); },
            "Why a table's counts exceed its capacity; None when they fit.")
        .def_property_readonly(
            "ok", [](const Block& b) { return b.entry().ok(); },
            "True when every check of the block passes.")
        .def_property_readonly(
            "table",
            [](const Block& b) -> std::optional<Table> {
                if (!isTable(*b.image, b.index))
                    return std::nullopt;
                return Table{b.image, b.index};
            },
            "The block's calibration Table; None when it is no calibration table.")
        .def_property_readonly(
            "fields", [](const Block& b) { return fieldDict(b, false); },
            "The named fields of a record block as {name: value as printed}, in printing "
            "order; None for blocks without named fields.")
        .def_property_readonly(
            "field_values", [](const Block& b) { return fieldDict(b, true); },
            "The named fields of a record block as {name: value}, typed by the field: int for "
            "numbers, str for texts, datetime.date for dates (None where month and day make no "
            "date), (part number, variant) for a part number; None for blocks without named "
            "fields.")
        .def(
            "set_field",
            [](const Block& b, const QString& name, const py::object& value) {
                QByteArray bytes = b.image->blockBytes(b.index);
                epromPython::check(
                    recordFields::setField(bytes, name, py::str(value).cast<QString>()));
                epromPython::check(b.image->replaceBlock(b.index, bytes));
            },
            py::arg("name"), py::arg("value"),
            "Sets a named field (case-insensitive) through the block class's own setter, which "
            "recomputes the checksum; the value is given as it is printed (str, a number or a "
            "datetime.date). "
            "ValueError for an unknown or read-only field, or a value that does not fit, naming "
            "the field and its rule.")
        .def(
            "to_bytes", [](const Block& b) { return b.image->blockBytes(b.index); },
            "The block's own bytes, exactly its size.")
        .def(
            "export", [](const Block& b) { return text(exportBlock(*b.image, b.index)); },
            "The block's section of a calibration file, in the form of its own class.")
        .def(
            "to_dict",
            [](const Block& b) {
                b.entry();
                return toPython(reportModel::block(*b.image, b.index));
            },
            "The block as `epromtool list --json` shows it, names in snake_case: offset, id, "
            "name, class_name, text_id, kind, size, end, alignment, checksum, crc32, "
            "over_capacity.")
        .def("__repr__", &blockRepr, "A readable one-line description.");

    py::class_<ImportedBlock>(m, "ImportedBlock", "What a calibration text does to one block.")
        .def_readonly("index", &ImportedBlock::index, "Position in the image's chain.")
        .def_readonly("id", &ImportedBlock::id, "Block id.")
        .def_readonly("offset", &ImportedBlock::offset, "Offset of the block in the image.")
        .def_readonly("name", &ImportedBlock::name, "Name of the block's section.")
        .def_property_readonly(
            "outcome",
            [](const ImportedBlock& b) {
                return std::string(reportModel::importOutcomeName(b.outcome));
            },
            "'unchanged', 'changed' or 'not importable'.")
        .def_readonly("note", &ImportedBlock::note,
                      "What changed, or why the block is not importable.")
        .def_property_readonly(
            "complaints",
            [](const ImportedBlock& b) {
                std::vector<QString> lines(b.complaints.begin(), b.complaints.end());
                return lines;
            },
            "What the reader had to say about the section, summarised.")
        .def_readonly("before", &ImportedBlock::before, "The stored block.")
        .def_readonly("after", &ImportedBlock::after, "The new block (changed blocks only).")
        .def(
            "__repr__",
            [](const ImportedBlock& b) {
                return QStringLiteral("<ImportedBlock %1 at %2 %3: %4%5>")
                    .arg(b.id)
                    .arg(hex16(b.offset), b.name,
                         QLatin1String(reportModel::importOutcomeName(b.outcome)),
                         b.note.isEmpty() ? QString() : QStringLiteral(", ") + b.note);
            },
            "A readable one-line description.");

    py::class_<SkippedSection>(m, "SkippedSection",
                               "A section of a calibration text that the import does not read.")
        .def_readonly("name", &SkippedSection::name, "The section's name.")
        .def_readonly("line", &SkippedSection::line, "Line of its 'ID:' line.")
        .def_readonly("reason", &SkippedSection::reason, "Why it is not read.")
        .def(
            "__repr__",
            [](const SkippedSection& s) {
                return QStringLiteral("<SkippedSection %1 (line %2): %3>")
                    .arg(s.name)
                    .arg(s.line)
                    .arg(s.reason);
            },
            "A readable one-line description.");

    py::class_<ImportPlan>(m, "ImportPlan",
                           "What a calibration text would do to an image, block by block.")
        .def_property_readonly(
            "blocks",
            [](const ImportPlan& p) {
                return std::vector<ImportedBlock>(p.blocks.begin(), p.blocks.end());
            },
            "Every table block with a section in the text, in chain order.")
        .def_property_readonly(
            "skipped_sections",
            [](const ImportPlan& p) {
                return std::vector<SkippedSection>(p.skipped.begin(), p.skipped.end());
            },
            "Sections that are not read back.")
        .def_property_readonly("changed_count", &ImportPlan::changedCount,
                               "How many blocks the text changes.")
        .def(
            "to_dict", [](const ImportPlan& p) { return toPython(reportModel::importPlan(p)); },
            "The plan as `epromtool import --json` reports it, names in snake_case: ok, code, "
            "error, replaced, notes, blocks [{index, id, offset, name, outcome, note, "
            "complaints}], skipped_sections [{name, line, reason}].")
        .def(
            "__repr__",
            [](const ImportPlan& p) {
                return QStringLiteral("<ImportPlan %1 blocks, %2 changed, %3 sections skipped>")
                    .arg(p.blocks.size())
                    .arg(p.changedCount())
                    .arg(p.skipped.size());
            },
            "A readable one-line description.");

    py::class_<EepromImage, ImagePtr>(
        m, "Image",
        "A whole EEPROM image: its chain of blocks walked once, each block checked. Opening "
        "never fails on the content: what is wrong is listed in `problems`.")
        .def_static(
            "open",
            [](const std::filesystem::path& path, int offset) {
                auto image = std::make_shared<EepromImage>();
                epromPython::check(EepromImage::fromFile(pathText(path), *image, offset));
                return image;
            },
            py::arg("path"), py::arg("offset") = 0,
            "Reads an image file whose chain starts at byte `offset`; block offsets count from "
            "the start of the file, and saving keeps every byte before the chain. OSError when "
            "the file cannot be read (UnreadableError).")
        .def_static(
            "from_bytes",
            [](const QByteArray& data, int offset) {
                return std::make_shared<EepromImage>(EepromImage::fromBytes(data, offset));
            },
            py::arg("data"), py::arg("offset") = 0,
            "An image of the given bytes whose chain starts at byte `offset`.")
        .def_property_readonly("chain_start", &EepromImage::chainStart,
                               "Byte where the chain starts; the bytes before it never change.")
        .def_property_readonly(
            "blocks",
            [](const ImagePtr& image) {
                std::vector<Block> blocks;
                for (int i = 0; i < image->blockCount(); ++i)
                    blocks.push_back(Block{image, i});
                return blocks;
            },
            "The blocks in chain order; the end block, when found, is the last one.")
        .def("__len__", &EepromImage::blockCount,
             "Number of blocks, the end block included, as everywhere a count of blocks is "
             "shown.")
        .def(
            "__getitem__",
            [](const ImagePtr& image, long long index) {
                return Block{image, position(index, image->blockCount(), "block")};
            },
            py::arg("index"), "The block at a position of the chain.")
        .def_property_readonly(
            "problems",
            [](const EepromImage& image) {
                const QVector<ImageProblem> problems = image.problems();
                return std::vector<ImageProblem>(problems.begin(), problems.end());
            },
            "Failed checks in chain order, then what broke the chain.")
        .def("verify", &EepromImage::ok,
             "True when the chain is whole and every block passes its checks.")
        .def_property_readonly("chain_broken", &EepromImage::chainBroken,
                               "True when the chain of blocks does not reach an end block.")
        .def_property_readonly("size", &EepromImage::size, "Bytes of the image.")
        .def_property_readonly("bytes_used", &EepromImage::bytesUsed,
                               "Bytes up to and including the end block; 0 when broken.")
        .def_property_readonly("bytes_free", &EepromImage::bytesFree,
                               "Bytes behind the end block; 0 when the chain is broken.")
        .def_property_readonly(
            "end_offset",
            [](const EepromImage& image) -> py::object {
                return image.endOffset() < 0 ? py::none() : py::cast(image.endOffset());
            },
            "Offset of the end block; None when there is none.")
        .def(
            "find",
            [](const ImagePtr& image, quint16 id, int start) {
                return blockOrNone(image, image->find(id, start));
            },
            py::arg("id"), py::arg("start") = 0,
            "The first block with `id` at or after position `start`; None when there is none.")
        .def(
            "to_bytes", [](const EepromImage& image) { return image.bytes(); },
            "The image's bytes.")
        .def(
            "save",
            [](const EepromImage& image, const std::filesystem::path& path, bool backup) {
                epromPython::check(safeWrite(pathText(path), image.bytes(), backup));
            },
            py::arg("path"), py::arg("backup") = true,
            "Writes the image to `path`, replacing a file only once the new content is "
            "complete (with `backup` the previous file is kept as PATH.bak); a device (block or "
            "character device, sysfs file) gets only its changed pages, after a timestamped "
            "backup in the current directory, and is read back. WriteFailedError (an OSError) on "
            "failure.")
        .def(
            "export",
            [](const EepromImage& image, const std::optional<std::vector<quint16>>& ids) {
                QSet<quint16> chosen;
                if (ids)
                    for (quint16 id : *ids)
                        chosen.insert(id);
                return text(exportImage(image, chosen));
            },
            py::arg("ids") = py::none(),
            "The image as a calibration text, every block in the form of its own class; only "
            "the blocks whose id is in `ids` when it is given.")
        .def(
            "plan_import",
            [](const EepromImage& image, const QByteArray& text) { return plan(image, text); },
            py::arg("text"))
        .def(
            "plan_import",
            [](const EepromImage& image, const py::str& calibration) {
                return plan(image, textBytes(calibration));
            },
            py::arg("text"),
            "What a calibration text (str or bytes) would do to the image's tables, block by "
            "block. BadTextError (a ValueError), naming the section and the line, when a section "
            "is "
            "malformed.")
        .def(
            "apply_import",
            [](EepromImage& image, const ImportPlan& plan) {
                epromPython::check(applyPlan(image, plan));
            },
            py::arg("plan"),
            "Replaces the blocks a plan of this image changes. NoRoomError (a ValueError) when "
            "the new chain does not fit.")
        .def(
            "to_dict", [](const EepromImage& image) { return toPython(reportModel::image(image)); },
            "The image as `epromtool list --json` shows it, names in snake_case: image_size, "
            "problems [{offset, code, message}], end_offset, used, free, ok and blocks (every "
            "block, the end block included, as Block.to_dict gives it).")
        .def(
            "diff",
            [](const EepromImage& a, const EepromImage& b) {
                return toPython(reportModel::diff(diffImages(a, b)));
            },
            py::arg("other"),
            "How the blocks of `other` differ from this image's, as `epromtool diff --json` "
            "reports it, names in snake_case: {'differences': [{'kind' ('changed', 'removed', "
            "'added'), 'id', 'offset_a', 'size_a', 'offset_b', 'size_b' (None on the side "
            "without the block), 'header_changes' [{'field', 'before', 'after'}], "
            "'bytes_changed'}], 'free_space_differs'}.")
        .def("__repr__", &imageRepr, "A readable one-line description.");

    m.def(
        "catalogue",
        [] {
            py::list entries;
            for (quint16 id : blockCatalogue::knownIds()) {
                const BlockKindInfo info = blockCatalogue::describe(id);
                py::dict entry;
                entry["id"] = id;
                entry["name"] = info.name();
                entry["class"] = info.className;
                entry["kind"] = blockCatalogue::kindName(info.kind);
                entry["template"] = blockCatalogue::templateName(info.tableTemplate);
                entry["reads_back"] = info.readsBack;
                entries.append(entry);
            }
            return entries;
        },
        "Every block id the library has a class for, as dicts with 'id', 'name', 'class', "
        "'kind', 'template' and 'reads_back'.");
    addInventory(m);
    epromPython::addTableViews(m);
}
