// Exit codes of epromtool; a larger code means a worse outcome.
#pragma once

#include <QString>

namespace epromtool {

enum ExitCode : int {
    ExitOk = 0,
    ExitChecksum = 1,    // a 16-bit checksum or a CRC-32 failed
    ExitUnreadable = 2,  // an input could not be read, or the chain is broken
    ExitWriteFailed = 3, // the output could not be written
    ExitUsage = 64,      // the command line is wrong
};

// The worse of two outcomes.
inline int worse(int a, int b) {
    return a > b ? a : b;
}

// The exit code table as shown by --help.
inline QString exitCodeHelp() {
    return QStringLiteral("Exit codes:\n"
                          "  0   all good\n"
                          "  1   a checksum or CRC-32 failed\n"
                          "  2   an image or file could not be read, or the chain is broken\n"
                          "  3   the output could not be written\n"
                          "  64  usage error");
}

} // namespace epromtool
