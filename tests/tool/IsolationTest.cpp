// The child process that runs the calibration reader: results come back whole, and a reader
// that ends its process is reported instead of ending the tool.
#include "FakeCatalogue.h"
#include "TestImages.h"

#include <ChainWalker.h>
#include <IsolatedRun.h>
#include <SectionImport.h>

#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>

using namespace Tupsim::test;
using namespace epromtool;

TEST(IsolatedRun, HandsBackLargeResultsAndReportsHowTheChildEnded) {
    // More than a pipe holds at once, so the parent must read while the child writes.
    QByteArray big(300000, 'x');
    big[123456] = 'y';
    const IsolatedRun::Outcome whole = IsolatedRun::run([&big]() { return big; });
    EXPECT_TRUE(whole.completed);
    EXPECT_EQ(whole.result, big);

    const IsolatedRun::Outcome exited = IsolatedRun::run([]() -> QByteArray { std::exit(2); });
    EXPECT_FALSE(exited.completed);
    EXPECT_EQ(exited.exitStatus, 2);
    EXPECT_EQ(exited.error, "it ended the process with status 2");
    EXPECT_TRUE(exited.result.isEmpty());

    const IsolatedRun::Outcome killed = IsolatedRun::run([]() -> QByteArray {
        std::raise(SIGTERM);
        return "never";
    });
    EXPECT_FALSE(killed.completed);
    EXPECT_EQ(killed.signal, SIGTERM);
    EXPECT_EQ(killed.error, QStringLiteral("it was killed by signal %1").arg(SIGTERM));
}

TEST(SectionImport, ParsesInTheChildAndSurvivesAReaderThatExits) {
    const QByteArray image = calibBlock() + sealed(bytesOf({0x12, 0x27, 0x08, 0x00, 0, 0, 0, 0})) +
                             sealed(bytesOf({0x11, 0x27, 0x08, 0x00, 0, 0, 0, 0})) + endBlock();
    const Chain chain = ChainWalker::walk(image);
    ASSERT_FALSE(chain.broken());
    FakeCatalogue catalogue;

    QVector<SectionImport::Parsed> parsed;
    QString error;
    ASSERT_TRUE(SectionImport::run(catalogue, chain.blocks, {0, 1}, "99 rest", parsed, error));
    ASSERT_EQ(parsed.size(), 2);
    EXPECT_EQ(parsed[0].index, 0);
    EXPECT_EQ(parsed[0].read.outcome, SectionRead::Read);
    QByteArray expected = calibBlock();
    expected[11] = 99;
    sealChecksum(expected);
    EXPECT_EQ(parsed[0].read.image, expected);
    EXPECT_EQ(parsed[1].index, 1);
    EXPECT_EQ(parsed[1].read.outcome, SectionRead::Unreadable);

    EXPECT_FALSE(SectionImport::run(catalogue, chain.blocks, {0, 2}, "99", parsed, error));
    EXPECT_EQ(error, "the calibration reader stopped: it ended the process with status 2");
    EXPECT_TRUE(parsed.isEmpty());

    // Nothing to read starts no child and succeeds.
    EXPECT_TRUE(SectionImport::run(catalogue, chain.blocks, {}, "", parsed, error));
    EXPECT_TRUE(parsed.isEmpty());
}
