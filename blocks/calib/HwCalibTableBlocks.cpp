// Constructors of the table-based calibration blocks, expanded from the catalogue, and the few
// operations that some of them add or replace.
#include "HwCalibTableBlocks.h"

#include "IErrorManager.h"
#include "templates/HeadedLineForm.h"

namespace Tupsim {

#define EPROM_TABLE_BLOCK(Class, Template, Args, Name, Id, Factor, Axis)                           \
    Class::Class(bool stopConversionOnError)                                                       \
        : Template<EPROM_UNPACK Args>(Name, Id, 0, Factor, stopConversionOnError) {}               \
    Class::~Class() = default;

#define EPROM_TABLE_BLOCK_NAMED(Class, Template, Args, NameType, Id, Factor, Axis)                 \
    Class::Class(NameType name, int instance, bool stopConversionOnError)                          \
        : Template<EPROM_UNPACK Args>(name, Id, instance, Factor, stopConversionOnError) {}        \
    Class::~Class() = default;

#define EPROM_TABLE_BLOCK_HEADED(Class, Template, Args, Name, Id, Factor, Title, Key, Limit,       \
                                 Message, RowsMessage, OwnPrint, Axis)                             \
    namespace {                                                                                    \
    const HeadedLineForm Class##Form = {Title, Key, Limit, Message, RowsMessage};                  \
    }                                                                                              \
    Class::Class(bool stopConversionOnError)                                                       \
        : Table(Name, Id, 0, Factor, stopConversionOnError) {}                                     \
    Class::~Class() = default;                                                                     \
    std::ostream& Class::conv2ascii(std::ostream& out, Table& source) {                            \
        return this->writeHeadedLineForm(out, Class##Form, source);                                \
    }                                                                                              \
    std::istream& Class::searchascii(std::istream& in, Table& target) {                            \
        return this->readHeadedLineForm(in, Class##Form, target);                                  \
    }                                                                                              \
    TextReadStatus Class::readSection(std::istream& in, Table& target) {                           \
        return this->readHeadedSection(in, Class##Form, target);                                   \
    }                                                                                              \
    std::ostream& Class::printToStream(std::ostream& out) {                                        \
        /* the attenuator register table prints the table's own form but reads the headed one */   \
        return (OwnPrint) ? conv2ascii(out, *this) : Table::printToStream(out);                    \
    }

#define EPROM_TABLE_BLOCK_TCXO(Class, Template, Args, Name, Id, Factor, Axis)                      \
    Class::Class(bool stopConversionOnError)                                                       \
        : Template<EPROM_UNPACK Args>(Name, Id, 0, Factor, stopConversionOnError) {}               \
    Class::~Class() = default;

#include "HwCalibTableBlocks.def"

namespace {
unsigned int clampToTcxoValues(unsigned int count) {
    const unsigned int limit = HwDatablockOroRfboTcxoCal::TcxoValues;
    return count < limit ? count : limit;
}
} // namespace

void HwDatablockOroRfboTcxoCal::setRowCount(unsigned int rows) {
    HwDatablockBaseTemplate::setRowCount(clampToTcxoValues(rows));
}

void HwDatablockOroRfboTcxoCal::setColCount(unsigned int cols) {
    HwDatablockBaseTemplate::setColCount(clampToTcxoValues(cols));
}

int HwDatablockOroRfboTcxoCal::setTcxoValue(int value, int index) {
    if (index < 0 || index >= TcxoValues)
        return -1;
    int result = 0;
    setCalValue(value, static_cast<unsigned int>(index), 0);
    if (getCalValue(static_cast<unsigned int>(index), 0) != value) {
        errorManager()->signal(1040002, QStringLiteral("Setting TXCO value failed"));
        result = -1;
    }
    refreshChecksum();
    return result;
}

} // namespace Tupsim
