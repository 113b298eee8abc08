// What the program says when the plug-in is not what it should be.

#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

struct Case {
    QString folder; ///< where the plug-in is looked for
    QString variable, value;
    char const* said;
};

} // namespace

TEST(BrokenPlugin, endsInOneLineAndCode6)
{
    Case const cases[] = {
        {"/nonexistent", "", "", "cannot be loaded"},
        {ZEL_STAND_IN_FOLDER, "STAND_IN_TYPE", "ZELView2D", "of another version: it makes ZELView2D"},
        {ZEL_STAND_IN_FOLDER, "STAND_IN_FAILS", "1", "no graphics today"},
    };
    for (Case const& broken : cases) {
        QProcess zelview;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        QTemporaryDir const runtime; // without one Qt says so in a line of its own
        environment.insert("XDG_RUNTIME_DIR", runtime.path());
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        environment.insert("ZELVIEW_LIBRARY_PATH", broken.folder);
        if (!broken.variable.isEmpty()) environment.insert(broken.variable, broken.value);
        zelview.setProcessEnvironment(environment);
        zelview.start(ZEL_BINARY_DIR "/bin/zelview", QStringList());
        ASSERT_TRUE(zelview.waitForFinished());
        QByteArray const words = zelview.readAllStandardError();
        EXPECT_EQ(zelview.exitCode(), 6);
        EXPECT_THAT(words.toStdString(), testing::HasSubstr(broken.said));
        EXPECT_EQ(words.count('\n'), 1) << words.constData();
    }
}

TEST(BrokenPlugin, endsAPictureWithoutAWindowInTheSameWay)
{
    QProcess zelview;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("ZELVIEW_LIBRARY_PATH", "/nonexistent");
    zelview.setProcessEnvironment(environment);
    zelview.start(ZEL_BINARY_DIR "/bin/zelview", {"--tree", ZEL_SOURCE_DIR "/samples/machine.zel_xml"});
    ASSERT_TRUE(zelview.waitForFinished());
    EXPECT_EQ(zelview.exitCode(), 6);
    EXPECT_THAT(zelview.readAllStandardError().toStdString(), testing::HasSubstr("cannot be loaded"));
}
