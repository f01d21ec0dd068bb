// epromtool import killed with SIGKILL at random moments on a large image: the image is always
// either the old bytes or the complete new ones, and a backup, when there is one, the old bytes.
#include "support/TestImages.h"
#include "tool/ToolHarness.h"

#include <EepromImage.h>

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <random>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace Tupsim::test;

namespace {

// Runs `epromtool import IMAGE TEXT` with its output silenced; the child's process id.
pid_t startImport(const QByteArray& image, const QByteArray& text) {
    const pid_t child = fork();
    if (child == 0) {
        const int null = ::open("/dev/null", O_WRONLY);
        dup2(null, STDOUT_FILENO);
        dup2(null, STDERR_FILENO);
        execl(EPROMTOOL_BINARY, EPROMTOOL_BINARY, "import", image.constData(), text.constData(),
              static_cast<char*>(nullptr));
        _exit(127);
    }
    return child;
}

int waitFor(pid_t child) {
    int status = 0;
    return waitpid(child, &status, 0) == child ? status : -1;
}

} // namespace

TEST(InterruptedWrite, ImportKilledAtRandomLeavesOldOrNewBytes) {
    ToolHarness tool;
    // The sample's chain of data blocks repeated to over 4 MiB, then its end block.
    const QByteArray sample = example("sample.eeprom");
    const int end = Tupsim::EepromImage::fromBytes(sample).endOffset();
    ASSERT_GT(end, 0);
    QByteArray before;
    while (before.size() < 4 * 1024 * 1024)
        before.append(sample.left(end));
    before.append(endBlock());
    QByteArray text = example("sample.cal");
    const int cell = text.indexOf("1812.000");
    ASSERT_GE(cell, 0);
    text.replace(cell, 8, "1813.000"); // one cell of every RFBO_ALC_DATA block
    tool.write("edit.cal", text);
    const QByteArray image = tool.path("image.eeprom").toLocal8Bit();
    const QByteArray textPath = tool.path("edit.cal").toLocal8Bit();

    // One run to the end: the new bytes, and how long a whole import takes.
    tool.write("image.eeprom", before);
    const auto start = std::chrono::steady_clock::now();
    const int status = waitFor(startImport(image, textPath));
    const auto whole = std::chrono::steady_clock::now() - start;
    ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
    const QByteArray after = tool.read("image.eeprom");
    ASSERT_TRUE(after.size() == before.size() && after != before);
    EXPECT_EQ(tool.read("image.eeprom.bak"), before);

    const unsigned seed = std::random_device()();
    std::mt19937 random(seed);
    std::uniform_int_distribution<long long> moment(
        0, std::chrono::duration_cast<std::chrono::microseconds>(whole).count() + 1);
    int interrupted = 0;
    for (int run = 0; run < 25; ++run) {
        for (const QString& left : tool.entries())
            if (left != QStringLiteral("edit.cal"))
                QFile::remove(tool.path(left));
        tool.write("image.eeprom", before);
        const pid_t child = startImport(image, textPath);
        std::this_thread::sleep_for(std::chrono::microseconds(moment(random)));
        kill(child, SIGKILL);
        interrupted += WIFSIGNALED(waitFor(child)) ? 1 : 0;
        const QByteArray now = tool.read("image.eeprom");
        const bool backup = tool.entries().contains("image.eeprom.bak");
        EXPECT_TRUE((now == before || now == after) &&
                    (!backup || tool.read("image.eeprom.bak") == before))
            << "run " << run << ", seed " << seed;
    }
    // Most runs are cut short; the others finished before the kill.
    EXPECT_GT(interrupted, 0);
}
