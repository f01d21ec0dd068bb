// The block catalogue backed by the library: the old-style directory prints the blocks, the
// calibration table classes read theirs back.
#pragma once

#include "BlockCatalogue.h"
#include "TableKind.h"

#include <HwDatablockOldStyleInterpreter.h>
#include <string>

namespace epromtool {

class LibraryCatalogue : public BlockCatalogue {
public:
    QString className(const QByteArray& block) override;
    QString textId(const QByteArray& block) override;
    bool readsAscii(const QByteArray& block) override;
    void print(const QByteArray& block, std::ostream& out) override;
    SectionRead parse(const QByteArray& block, std::istream& calibrationFile) override;
    QString describeChange(const QByteArray& before, const QByteArray& after) override;

    // Why a table block cannot be replaced from its text form; empty when it can. The
    // class's own printout of the block must read back to the very same bytes.
    static QString importBlocker(const TableKind& kind, const QByteArray& block);
    // The block read back from its class's own printout of it.
    static QByteArray ownReadBack(const TableKind& kind, const QByteArray& block);
    // What follows the first "ID:" at the start of a line of a printout, trimmed.
    static QString idText(const std::string& printout);

private:
    // The directory's printout; false when it has no text form of its own for the block.
    bool printedByDirectory(const QByteArray& block, std::string& text);
    std::string printed(const QByteArray& block);
    // Comment lines of hexadecimal bytes under "# CLASS ID, SIZE bytes" and the remark.
    std::string hexForm(const QByteArray& block, const QString& remark = QString());

    // One per tool run: it holds a prototype of every known block class.
    Tupsim::HwDatablockOldStyleInterpreter interpreter;
};

} // namespace epromtool
