// The block catalogue backed by the library: the old-style directory prints the blocks, the
// calibration table classes read theirs back.
#include "LibraryCatalogue.h"

#include "BlockCheck.h"
#include "BlockImage.h"
#include "ChainWalker.h"
#include "CoutCapture.h"
#include "HexForm.h"
#include "TableKinds.h"

#include "core/HwBytes.h"

#include <HwDatablock2Edition.h>
#include <cstdlib>
#include <cxxabi.h>
#include <sstream>
#include <typeinfo>

namespace epromtool {

namespace {

quint16 idOf(const QByteArray& block) {
    return Tupsim::bytes::getLE<quint16>(block, 0);
}

// A block handed to the directory: the tool checks checksums itself and reports them in its
// own words, so the library's check stays silent.
class QuietBlock : public Tupsim::HwDatablock {
public:
    explicit QuietBlock(const QByteArray& image) : HwDatablock(false) { loadImage(*this, image); }
    using HwDatablock::verifyChecksum;
    bool verifyChecksum() override { return true; }
};

// "counts 5*3 exceed the capacity 4*10"; empty when the counts fit the table.
QString overflow(const TableShape& shape) {
    if (shape.rows <= shape.maxRows && shape.cols <= shape.maxCols)
        return QString();
    return QStringLiteral("counts %1*%2 exceed the capacity %3*%4")
        .arg(shape.rows)
        .arg(shape.cols)
        .arg(shape.maxRows)
        .arg(shape.maxCols);
}

// "HwDatablockIdent" for the type name of Tupsim::HwDatablockIdent.
QString demangled(const char* typeName) {
    int status = 0;
    char* readable = abi::__cxa_demangle(typeName, nullptr, nullptr, &status);
    QString name = QString::fromLatin1(status == 0 && readable ? readable : typeName);
    std::free(readable);
    name.remove(QStringLiteral("Tupsim::"));
    // The directory's generic misc-data tables: "HwDatablockTemplate<MiscData<int, 10u, 1u>, ...>"
    if (name.startsWith(QStringLiteral("HwDatablockMiscTemplate<")))
        return name.endsWith(QStringLiteral("false>"))
                   ? QStringLiteral("HwDatablockTemplateWithoutChecksum")
                   : QStringLiteral("HwDatablockTemplate");
    return name;
}

std::string printedBy(Tupsim::HwDatablock& block) {
    std::ostringstream out;
    block.printToStream(out);
    return out.str();
}

} // namespace

QString LibraryCatalogue::className(const QByteArray& block) {
    const quint16 id = idOf(block);
    if (id == ChainWalker::EndId)
        return QStringLiteral("HwDatablockEnd");
    // The directory's prototype names the class that interprets the id.
    const auto& directory = interpreter.getDictionary();
    const auto entry = directory.find(id);
    if (entry != directory.end() && entry->second != nullptr)
        return demangled(typeid(*entry->second).name());
    if (const TableKind* kind = TableKinds::find(id))
        return QLatin1String(kind->className);
    if (BlockCheck::carriesCrc(id))
        return QStringLiteral("HwDatablock2Edition");
    return QStringLiteral("HwDatablock");
}

QString LibraryCatalogue::textId(const QByteArray& block) {
    const QString text = idText(printed(block));
    if (text.isEmpty() && idOf(block) == ChainWalker::EndId)
        return QStringLiteral("END");
    return text;
}

bool LibraryCatalogue::readsAscii(const QByteArray& block) {
    const TableKind* kind = TableKinds::find(idOf(block));
    return kind != nullptr && kind->readsAscii();
}

void LibraryCatalogue::print(const QByteArray& block, std::ostream& out) {
    out << printed(block);
}

SectionRead LibraryCatalogue::parse(const QByteArray& block, std::istream& calibrationFile) {
    SectionRead result;
    const TableKind* kind = TableKinds::find(idOf(block));
    if (kind == nullptr || !kind->readsAscii())
        return result;
    result.note = importBlocker(*kind, block);
    if (!result.note.isEmpty()) {
        result.outcome = SectionRead::NotImportable;
        return result;
    }
    const QByteArray image = kind->read(calibrationFile);
    // A reader that did not find the section loads an image with id 0.
    if (idOf(image) != idOf(block))
        return result;
    result.outcome = SectionRead::Read;
    const QByteArray unedited = ownReadBack(*kind, block);
    // Where the text form cannot carry a stored value exactly, only the edited cells change.
    result.image = unedited == block ? image : kind->merge(block, unedited, image);
    return result;
}

QString LibraryCatalogue::describeChange(const QByteArray& before, const QByteArray& after) {
    const TableKind* kind = TableKinds::find(idOf(before));
    if (kind == nullptr || kind->compare == nullptr)
        return BlockCatalogue::describeChange(before, after);
    return kind->compare(before, after).text();
}

QString LibraryCatalogue::importBlocker(const TableKind& kind, const QByteArray& block) {
    const TableShape shape = kind.shape(block);
    if (block.size() != shape.imageSize)
        return QStringLiteral("its size is %1 bytes, the table's image has %2")
            .arg(block.size())
            .arg(shape.imageSize);
    // Checked here, as the reader would end the process on such counts.
    const QString tooMany = overflow(shape);
    if (!tooMany.isEmpty())
        return QStringLiteral("its ") + tooMany;
    const QByteArray again = ownReadBack(kind, block);
    if (again == block)
        return QString();
    // Bytes 4 and 5 hold the checksum, which the reader computes afresh.
    if (again.size() == block.size() && again.left(4) == block.left(4) &&
        again.mid(6) == block.mid(6))
        return QStringLiteral("its checksum is bad");
    const TableChange change = kind.compare(block, again);
    // Values the text form only rounds (hundredths read back a count lower) are no obstacle:
    // the import then takes the edited cells alone.
    const bool onlyValuesRounded =
        again.size() == block.size() && change.rowsBefore == change.rowsAfter &&
        change.colsBefore == change.colsAfter && change.indexes == 0 && change.descriptors == 0;
    if (onlyValuesRounded)
        return QString();
    return QStringLiteral("its own text form ") + change.differences();
}

QByteArray LibraryCatalogue::ownReadBack(const TableKind& kind, const QByteArray& block) {
    std::ostringstream text;
    kind.print(block, text);
    std::istringstream in(text.str());
    const CoutCapture ownComplaints; // about the block's own text: not the file's business
    return kind.read(in);
}

QString LibraryCatalogue::idText(const std::string& printout) {
    std::istringstream lines(printout);
    std::string line;
    while (std::getline(lines, line))
        if (line.compare(0, 3, "ID:") == 0)
            return QString::fromStdString(line.substr(3)).trimmed();
    return QString();
}

bool LibraryCatalogue::printedByDirectory(const QByteArray& block, std::string& text) {
    QuietBlock quiet(block);
    std::ostringstream out;
    if (!interpreter.printHwDatablockOldStyleInfo(&quiet, out))
        return false;
    text = out.str();
    // A class without a form of its own prints the raw bytes, which is no text.
    return !text.empty() && text != printedBy(quiet);
}

std::string LibraryCatalogue::printed(const QByteArray& block) {
    const quint16 id = idOf(block);
    const TableKind* kind = TableKinds::find(id);
    // A table prints as many rows and columns as its counts claim, which a damaged image
    // may set to millions: such a block is shown as bytes.
    if (kind != nullptr && kind->shape != nullptr) {
        const QString tooMany = overflow(kind->shape(block));
        if (!tooMany.isEmpty())
            return hexForm(block, QStringLiteral(": ") + tooMany);
    }
    std::string text;
    if (printedByDirectory(block, text))
        return text;
    if (kind != nullptr && kind->print != nullptr) {
        std::ostringstream out;
        kind->print(block, out);
        return out.str();
    }
    if (BlockCheck::carriesCrc(id) && block.size() >= ChainWalker::HeaderSize) {
        Tupsim::HwDatablock2Edition selfDescribing;
        loadImage(selfDescribing, block);
        std::ostringstream out;
        selfDescribing.printToStream2Edition(out, Tupsim::HwSDataBlockCfg());
        return out.str();
    }
    return hexForm(block);
}

std::string LibraryCatalogue::hexForm(const QByteArray& block, const QString& remark) {
    std::ostringstream out;
    out << "# " << className(block).toStdString() << ' ' << idOf(block) << ", " << block.size()
        << " bytes" << remark.toStdString() << '\n';
    for (const QString& line : HexForm::commentLines(block))
        out << line.toStdString() << '\n';
    out << '\n';
    return out.str();
}

} // namespace epromtool
