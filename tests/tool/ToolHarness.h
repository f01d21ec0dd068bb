// Runs the built epromtool in a scratch directory of its own and reads back what it left.
#pragma once

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

namespace Tupsim {
namespace test {

struct ToolResult {
    int exitCode = -1; // -1: did not finish normally
    QString out;
    QString err;
    QStringList outLines() const { return out.split(QLatin1Char('\n'), Qt::SkipEmptyParts); }
};

class ToolHarness {
public:
    ToolHarness() {
        static int argc = 1;
        static char name[] = "test_tool";
        static char* argv[] = {name, nullptr};
        if (QCoreApplication::instance() == nullptr)
            new QCoreApplication(argc, argv);
    }

    QString path(const QString& name) const { return dir.filePath(name); }
    void write(const QString& name, const QByteArray& bytes) const {
        QFile file(path(name));
        if (file.open(QIODevice::WriteOnly))
            file.write(bytes);
    }
    QByteArray read(const QString& name) const {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QStringList entries() const {
        return QDir(dir.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name);
    }
    ToolResult run(const QStringList& arguments) const {
        QProcess process;
        process.setWorkingDirectory(dir.path());
        process.start(QStringLiteral(EPROMTOOL_BINARY), arguments);
        ToolResult result;
        if (!process.waitForFinished(-1) || process.exitStatus() != QProcess::NormalExit)
            return result;
        result.exitCode = process.exitCode();
        result.out = QString::fromUtf8(process.readAllStandardOutput());
        result.err = QString::fromUtf8(process.readAllStandardError());
        return result;
    }
    // The text of a golden file under tests/data/tool. With EPROM_UPDATE_GOLDENS set in the
    // environment the file is first rewritten with `actual`: how the goldens are regenerated.
    static QString golden(const QString& name, const QString& actual) {
        QFile file(QStringLiteral(EPROM_TEST_DATA_DIR "/tool/") + name);
        if (qEnvironmentVariableIsSet("EPROM_UPDATE_GOLDENS") && file.open(QIODevice::WriteOnly)) {
            file.write(actual.toUtf8());
            file.close();
        }
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

private:
    QTemporaryDir dir;
};

} // namespace test
} // namespace Tupsim
