// What the tool knows about block classes; all other work it does with the datablock core.
#pragma once

#include "SectionRead.h"

#include <QByteArray>
#include <QString>
#include <istream>
#include <memory>
#include <ostream>

namespace epromtool {

// Every operation takes one block's whole image (header included, id at offset 0).
class BlockCatalogue {
public:
    virtual ~BlockCatalogue();
    // Name of the class that interprets the block, e.g. "HwDatablock".
    virtual QString className(const QByteArray& block) = 0;
    // Name of the block's section in a calibration file; empty when it has none.
    virtual QString textId(const QByteArray& block) = 0;
    // True when the block's class reads its section of a calibration file back.
    virtual bool readsAscii(const QByteArray& block) = 0;
    // Writes the block as a section of a calibration file.
    virtual void print(const QByteArray& block, std::ostream& out) = 0;
    // Reads the block's section from `calibrationFile` back into a whole block image. The
    // reader may end the process on a malformed file.
    virtual SectionRead parse(const QByteArray& block, std::istream& calibrationFile) = 0;
    // What changed between two images of one block, e.g. "2 bytes changed".
    virtual QString describeChange(const QByteArray& before, const QByteArray& after);
};

// The catalogue this build of the tool uses.
std::unique_ptr<BlockCatalogue> makeBlockCatalogue();

} // namespace epromtool
