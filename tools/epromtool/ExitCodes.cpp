// The exit code of each result code of the library, chosen here and nowhere else.
#include "CommandLine.h"

namespace epromtool {

ExitCode exitCodeOf(Tupsim::ResultCode code) {
    using Tupsim::ResultCode;
    switch (code) {
    case ResultCode::Ok:
        return ExitOk;
    case ResultCode::ChecksumFailed:
    case ResultCode::CrcFailed:
    case ResultCode::OverCapacity:
        return ExitChecksum;
    case ResultCode::WriteFailed:
    case ResultCode::NoRoom:
        return ExitWriteFailed;
    case ResultCode::UnknownField:
    case ResultCode::ReadOnly:
    case ResultCode::DoesNotFit:
    case ResultCode::UnknownBlock:
    case ResultCode::ChainBroken:
    case ResultCode::BadText:
    case ResultCode::Corrupt:
    case ResultCode::Unreadable:
    case ResultCode::Refused:
    case ResultCode::NoFields:
    case ResultCode::BadAssignment:
    case ResultCode::OutOfRange:
        return ExitUnreadable;
    }
    return ExitUnreadable;
}

} // namespace epromtool
