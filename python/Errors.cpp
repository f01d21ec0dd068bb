// The exception classes of the module: chosen from the library's result codes here and nowhere
// else. Each also derives from the builtin exception that the call raised before it had a class
// of its own, so that `except ValueError` keeps working.
#include "Errors.h"

#include <map>

namespace py = pybind11;

namespace epromPython {

namespace {

struct ErrorClass {
    const char* name;
    PyObject* builtin;
};

ErrorClass classOf(Tupsim::ResultCode code) {
    using Tupsim::ResultCode;
    switch (code) {
    case ResultCode::Ok:
        break;
    case ResultCode::UnknownField:
        return {"UnknownFieldError", PyExc_ValueError};
    case ResultCode::ReadOnly:
        return {"ReadOnlyError", PyExc_ValueError};
    case ResultCode::DoesNotFit:
        return {"DoesNotFitError", PyExc_ValueError};
    case ResultCode::UnknownBlock:
        return {"UnknownBlockError", PyExc_ValueError};
    case ResultCode::ChainBroken:
        return {"ChainBrokenError", PyExc_ValueError};
    case ResultCode::BadText:
        return {"BadTextError", PyExc_ValueError};
    case ResultCode::Corrupt:
        return {"CorruptBlockError", PyExc_ValueError};
    case ResultCode::Unreadable:
        return {"UnreadableError", PyExc_OSError};
    case ResultCode::WriteFailed:
        return {"WriteFailedError", PyExc_OSError};
    case ResultCode::Refused:
        return {"RefusedError", PyExc_ValueError};
    case ResultCode::ChecksumFailed:
        return {"ChecksumError", PyExc_ValueError};
    case ResultCode::CrcFailed:
        return {"CrcError", PyExc_ValueError};
    case ResultCode::OverCapacity:
        return {"OverCapacityError", PyExc_ValueError};
    case ResultCode::NoFields:
        return {"NoFieldsError", PyExc_ValueError};
    case ResultCode::BadAssignment:
        return {"BadAssignmentError", PyExc_ValueError};
    case ResultCode::OutOfRange:
        return {"OutOfRangeError", PyExc_IndexError};
    case ResultCode::NoRoom:
        return {"NoRoomError", PyExc_ValueError};
    }
    return {nullptr, nullptr};
}

// The classes by code; they live as long as the process, as the module does.
std::map<Tupsim::ResultCode, PyObject*>& classes() {
    static std::map<Tupsim::ResultCode, PyObject*> created;
    return created;
}

PyObject* newClass(const std::string& name, const char* doc, PyObject* bases) {
    PyObject* made = PyErr_NewExceptionWithDoc(name.c_str(), doc, bases, nullptr);
    if (made == nullptr)
        throw py::error_already_set();
    return made;
}

} // namespace

void addErrors(py::module_& m) {
    const std::string prefix = "epromdatablock.";
    PyObject* base = newClass(prefix + "Error",
                              "Base class of every error the library reports; `code` names the "
                              "library's result code in words.",
                              PyExc_Exception);
    m.add_object("Error", py::handle(base));
    std::map<Tupsim::ResultCode, PyObject*>& created = classes();
    created.clear();
    static const Tupsim::ResultCode codes[] = {
#define EPROM_RESULT_CODE(Name, Words) Tupsim::ResultCode::Name,
#include <ResultCodes.def>
#undef EPROM_RESULT_CODE
    };
    for (const Tupsim::ResultCode code : codes) {
        const ErrorClass chosen = classOf(code);
        if (chosen.name == nullptr)
            continue;
        const py::tuple bases = py::make_tuple(py::handle(base), py::handle(chosen.builtin));
        const std::string doc = std::string("The library's \"") + Tupsim::resultCodeName(code) +
                                "\"; also a " +
                                reinterpret_cast<PyTypeObject*>(chosen.builtin)->tp_name + ".";
        PyObject* made = newClass(prefix + chosen.name, doc.c_str(), bases.ptr());
        py::setattr(py::handle(made), "code", py::str(Tupsim::resultCodeName(code)));
        m.add_object(chosen.name, py::handle(made));
        created[code] = made;
    }
}

void raise(const Tupsim::Outcome& outcome) {
    const auto found = classes().find(outcome.code);
    PyObject* type = found == classes().end() ? PyExc_RuntimeError : found->second;
    PyErr_SetString(type, outcome.message.toUtf8().constData());
    throw py::error_already_set();
}

} // namespace epromPython
