// Runs the built epromtool in a scratch directory of its own and reads back what it left.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <ostream>

namespace Tupsim {
namespace test {

struct ToolResult {
    int exitCode = -1;
    QString out;
    QString err;
    QStringList outLines() const;
};

class ToolHarness {
public:
    ToolHarness();

    QString path(const QString& name) const { return dir.filePath(name); }
    void write(const QString& name, const QByteArray& bytes) const;
    QByteArray read(const QString& name) const;
    bool exists(const QString& name) const;
    // Runs epromtool with the scratch directory as working directory.
    ToolResult run(const QStringList& arguments) const;
    // The text of a golden file under tests/data/tool. With EPROM_UPDATE_GOLDENS set in the
    // environment the file is first rewritten with `actual`: how the goldens are regenerated.
    static QString golden(const QString& name, const QString& actual);

private:
    QTemporaryDir dir;
};

} // namespace test
} // namespace Tupsim

// Readable failure messages for Qt strings.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}
