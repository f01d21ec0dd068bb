// Runs the built epromtool in a scratch directory of its own and reads back what it left.
#include "ToolHarness.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

namespace Tupsim {
namespace test {

namespace {

// QProcess wants an application object; the tests have none of their own.
void ensureApplication() {
    static int argc = 1;
    static char name[] = "test_tool";
    static char* argv[] = {name, nullptr};
    if (QCoreApplication::instance() == nullptr)
        new QCoreApplication(argc, argv);
}

} // namespace

QStringList ToolResult::outLines() const {
    QStringList lines = out.split(QLatin1Char('\n'));
    if (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

ToolHarness::ToolHarness() {
    ensureApplication();
}

void ToolHarness::write(const QString& name, const QByteArray& bytes) const {
    QFile file(path(name));
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
}

QByteArray ToolHarness::read(const QString& name) const {
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool ToolHarness::exists(const QString& name) const {
    return QFileInfo::exists(path(name));
}

ToolResult ToolHarness::run(const QStringList& arguments) const {
    QProcess process;
    process.setWorkingDirectory(dir.path());
    process.start(QStringLiteral(EPROMTOOL_BINARY), arguments);
    ToolResult result;
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit)
        return result;
    result.exitCode = process.exitCode();
    result.out = QString::fromUtf8(process.readAllStandardOutput());
    result.err = QString::fromUtf8(process.readAllStandardError());
    return result;
}

QString ToolHarness::golden(const QString& name, const QString& actual) {
    QFile file(QStringLiteral(EPROM_TEST_DATA_DIR "/tool/") + name);
    if (qEnvironmentVariableIsSet("EPROM_UPDATE_GOLDENS") && file.open(QIODevice::WriteOnly)) {
        file.write(actual.toUtf8());
        file.close();
    }
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace test
} // namespace Tupsim
