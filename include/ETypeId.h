// One-byte element type code of the self-describing blocks.
#pragma once

namespace Tupsim {

enum ETypeId : unsigned char {
    NONE = 0,
    UINT8 = 1,
    INT8 = 2,
    UINT16 = 3,
    INT16 = 4,
    UINT32 = 5,
    INT32 = 6,
    UINT64 = 7,
    INT64 = 8,
    FLOAT = 9,
    DOUBLE = 10,
    LONG_DOUBLE = 11,
    FIX16D1 = 12,
    FIX16D2 = 13,
    FIX16D3 = 14,
    FIX16D4 = 15,
    FIX32D1 = 16,
    FIX32D2 = 17,
    FIX32D3 = 18,
    FIX32D4 = 19,
    CHAR = 20,
    CHAR5 = 21,
    CHAR10 = 22,
    CHAR15 = 23,
    CHAR20 = 24,
    STRING = 25
};

} // namespace Tupsim
