#include "Zelview.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <csignal>
#include <functional>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

/// A model that takes a second or more to read.
QString slowModel()
{
    return sharedModel("asm/low_cost_robot_follower_arm.step");
}

qint64 childOf(qint64 process)
{
    QFile file(QString("/proc/%1/task/%1/children").arg(process));
    return file.open(QIODevice::ReadOnly) ? file.readAll().split(' ').first().toLongLong() : 0;
}

/// Runs zelview on the slow model, does `disturb` once its child is at work, and gives what came of it.
Outcome disturbed(QStringList const& options, std::function<void(qint64 parent, qint64 child)> const& disturb)
{
    QProcess process;
    process.setProcessEnvironment(withoutDisplay());
    process.start(QStringLiteral(ZEL_BINARY_DIR "/bin/zelview"), options + QStringList{slowModel()});
    qint64 child = 0;
    for (int i = 0; i < 500 && child == 0 && process.state() != QProcess::NotRunning; ++i) {
        process.waitForFinished(10);
        child = childOf(process.processId());
    }
    if (child == 0) return {-1, {}, "no child seen"};
    disturb(process.processId(), child);
    bool const ended = process.waitForFinished(60'000);
    return {ended ? process.exitCode() : -1, process.readAllStandardOutput(), process.readAllStandardError()};
}

/// Whether a process still runs; one that only waits to be collected does not.
bool isAlive(qint64 process)
{
    QFile file(QString("/proc/%1/stat").arg(process));
    if (!file.open(QIODevice::ReadOnly)) return false;
    QByteArray const status = file.readAll();
    return status.mid(status.lastIndexOf(')') + 2, 1) != "Z";
}

class Isolation : public testing::Test
{
protected:
    void SetUp() override
    {
        if (slowModel().isEmpty()) GTEST_SKIP() << "the shared models are not at hand";
    }
};

} // namespace

TEST_F(Isolation, aCrashBecomesOneLineAndALeftoverOfItGoes)
{
    QTemporaryDir folder;
    Outcome const outcome =
        disturbed({"--output", folder.filePath("picture.png")}, [&](qint64 parent, qint64 child) {
            QFile half(folder.filePath(QString(".zelview-%1.part").arg(parent)));
            ASSERT_TRUE(half.open(QIODevice::WriteOnly));
            ::kill(static_cast<pid_t>(child), SIGABRT);
        });
    EXPECT_EQ(outcome.code, 3);
    EXPECT_THAT(outcome.err.toStdString(), testing::HasSubstr("crashed (Aborted)"));
    EXPECT_EQ(outcome.err.count('\n'), 1) << outcome.err.constData();
    EXPECT_TRUE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).isEmpty());
}

TEST_F(Isolation, theTimeLimitEndsAHangingChild)
{
    qint64 hanging = 0;
    Outcome const outcome = disturbed({"--time-limit", "0.5", "--tree"}, [&](qint64, qint64 child) {
        hanging = child;
        ::kill(static_cast<pid_t>(child), SIGSTOP);
    });
    EXPECT_EQ(outcome.code, 7);
    EXPECT_THAT(outcome.err.toStdString(), testing::HasSubstr("not done within 0.5 s"));
    EXPECT_FALSE(isAlive(hanging));
}

TEST_F(Isolation, cancellingEndsTheChildToo)
{
    for (int const signal : {SIGINT, SIGTERM}) {
        qint64 working = 0;
        Outcome const outcome = disturbed({"--tree"}, [&](qint64 parent, qint64 child) {
            working = child;
            ::kill(static_cast<pid_t>(parent), signal);
        });
        EXPECT_EQ(outcome.code, 7);
        EXPECT_THAT(outcome.err.toStdString(), testing::HasSubstr("cancelled"));
        EXPECT_TRUE(outcome.out.isEmpty());
        EXPECT_FALSE(isAlive(working));
    }
}

TEST_F(Isolation, theChildDoesNotOutliveItsParent)
{
    qint64 orphan = 0;
    disturbed({"--tree"}, [&](qint64 parent, qint64 child) {
        orphan = child;
        ::kill(static_cast<pid_t>(parent), SIGKILL);
    });
    for (int i = 0; i < 200 && isAlive(orphan); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_FALSE(isAlive(orphan));
}
