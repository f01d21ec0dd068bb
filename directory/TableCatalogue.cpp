// The calibration table catalogue expanded into ids and conversion recipes. Rows whose class
// takes a name and an instance are left out: they have no single object per id.
#include "directory/TableCatalogue.h"

#include "HwCalibTableBlocks.h"

#include <string_view>

namespace Tupsim {
namespace oldstyle {

namespace {

// The text form of each template.
constexpr TableTemplate formOf(const char* templateName) {
    const std::string_view name(templateName);
    return name == "HwDatablockBaseTemplateIndex"      ? TableTemplate::Index
           : name == "HwDatablockBaseTemplateExtended" ? TableTemplate::Extended
           : name == "HwDatablockBaseTemplateWexW"     ? TableTemplate::WexW
                                                       : TableTemplate::Base;
}

#define EPROM_CATALOGUE_ROW(Class, Id, TextId, Form, ReadsBack)                                    \
    {Id, {&create<Class>, &tableRule<Class>}, #Class, TextId, Form, ReadsBack},
#define EPROM_TABLE_BLOCK(Class, Template, Args, Name, Id, Factor, Axis)                           \
    EPROM_CATALOGUE_ROW(Class, Id, Name, formOf(#Template), true)
// A headed block that prints the token form does not read its own printout back.
#define EPROM_TABLE_BLOCK_HEADED(Class, Template, Args, Name, Id, Factor, Title, Key, Limit,       \
                                 Message, RowsMessage, OwnPrint, Axis)                             \
    EPROM_CATALOGUE_ROW(Class, Id, OwnPrint ? Key : Name, TableTemplate::Headed, OwnPrint)
#define EPROM_TABLE_BLOCK_TCXO(Class, Template, Args, Name, Id, Factor, Axis)                      \
    EPROM_CATALOGUE_ROW(Class, Id, Name, formOf(#Template), true)

const CatalogueEntry kCatalogue[] = {
#include "HwCalibTableBlocks.def"
};

#undef EPROM_CATALOGUE_ROW

} // namespace

const CatalogueEntry* tableCatalogue(std::size_t& count) {
    count = sizeof kCatalogue / sizeof kCatalogue[0];
    return kCatalogue;
}

const CatalogueEntry* findInCatalogue(int id) {
    for (const CatalogueEntry& entry : kCatalogue)
        if (entry.id == id)
            return &entry;
    return nullptr;
}

} // namespace oldstyle
} // namespace Tupsim
