// The block catalogue of this build: it knows only the datablock core, so every block is a
// plain HwDatablock printed in hexadecimal and none is read back from a calibration file.
#include "BlockCatalogue.h"

#include "HexForm.h"

#include "core/HwBytes.h"

namespace epromtool {

BlockCatalogue::~BlockCatalogue() = default;

namespace {

class CoreCatalogue : public BlockCatalogue {
public:
    QString className(const QByteArray&) override { return QStringLiteral("HwDatablock"); }
    QString textId(const QByteArray& block) override {
        return Tupsim::bytes::getLE<quint16>(block, 0) == 0xFFFF ? QStringLiteral("END")
                                                                 : QString();
    }
    bool readsAscii(const QByteArray&) override { return false; }
    void print(const QByteArray& block, std::ostream& out) override {
        out << "# HwDatablock " << Tupsim::bytes::getLE<quint16>(block, 0) << ", " << block.size()
            << " bytes\n";
        for (const QString& line : HexForm::commentLines(block))
            out << line.toStdString() << '\n';
        out << '\n';
    }
    bool parse(const QByteArray&, std::istream&, QByteArray&) override { return false; }
};

} // namespace

std::unique_ptr<BlockCatalogue> makeBlockCatalogue() {
    return std::make_unique<CoreCatalogue>();
}

} // namespace epromtool
