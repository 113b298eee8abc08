// The program in a window of an X server, driven by keys as a user would, with the plug-in as built.

#include <QDir>
#include <QImage>
#include <QMap>
#include <QPoint>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace
{

QString const Sample = QStringLiteral(ZEL_SOURCE_DIR "/samples/machine.zel_xml");

/// An X server without a screen, a home of its own, and zelview in both.
class RealWindow : public testing::Test
{
protected:
    void SetUp() override
    {
        for (char const* tool : {"Xvfb", "xdotool"})
            if (QStandardPaths::findExecutable(tool).isEmpty()) GTEST_SKIP() << tool << " is not installed";
        Server.start("Xvfb", {"-displayfd", "1", "-screen", "0", "1280x900x24", "-nolisten", "tcp"});
        ASSERT_TRUE(Server.waitForReadyRead(20'000)) << Server.readAllStandardError().constData();
        Surroundings.insert("DISPLAY", ":" + QString::fromLatin1(Server.readAllStandardOutput().trimmed()));
        Surroundings.insert("HOME", Home.path());
        for (char const* variable : {"QT_QPA_PLATFORM", "WAYLAND_DISPLAY", "XDG_CONFIG_HOME",
                                     "XDG_CACHE_HOME", "XDG_DATA_HOME", "ZELVIEW_LIBRARY_PATH"})
            Surroundings.remove(variable);
        if (!QStandardPaths::findExecutable("openbox").isEmpty()) {
            Manager.setProcessEnvironment(Surroundings);
            Manager.start("openbox", QStringList());
        }
    }

    void TearDown() override
    {
        for (QProcess* const process : {&Zelview, &Manager, &Server}) {
            process->terminate();
            if (process->state() != QProcess::NotRunning && !process->waitForFinished(10'000))
                process->kill();
            process->waitForFinished(1000);
        }
    }

    void start(QStringList const& arguments)
    {
        Zelview.setProcessEnvironment(Surroundings);
        Zelview.start(ZEL_BINARY_DIR "/bin/zelview", arguments);
        ASSERT_TRUE(Zelview.waitForStarted());
    }

    QString xdotool(QStringList const& arguments) const
    {
        QProcess tool;
        tool.setProcessEnvironment(Surroundings);
        tool.start("xdotool", arguments);
        tool.waitForFinished(30'000);
        return QString::fromUtf8(tool.readAllStandardOutput()).trimmed();
    }

    bool waitForTitle(QString const& title) const
    {
        for (int i = 0; i < 300; ++i) {
            if (!xdotool({"search", "--onlyvisible", "--name", title}).isEmpty()) return true;
            QTest::qSleep(100);
        }
        return false;
    }

    void press(QString const& key) const { xdotool({"key", "--clearmodifiers", key}); }

    /// The middle of the view, about: right of the docks.
    QPoint middleOfView() const
    {
        QString const id =
            xdotool({"search", "--onlyvisible", "--name", "machine.zel_xml"}).split('\n').first();
        QMap<QString, int> geometry;
        for (QString const& line : xdotool({"getwindowgeometry", "--shell", id}).split('\n'))
            geometry[line.section('=', 0, 0)] = line.section('=', 1).toInt();
        return {geometry["X"] + geometry["WIDTH"] * 63 / 100, geometry["Y"] + geometry["HEIGHT"] * 45 / 100};
    }
    void moveMouse(QPoint const& to) const
    {
        xdotool({"mousemove", QString::number(to.x()), QString::number(to.y())});
        QTest::qSleep(300);
    }
    void moveMouseAway() const { moveMouse({2, 2}); }

    /// The picture that F12 leaves behind.
    QImage picture() const
    {
        QDir folder(Home.filePath("Pictures"));
        auto const count = [&] {
            folder.refresh();
            return folder.entryList({"*.png"}).size();
        };
        auto const before = count();
        press("F12");
        for (int i = 0; i < 100 && count() == before; ++i) QTest::qSleep(100);
        QTest::qSleep(300); // until it is written to its end
        folder.refresh();
        QStringList const names = folder.entryList({"*.png"}, QDir::Files, QDir::Name);
        return names.size() > before ? QImage(folder.filePath(names.last())) : QImage();
    }

    QTemporaryDir Home;
    QProcessEnvironment Surroundings = QProcessEnvironment::systemEnvironment();
    QProcess Server, Manager, Zelview;
};

} // namespace

TEST_F(RealWindow, keysChangeWhatIsSeenAndQuitEndsWell)
{
    start({Sample});
    ASSERT_TRUE(waitForTitle("machine.zel_xml"));
    QImage const first = picture();
    ASSERT_FALSE(first.isNull());
    EXPECT_GT(first.width(), 300);
    press("2");
    QImage const top = picture();
    press("0");
    QImage const isometric = picture();
    EXPECT_EQ(top.size(), first.size());
    EXPECT_NE(top, isometric);
    press("ctrl+q");
    ASSERT_TRUE(Zelview.waitForFinished(20'000));
    EXPECT_EQ(Zelview.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(Zelview.exitCode(), 0) << Zelview.readAllStandardError().constData();
}

TEST_F(RealWindow, theOpenDialogReadsWhatIsTyped)
{
    QString const other = Home.filePath("other.zel_xml");
    ASSERT_TRUE(QFile::copy(Sample, other));
    start({Sample});
    ASSERT_TRUE(waitForTitle("machine.zel_xml"));
    press("ctrl+o");
    ASSERT_TRUE(waitForTitle("^Open$"));
    QTest::qSleep(500); // until the field of the name has the keys
    xdotool({"type", "--delay", "5", other});
    press("Return");
    EXPECT_TRUE(waitForTitle("other.zel_xml"));
    press("ctrl+q");
    ASSERT_TRUE(Zelview.waitForFinished(20'000));
    EXPECT_EQ(Zelview.exitCode(), 0) << Zelview.readAllStandardError().constData();
}

TEST_F(RealWindow, thePointerSelectsTurnsAndLightsUp)
{
    start({Sample});
    ASSERT_TRUE(waitForTitle("machine.zel_xml"));
    moveMouseAway();
    QImage const dark = picture();
    ASSERT_FALSE(dark.isNull());
    QPoint const middle = middleOfView();

    moveMouse(middle);
    EXPECT_NE(picture(), dark) << "what it points at lights up";
    moveMouseAway();
    EXPECT_EQ(picture(), dark) << "and leaves no trace";

    moveMouse(middle);
    xdotool({"click", "1"});
    moveMouseAway();
    EXPECT_NE(picture(), dark) << "what was clicked stays lit";
    press("Escape");
    EXPECT_EQ(picture(), dark);

    moveMouse(middle);
    xdotool({"mousedown", "1"});
    moveMouse(middle + QPoint(40, 10));
    moveMouse(middle + QPoint(80, 20));
    xdotool({"mouseup", "1"});
    moveMouseAway();
    QImage const turned = picture();
    EXPECT_NE(turned, dark);
    press("Escape");
    EXPECT_EQ(picture(), turned) << "a drag selects nothing";
}

TEST_F(RealWindow, aDisplayThatGoesAwayEndsTheProgram)
{
    start({Sample});
    ASSERT_TRUE(waitForTitle("machine.zel_xml"));
    Server.terminate();
    ASSERT_TRUE(Zelview.waitForFinished(20'000));
    EXPECT_EQ(Zelview.exitStatus(), QProcess::NormalExit) << "it crashed";
    EXPECT_EQ(Zelview.exitCode(), 6);
}
