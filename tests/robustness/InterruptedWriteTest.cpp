// epromtool import killed with SIGKILL at random moments on a large image: the image is always
// either the old bytes or the complete new ones, and a backup, when there is one, the old bytes.
#include "support/TestImages.h"
#include "tool/ToolHarness.h"

#include <EepromImage.h>

#include <chrono>
#include <gtest/gtest.h>
#include <random>
#include <thread>

using namespace Tupsim::test;

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
    // `epromtool import`, silenced; killed (-1) after `killAfter` microseconds unless negative.
    const auto import = [&](long long killAfter) {
        QProcess process;
        process.setStandardOutputFile(QProcess::nullDevice());
        process.setStandardErrorFile(QProcess::nullDevice());
        process.start(QStringLiteral(EPROMTOOL_BINARY),
                      {"import", tool.path("image.eeprom"), tool.path("edit.cal")});
        if (killAfter >= 0) {
            std::this_thread::sleep_for(std::chrono::microseconds(killAfter));
            process.kill();
        }
        process.waitForFinished(-1);
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    };

    // One run to the end: the new bytes, and how long a whole import takes.
    tool.write("image.eeprom", before);
    const auto start = std::chrono::steady_clock::now();
    ASSERT_EQ(import(-1), 0);
    const auto whole = std::chrono::steady_clock::now() - start;
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
        interrupted += import(moment(random)) < 0 ? 1 : 0;
        const QByteArray now = tool.read("image.eeprom");
        const bool backup = tool.entries().contains("image.eeprom.bak");
        EXPECT_TRUE((now == before || now == after) &&
                    (!backup || tool.read("image.eeprom.bak") == before))
            << "run " << run << ", seed " << seed;
    }
    // Most runs are cut short; the others finished before the kill.
    EXPECT_GT(interrupted, 0);
}
