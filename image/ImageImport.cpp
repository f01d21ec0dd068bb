// Reading an ASCII calibration file back into an EEPROM image: the plan and its application.
#include "ImageImport.h"

#include "RecordFields.h"
#include "core/BlockHeader.h"
#include "image/TableKinds.h"

#include <QHash>
#include <QSet>
#include <cstring>
#include <sstream>

namespace Tupsim {

namespace {

QString counted(int count, const char* one, const char* many) {
    return QStringLiteral("%1 %2").arg(count).arg(QLatin1String(count == 1 ? one : many));
}

QString counts(quint32 rows, quint32 cols) {
    return QStringLiteral("%1*%2").arg(rows).arg(cols);
}

// The sections of a calibration file. A section opens with a line that starts with "ID:"
// (blanks in front allowed) and runs up to the next such line or the end of the text; the rest
// of its "ID:" line is its name, and only the first section of each name is read. The text is
// walked once, so that every block reads its own section and nothing of the rest.
struct Sections {
    struct Section {
        QString name;
        int line = 0;  // 1-based, of the "ID:" line in the whole text
        int begin = 0; // byte offset of the "ID:" line
        int end = 0;   // byte offset of the next "ID:" line, or the size of the text
    };
    QVector<Section> inOrder;
    QHash<QString, int> lineOf;

    explicit Sections(const QByteArray& text) : text(text) {
        const char* data = text.constData();
        const int size = text.size();
        int line = 0;
        int open = -1; // the section in inOrder that is still waiting for its end
        for (int at = 0; at < size;) {
            const int newline = text.indexOf('\n', at);
            const int stop = newline < 0 ? size : newline;
            ++line;
            int first = at;
            while (first < stop && isBlank(data[first]))
                ++first;
            if (stop - first >= 3 && std::memcmp(data + first, "ID:", 3) == 0) {
                if (open >= 0)
                    inOrder[open].end = at;
                open = -1;
                int from = first + 3;
                int to = stop;
                while (from < to && isBlank(data[from]))
                    ++from;
                while (to > from && isBlank(data[to - 1]))
                    --to;
                const QString name = QString::fromLatin1(data + from, to - from);
                if (!name.isEmpty() && !lineOf.contains(name)) {
                    lineOf.insert(name, line);
                    positionOf.insert(name, inOrder.size());
                    open = inOrder.size();
                    inOrder.append({name, line, at, size});
                }
            }
            at = stop + 1;
        }
    }

    // The text of the section `name`, empty when there is none.
    QByteArray body(const QString& name) const {
        const int position = positionOf.value(name, -1);
        if (position < 0)
            return QByteArray();
        const Section& section = inOrder[position];
        return text.mid(section.begin, section.end - section.begin);
    }

    // Lines in the whole text in front of the section `name`.
    int linesBefore(const QString& name) const { return qMax(lineOf.value(name) - 1, 0); }

private:
    // The characters QByteArray::trimmed takes away.
    static bool isBlank(char c) {
        return c == ' ' || c == '\t' || c == '\r' || c == '\v' || c == '\f';
    }

    const QByteArray& text;
    QHash<QString, int> positionOf;
};

std::string printed(const tableKinds::TableKind& kind, const QByteArray& block) {
    std::ostringstream text;
    kind.print(block, text);
    return text.str();
}

// The block read back from its class's own printout of it; empty when that does not read.
QByteArray ownReadBack(const tableKinds::TableKind& kind, const QByteArray& block) {
    std::istringstream in(printed(kind, block));
    QByteArray again;
    return kind.read(in, again).ok() ? again : QByteArray();
}

// Why a table block cannot be replaced from its text form; empty when it can. The class's own
// printout of the block must read back to the very same bytes, except for values that the text
// form only rounds: those blocks take the edited cells alone.
QString importBlocker(const tableKinds::TableKind& kind, const ImageBlock& entry,
                      const QByteArray& block, const QByteArray& again) {
    if (block.size() != kind.imageSize)
        return QStringLiteral("its size is %1 bytes, the table's image has %2")
            .arg(block.size())
            .arg(kind.imageSize);
    if (!entry.capacity.ok())
        return QStringLiteral("its ") + entry.capacity.message;
    if (again == block)
        return QString();
    if (again.isEmpty())
        return QStringLiteral("its own text form does not read back");
    // Bytes 4 and 5 hold the checksum, which the reader computes afresh.
    if (again.size() == block.size() && again.left(4) == block.left(4) &&
        again.mid(6) == block.mid(6))
        return QStringLiteral("its checksum is bad");
    const TableChange change = kind.compare(block, again);
    const bool onlyValuesRounded =
        again.size() == block.size() && change.rowsBefore == change.rowsAfter &&
        change.colsBefore == change.colsAfter && change.indexes == 0 && change.descriptors == 0;
    if (onlyValuesRounded)
        return QString();
    return QStringLiteral("its own text form ") + change.differences();
}

// The lines of a section behind its "ID:" line: up to the first empty line or comment line.
QStringList sectionBody(const QByteArray& section) {
    QStringList body;
    const QList<QByteArray> lines = section.split('\n');
    for (int i = 1; i < lines.size(); ++i) {
        const QByteArray trimmed = lines[i].trimmed();
        if (trimmed.isEmpty() || trimmed.startsWith('#'))
            break;
        body << QString::fromLatin1(lines[i]);
    }
    return body;
}

// Reads a record block back from its section field by field. A field whose line shows the
// value the block prints keeps its stored bytes; an edited one goes through its setter, whose
// refusal, naming the section, is the outcome.
Outcome readRecord(ImportedBlock& block, const QVector<RecordField>& fields,
                   const QStringList& body, int idLine) {
    QByteArray after = block.before;
    QStringList changes;
    for (const RecordField& field : fields) {
        QString value;
        if (!recordFields::sectionValue(body, field, value)) {
            block.complaints << QStringLiteral("no %1 line, %2 kept")
                                    .arg(field.label + QLatin1Char(':'), field.name);
            continue;
        }
        if (value == field.value)
            continue;
        const Outcome set = recordFields::setField(after, field.name, value);
        if (!set.ok())
            return Outcome::failure(set.code, QStringLiteral("section %1 (line %2), %3")
                                                  .arg(block.name)
                                                  .arg(idLine)
                                                  .arg(set.message));
        changes << QStringLiteral("%1 %2 -> %3").arg(field.name, field.value, value);
    }
    // Summarised as the table readers' complaints are: the first five, then a count.
    constexpr int kKept = TextReadStatus::kMaxComplaints;
    if (block.complaints.size() > kKept) {
        const int more = block.complaints.size() - kKept;
        block.complaints = block.complaints.mid(0, kKept);
        block.complaints << QStringLiteral("... and %1 more lines like this").arg(more);
    }
    if (after == block.before) {
        block.outcome = ImportedBlock::Unchanged;
        return Outcome::success();
    }
    block.outcome = ImportedBlock::Changed;
    block.after = after;
    block.note =
        changes.join(QStringLiteral(", ")) +
        QStringLiteral(", checksum %1 -> %2")
            .arg(hex16(header::read(block.before).checksum), hex16(header::read(after).checksum));
    return Outcome::success();
}

// What the checks of a stored block would find wrong with `block`; empty when it passes.
QString blockProblem(const QByteArray& block) {
    const EepromImage alone = EepromImage::fromBytes(block + QByteArray::fromHex("ffff0000"));
    if (alone.chainBroken() || alone.blockCount() != 2)
        return QStringLiteral("is no block image of %1 bytes").arg(block.size());
    const QVector<ImageProblem> problems = alone.problems();
    return problems.isEmpty() ? QString()
                              : QStringLiteral("fails its checks: ") + problems.first().text;
}

QStringList complaintLines(const TextReadStatus& status) {
    QStringList lines;
    for (const TextReadComplaint& complaint : status.complaints)
        lines << QStringLiteral("line %1: %2")
                     .arg(complaint.line)
                     .arg(QString::fromStdString(complaint.text));
    if (status.moreComplaints > 0)
        lines << QStringLiteral("... and %1 more lines like this").arg(status.moreComplaints);
    return lines;
}

// `status` of a reader that saw only a section, its lines counted in the whole text, where
// the section's first line is preceded by `linesBefore` lines.
TextReadStatus inWholeText(TextReadStatus status, int linesBefore) {
    if (status.line > 0)
        status.line += linesBefore;
    for (TextReadComplaint& complaint : status.complaints)
        if (complaint.line > 0)
            complaint.line += linesBefore;
    return status;
}

QString skipReason(const BlockKindInfo& kind) {
    if (kind.kind == BlockKind::CalibrationTable)
        return QStringLiteral("its table does not read its own text form back");
    return QStringLiteral("%1 blocks are not imported")
        .arg(QLatin1String(blockCatalogue::kindName(kind.kind)));
}

// The plan's entry for block `i` of `image`, read from the section `name`, before reading.
ImportedBlock importedBlock(const EepromImage& image, int i, const QString& name) {
    ImportedBlock block;
    block.index = i;
    block.id = image.block(i).id;
    block.offset = image.block(i).offset;
    block.name = name;
    block.before = image.blockBytes(i);
    return block;
}

} // namespace

QString TableChange::text() const {
    QString line = counted(cells, "cell", "cells") + QStringLiteral(" changed");
    if (rowsBefore != rowsAfter || colsBefore != colsAfter)
        line += QStringLiteral(", counts %1 -> %2")
                    .arg(counts(rowsBefore, colsBefore), counts(rowsAfter, colsAfter));
    if (indexes > 0)
        line += QStringLiteral(", ") + counted(indexes, "index", "indexes") +
                QStringLiteral(" changed");
    if (descriptors > 0)
        line += QStringLiteral(", ") + counted(descriptors, "descriptor", "descriptors") +
                QStringLiteral(" changed");
    return line;
}

QString TableChange::differences() const {
    QStringList parts;
    if (cells > 0)
        parts << counted(cells, "cell", "cells");
    if (rowsBefore != rowsAfter || colsBefore != colsAfter)
        parts << QStringLiteral("the counts");
    if (indexes > 0)
        parts << counted(indexes, "index", "indexes");
    if (descriptors > 0)
        parts << counted(descriptors, "descriptor", "descriptors");
    if (parts.isEmpty())
        return QStringLiteral("does not read back to the same bytes");
    return QStringLiteral("reads back %1 differently").arg(parts.join(QStringLiteral(" and ")));
}

ImportPlan planImport(const EepromImage& image, const QByteArray& calibrationText) {
    ImportPlan plan;
    const Sections sections(calibrationText);
    QHash<QString, BlockKindInfo> imageNames; // the kind of the first block of each name
    QSet<QString> recordNames;                // record blocks read back field by field
    struct SectionRead {
        TextReadStatus status;
        QByteArray edited;
    };
    QHash<QPair<QString, quint16>, SectionRead> sectionReads; // by section name and table id
    for (int i = 0; i < image.blockCount(); ++i) {
        const ImageBlock& entry = image.block(i);
        const BlockKindInfo kind = image.kindOf(i);
        const QString name = QString::fromStdString(kind.textId);
        if (!imageNames.contains(name))
            imageNames.insert(name, kind);
        const tableKinds::TableKind* table = tableKinds::find(entry.id);
        QVector<RecordField> fields;
        if (!entry.isEnd && !name.isEmpty() && sections.lineOf.value(name) > 0 &&
            !recordNames.contains(name) && recordFields::hasFields(entry.id))
            fields = recordFields::fields(image.blockBytes(i));
        if (!fields.isEmpty()) {
            ImportedBlock block = importedBlock(image, i, name);
            const int idLine = sections.lineOf.value(name);
            plan.outcome = readRecord(block, fields, sectionBody(sections.body(name)), idLine);
            if (!plan.ok())
                return plan;
            recordNames.insert(name);
            plan.blocks.append(block);
            continue;
        }
        if (entry.isEnd || !kind.readsBack || table == nullptr || !sections.lineOf.contains(name))
            continue;

        ImportedBlock block = importedBlock(image, i, name);
        const QByteArray unedited =
            entry.capacity.ok() ? ownReadBack(*table, block.before) : QByteArray();
        block.note = importBlocker(*table, entry, block.before, unedited);
        if (!block.note.isEmpty()) {
            block.outcome = ImportedBlock::NotImportable;
            plan.blocks.append(block);
            continue;
        }
        // Blocks of one class and name read the same section: it is read for the first alone.
        const QPair<QString, quint16> key(name, table->id);
        auto read = sectionReads.find(key);
        if (read == sectionReads.end()) {
            std::istringstream in(sections.body(name).toStdString());
            SectionRead fresh;
            fresh.status = inWholeText(table->read(in, fresh.edited), sections.linesBefore(name));
            read = sectionReads.insert(key, fresh);
        }
        const TextReadStatus& status = read->status;
        const QByteArray& edited = read->edited;
        if (!status.ok()) {
            plan.outcome = Outcome::failure(
                ResultCode::BadText, QStringLiteral("section %1, %2")
                                         .arg(name, QString::fromStdString(status.message())));
            return plan;
        }
        block.complaints = complaintLines(status);
        // Where the text form cannot carry a stored value exactly, only the edited cells change.
        block.after =
            unedited == block.before ? edited : table->merge(block.before, unedited, edited);
        if (block.after == block.before) {
            block.outcome = ImportedBlock::Unchanged;
            block.after.clear();
        } else {
            block.outcome = ImportedBlock::Changed;
            block.note = table->compare(block.before, block.after).text();
            if (block.after.size() != block.before.size())
                block.note += QStringLiteral(", size %1 -> %2")
                                  .arg(block.before.size())
                                  .arg(block.after.size());
            block.note += QStringLiteral(", checksum %1 -> %2")
                              .arg(hex16(header::read(block.before).checksum),
                                   hex16(header::read(block.after).checksum));
        }
        plan.blocks.append(block);
    }
    // Nothing goes in that a verify of the image would call corrupt.
    for (const ImportedBlock& block : plan.blocks) {
        if (block.outcome != ImportedBlock::Changed)
            continue;
        const QString problem = blockProblem(block.after);
        if (problem.isEmpty()) {
            plan.replace.insert(block.index, block.after);
            continue;
        }
        plan.outcome = Outcome::failure(
            ResultCode::Corrupt, QStringLiteral("section %1 (line %2): the block read back %3")
                                     .arg(block.name)
                                     .arg(sections.lineOf.value(block.name))
                                     .arg(problem));
        plan.replace.clear();
        return plan;
    }
    for (const Sections::Section& section : sections.inOrder) {
        const auto found = imageNames.constFind(section.name);
        if (found == imageNames.constEnd())
            plan.skipped.append({section.name, section.line,
                                 QStringLiteral("no block of the image has this name")});
        else if (!found->readsBack && found->kind != BlockKind::End &&
                 !recordNames.contains(section.name))
            plan.skipped.append({section.name, section.line, skipReason(*found)});
    }
    return plan;
}

} // namespace Tupsim
