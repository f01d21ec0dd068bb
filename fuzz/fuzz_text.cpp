// Fuzz target: the non-exiting section readers of every table class (token, line, headed,
// descriptor, WexW and misc-data forms) on arbitrary text; the first byte picks the class. A
// section that reads must hold counts within the capacity and read back from its own printout.
#include "FuzzSupport.h"

#include "TableClasses.h"

#include <BlockCatalogue.h>

#include <memory>
#include <sstream>
#include <string>
#include <vector>

using namespace Tupsim;

namespace {

// Reads `text` into a fresh block; one that reads holds counts within its capacity, prints
// without growing past what it holds, and reads its own printout back to the same counts.
template <class Block, class Make> void readAs(const std::string& text, Make make) {
    const fuzz::Capacity capacity = fuzz::capacityOf<Block>();
    std::unique_ptr<Block> block(make());
    std::istringstream in(text);
    const TextReadStatus status = block->readSection(in, *block);
    status.message();
    FUZZ_CHECK(status.complaints.size() <= size_t(TextReadStatus::kMaxComplaints));
    if (!status.ok())
        return;
    FUZZ_CHECK(block->getRowCount() <= capacity.rows);
    FUZZ_CHECK(block->getColCount() <= capacity.cols);
    std::ostringstream printed;
    block->printToStream(printed);

    // Some tables print a form their reader does not take (the catalogue says which).
    if (!blockCatalogue::describe(static_cast<quint16>(block->getId())).readsBack)
        return;
    std::unique_ptr<Block> again(make());
    std::istringstream back(printed.str());
    const TextReadStatus reread = again->readSection(back, *again);
    // With more rows than columns the token form prints one line per cell, a layout its reader
    // does not take for several columns; an import finds that by its own read-back.
    if (!reread.ok() && block->getRowCount() > block->getColCount() && block->getColCount() > 1)
        return;
    if (!reread.ok())
        std::fprintf(stderr, "printout does not read back: %s\n%s\n", reread.message().c_str(),
                     printed.str().c_str());
    FUZZ_CHECK(reread.ok());
    FUZZ_CHECK(again->getRowCount() == block->getRowCount());
    FUZZ_CHECK(again->getColCount() == block->getColCount());
}

struct ReadAction {
    template <class Block, class Make> static void run(const std::string& text, Make make) {
        readAs<Block>(text, make);
    }
};

const std::vector<fuzz::TableAction>& readers() {
    static const std::vector<fuzz::TableAction> all = fuzz::tableActions<ReadAction>();
    return all;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::quietHost();
    if (size < 1)
        return 0;
    const std::string text(reinterpret_cast<const char*>(data + 1), size - 1);
    readers()[data[0] % readers().size()](text);
    return 0;
}
