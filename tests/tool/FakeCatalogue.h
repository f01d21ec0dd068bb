// A block catalogue whose reader the tests control, standing in for the library's classes.
#pragma once

#include "support/Bytes.h"

#include <BlockCatalogue.h>

#include <cstdlib>
#include <istream>

namespace Tupsim {
namespace test {

// Reads a block back by storing the first number of the file as its last payload byte and
// resealing its checksum. By the low byte of the id: 0x11 stands for a malformed section the
// reader gives up on with exit(2), 0x12 for one it cannot read, 0x13 for a class that reads
// no ASCII form, 0x14 for a block whose section is named ABSENT.
class FakeCatalogue : public epromtool::BlockCatalogue {
public:
    QString className(const QByteArray&) override { return "Fake"; }
    QString textId(const QByteArray& block) override {
        return block[0] == 0x14 ? "ABSENT" : "FAKE";
    }
    bool readsAscii(const QByteArray& block) override { return block[0] != 0x13; }
    void print(const QByteArray&, std::ostream&) override {}
    epromtool::SectionRead parse(const QByteArray& block, std::istream& in) override {
        epromtool::SectionRead read;
        if (block[0] == 0x11)
            std::exit(2);
        if (block[0] == 0x12)
            return read;
        in.clear();
        in.seekg(0);
        int value = 0;
        in >> value;
        read.outcome = epromtool::SectionRead::Read;
        read.image = block;
        read.image[read.image.size() - 1] = static_cast<char>(value);
        sealChecksum(read.image);
        return read;
    }
};

} // namespace test
} // namespace Tupsim
