// The words of each result code.
#include "Outcome.h"

namespace Tupsim {

const char* resultCodeName(ResultCode code) {
    switch (code) {
#define EPROM_RESULT_CODE(Name, Words)                                                             \
    case ResultCode::Name:                                                                         \
        return Words;
#include "ResultCodes.def"
#undef EPROM_RESULT_CODE
    }
    return "unknown";
}

} // namespace Tupsim
