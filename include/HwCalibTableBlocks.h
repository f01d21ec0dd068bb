// The table-based calibration blocks: thin classes that give a table template its name, block id
// and scale factor. Every class is declared here from the catalogue; each also has a header of
// its own name that includes this one.
#pragma once

#include "HwDatablockBaseTemplate.h"
#include "HwDatablockBaseTemplateExtended.h"
#include "HwDatablockBaseTemplateIndex.h"
#include "HwDatablockBaseTemplateWexW.h"

// Expands a parenthesised template argument list in place.
#define EPROM_UNPACK(...) __VA_ARGS__

namespace Tupsim {

#define EPROM_TABLE_BLOCK(Class, Template, Args, Name, Id, Factor, Axis)                           \
    class EPROMDATABLOCK_EXPORT Class : public Template<EPROM_UNPACK Args> {                       \
    public:                                                                                        \
        enum { BlockId = Id };                                                                     \
        explicit Class(bool stopConversionOnError = false);                                        \
        ~Class() override;                                                                         \
    };

#define EPROM_TABLE_BLOCK_NAMED(Class, Template, Args, NameType, Id, Factor, Axis)                 \
    class EPROMDATABLOCK_EXPORT Class : public Template<EPROM_UNPACK Args> {                       \
    public:                                                                                        \
        enum { BlockId = Id };                                                                     \
        Class(NameType name, int instance, bool stopConversionOnError);                            \
        ~Class() override;                                                                         \
    };

// These blocks write and read the headed line form in place of the table's own text form.
#define EPROM_TABLE_BLOCK_HEADED(Class, Template, Args, Name, Id, Factor, Title, Key, Limit,       \
                                 Message, RowsMessage, OwnPrint, Axis)                             \
    class EPROMDATABLOCK_EXPORT Class : public Template<EPROM_UNPACK Args> {                       \
    public:                                                                                        \
        using Table = Template<EPROM_UNPACK Args>;                                                 \
        enum { BlockId = Id };                                                                     \
        explicit Class(bool stopConversionOnError = false);                                        \
        ~Class() override;                                                                         \
        std::ostream& conv2ascii(std::ostream& out, Table& source);                                \
        std::istream& searchascii(std::istream& in, Table& target);                                \
        /* searchascii that reports instead of writing to standard output; reads the headed */     \
        /* form as searchascii does, and hides the table's own readSection */                      \
        TextReadStatus readSection(std::istream& in, Table& target);                               \
        std::ostream& printToStream(std::ostream& out) override;                                   \
    };

// The TCXO table keeps its counts within its eight rows.
#define EPROM_TABLE_BLOCK_TCXO(Class, Template, Args, Name, Id, Factor, Axis)                      \
    class EPROMDATABLOCK_EXPORT Class : public Template<EPROM_UNPACK Args> {                       \
    public:                                                                                        \
        enum { BlockId = Id, TcxoValues = 8 };                                                     \
        explicit Class(bool stopConversionOnError = false);                                        \
        ~Class() override;                                                                         \
        void setRowCount(unsigned int rows);                                                       \
        void setColCount(unsigned int cols);                                                       \
        /* 0 on success; -1 for an index of 8 or more, or when the value did not stick */          \
        int setTcxoValue(int value, int index);                                                    \
    };

#include "HwCalibTableBlocks.def"

} // namespace Tupsim
