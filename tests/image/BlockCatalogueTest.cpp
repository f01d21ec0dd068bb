// The block catalogue against the classes themselves: the text ids they print, the classes the
// directory holds, what it says about ids outside its table, and the block lists that must agree.
#include "directory/Catalogue.h"
#include "support/TestImages.h"

#include <BlockCatalogue.h>
#include <HwDatablockOldStyleInterpreter.h>
#include <QRegularExpression>
#include <cxxabi.h>
#include <gtest/gtest.h>
#include <memory>
#include <typeinfo>

using namespace Tupsim;

namespace {

// What a block prints behind the first "ID:" that opens a line, trimmed; "<none>" without one.
std::string printedId(HwDatablock& block) {
    const QRegularExpressionMatch match =
        QRegularExpression("^ID:[ \t]*(.*?)[ \t\r]*$", QRegularExpression::MultilineOption)
            .match(QString::fromStdString(test::printed(block)));
    return match.hasMatch() ? match.captured(1).toStdString() : "<none>";
}

std::string demangled(const std::type_info& type) {
    int status = 0;
    std::unique_ptr<char, void (*)(void*)> name(
        abi::__cxa_demangle(type.name(), nullptr, nullptr, &status), std::free);
    return status == 0 ? name.get() : type.name();
}

} // namespace

TEST(BlockCatalogue, TextIdsAreWhatTheClassesPrintAndClassesAreTheDirectorys) {
    const std::vector<quint16> ids = blockCatalogue::knownIds();
    ASSERT_GT(ids.size(), 200u);
    EXPECT_TRUE(std::is_sorted(ids.begin(), ids.end()));
    EXPECT_EQ(ids.back(), 65535); // the end block; no self-describing id is listed
    EXPECT_LT(ids[ids.size() - 2], 20000);
    for (quint16 id : ids) {
        SCOPED_TRACE(id);
        const BlockKindInfo info = blockCatalogue::describe(id);
        EXPECT_TRUE(info.id == id && info.known());
        // A fresh image: the header of the id and zeros, so every count is 0.
        const std::string printed =
            printedId(*blockCatalogue::makeBlock(id, test::sealed(test::freshImage(id, 4096))));
        if (printed == "<none>" && info.kind == BlockKind::Opaque)
            continue; // a plain dump of the bytes
        EXPECT_EQ(info.textId, printed == "<none>" ? "" : printed) << info.className;
    }

    // The classes are the directory's; ids outside the table are described too.
    HwDatablockOldStyleInterpreter directory;
    const struct {
        quint16 id;
        const char* className;
        BlockKind kind;
    } pinned[] = {
        {2, "HwDatablockIdent", BlockKind::Identification},
        {100, "HwDatablockModification", BlockKind::Modification},
        {209, "HwDatablockServiceData", BlockKind::Service},
        {300, "HwDatablockStatistic", BlockKind::Statistic},
        {10000, "HwDatablockSsynOcxoRefCalValue", BlockKind::CalibrationRecord},
        {11300, "HwDatablockSAttCCounter", BlockKind::Counter},
        // The directory keeps 14801 with the rear phase class, not the table catalogue's.
        {14801, "HwDatablockDacbIqImbalanceRearPh", BlockKind::Opaque},
        {14802, "HwDatablockMbrdIqInputB", BlockKind::CalibrationTable},
        {65535, "HwDatablockEnd", BlockKind::End},
    };
    for (const auto& pin : pinned) {
        SCOPED_TRACE(pin.id);
        const BlockKindInfo info = blockCatalogue::describe(pin.id);
        EXPECT_STREQ(info.className, pin.className);
        EXPECT_EQ(info.kind, pin.kind);
        ASSERT_EQ(directory.getDictionary().count(pin.id), 1u);
        EXPECT_EQ(demangled(typeid(*directory.getDictionary().at(pin.id))),
                  std::string("Tupsim::") + pin.className);
    }
    EXPECT_EQ(blockCatalogue::describe(65535).textId, "END");
    EXPECT_EQ(blockCatalogue::describe(15731).name(), "RFBO_ALC_DATA");

    const BlockKindInfo self = blockCatalogue::describe(20010);
    EXPECT_EQ(std::make_tuple(std::string(self.className), self.textId, self.kind, self.readsBack),
              std::make_tuple(std::string("HwDatablock2Edition"), std::string("USER_20010"),
                              BlockKind::SelfDescribing, false));
    EXPECT_EQ(blockCatalogue::describe(65534).textId, "USER_65534");

    for (quint16 id : {0, 1, 11, 19999}) {
        const BlockKindInfo unknown = blockCatalogue::describe(id);
        EXPECT_TRUE(unknown.id == id && !unknown.known()) << id;
        EXPECT_EQ(std::string(unknown.className) + " " + unknown.name(), "HwDatablock HwDatablock");
        EXPECT_EQ(typeid(*blockCatalogue::makeBlock(id, test::bytesOf({0, 0, 8, 0, 0, 0, 0, 0}))),
                  typeid(HwDatablock));
    }

    // Every row of the table list belongs to its id, with its class there except where the
    // directory keeps another (14801); the opaque list is held against the catalogue in the
    // calibration tests.
    ASSERT_EQ(catalogue::tables().size(), 56u);
    for (const catalogue::TableFacts& row : catalogue::tables()) {
        const catalogue::Entry* entry = catalogue::find(row.id);
        ASSERT_TRUE(entry != nullptr && entry->table == &row) << row.id;
        EXPECT_EQ(std::string(entry->info.className) == row.className, row.id != 14801) << row.id;
    }
}
