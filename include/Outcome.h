// The result of an operation that can fail: a code from ResultCodes.def and a message in words.
// The library returns these instead of throwing.
#pragma once

#include "EpromDatablockGlobal.h"

#include <QString>

namespace Tupsim {

enum class ResultCode {
#define EPROM_RESULT_CODE(Name, Words) Name,
#include "ResultCodes.def"
#undef EPROM_RESULT_CODE
};

// "unknown field", "read only", ...
EPROMDATABLOCK_EXPORT const char* resultCodeName(ResultCode code);

struct Outcome {
    ResultCode code = ResultCode::Ok;
    QString message; // empty when ok

    bool ok() const { return code == ResultCode::Ok; }
    static Outcome success() { return {}; }
    static Outcome failure(ResultCode code, const QString& message) { return {code, message}; }
};

} // namespace Tupsim
