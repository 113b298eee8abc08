// Good runs: pictures, trees and figures of models that can be read.

#include "Zelview.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;

namespace
{

QString machine()
{
    return sample("machine.zel_xml");
}

bool isUniform(QImage const& image)
{
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) != image.pixel(0, y))
                return false; // the background differs from row to row
    return true;
}

QByteArray contents(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class Running : public testing::Test
{
protected:
    QString path(QString const& name) const { return Folder.filePath(name); }

    /// The model under another name in the folder.
    QString copyAs(QString const& name) const
    {
        EXPECT_TRUE(QFile::copy(machine(), path(name)));
        return path(name);
    }

    QTemporaryDir Folder;
};

} // namespace

TEST_F(Running, aPictureHasTheSizeAskedForAndShowsSomething)
{
    struct {
        QStringList options;
        QSize size;
    } const cases[] = {
        {{}, {1280, 720}}, {{"--resolution", "320,240"}, {320, 240}}, {{"--resolution=7,5"}, {7, 5}}};
    for (auto const& picture : cases) {
        SCOPED_TRACE(picture.options.join(' ').toStdString());
        Outcome const outcome = runZelview(QStringList{"--output", path("picture.png")} + picture.options +
                                           QStringList{machine()});
        ASSERT_EQ(outcome.code, 0) << outcome.err.constData();
        EXPECT_TRUE(outcome.out.isEmpty());
        EXPECT_TRUE(outcome.err.isEmpty()) << outcome.err.constData();
        QImage const image(path("picture.png"));
        EXPECT_EQ(image.size(), picture.size);
        EXPECT_FALSE(isUniform(image));
        EXPECT_EQ(QDir(Folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
    }
}

TEST_F(Running, aPictureIsTheSameBytesEveryTimeAndOnStandardOutput)
{
    QStringList const options{"--resolution", "320,240", machine()};
    ASSERT_EQ(runZelview(QStringList{"--output", path("one.png")} + options).code, 0);
    ASSERT_EQ(runZelview(QStringList{"--output", path("two.png")} + options).code, 0);
    Outcome const printed = runZelview(QStringList{"--output", "-"} + options);
    ASSERT_EQ(printed.code, 0);
    EXPECT_TRUE(printed.out.startsWith("\x89PNG"));
    EXPECT_EQ(contents(path("one.png")), contents(path("two.png")));
    EXPECT_EQ(contents(path("one.png")), printed.out);
}

TEST_F(Running, withoutIsolationNothingChanges)
{
    QStringList const options{"--resolution", "160,120", "--output", "-", machine()};
    Outcome const bare = runZelview(QStringList{"--no-isolation"} + options);
    EXPECT_EQ(bare.code, 0) << bare.err.constData();
    EXPECT_EQ(bare.out, runZelview(options).out);
}

TEST_F(Running, aLinkToAPictureStaysALink)
{
    ASSERT_TRUE(QFile::copy(machine(), path("picture.png")));
    ASSERT_TRUE(QFile::link(path("picture.png"), path("link.png")));
    ASSERT_EQ(runZelview({"--resolution", "16,16", "--output", path("link.png"), machine()}).code, 0);
    EXPECT_TRUE(QFileInfo(path("link.png")).isSymLink());
    EXPECT_EQ(QImage(path("picture.png")).size(), QSize(16, 16));
}

TEST_F(Running, theTreeIsWhatComesWithoutAnOption)
{
    Outcome const tree = runZelview({"--tree", machine()});
    ASSERT_EQ(tree.code, 0) << tree.err.constData();
    EXPECT_TRUE(tree.err.isEmpty()) << tree.err.constData();
    EXPECT_FALSE(tree.out.startsWith("ROOT"));
    EXPECT_GT(tree.out.count('\n'), 5);
    EXPECT_TRUE(tree.out.startsWith("Planetary drive · Планетарный привод · 行星传动\n"))
        << tree.out.constData();
    for (char const* name : {"└─ ", "├─ ", "⚙️ Planetengetriebe", "كوكب ٣", "Rippe rechts (gespiegelt)"})
        EXPECT_THAT(tree.out.toStdString(), HasSubstr(name));
    EXPECT_EQ(runZelview({machine()}).out, tree.out);
}

TEST_F(Running, aFilesContentsDecideNotItsName)
{
    Outcome const named = runZelview({"--tree", machine()});
    for (char const* name : {"machine", "machine.step", "-machine.xml", "Getriebe für Ωmega 歯車.zel_xml"}) {
        SCOPED_TRACE(name);
        Outcome const renamed = runZelview({"--tree", "--", copyAs(name)});
        EXPECT_EQ(renamed.code, 0) << renamed.err.constData();
        EXPECT_EQ(renamed.out, named.out);
    }
}

TEST_F(Running, figuresNameEveryStage)
{
    Outcome const info = runZelview({"--info", machine()});
    ASSERT_EQ(info.code, 0) << info.err.constData();
    for (char const* label : {"file ", "parts ", "bodies ", "triangles ", "extent ", "scene ", "tree ",
                              "graphics start ", "fitting ", "compile ", "upload ", "draw ", "readback ",
                              "encode ", "total ", "own work ", "peak memory "})
        EXPECT_THAT(info.out.toStdString(), testing::ContainsRegex("(^|\n)" + std::string(label) + " *:"));
}

TEST_F(Running, aStreamFileAppearsBesideTheModel)
{
    QString const model = copyAs("machine.zel_xml");
    Outcome const outcome = runZelview({"--export-hsf", model});
    ASSERT_EQ(outcome.code, 0) << outcome.err.constData();
    EXPECT_GT(QFileInfo(model + ".hsf").size(), 100);
}

TEST_F(Running, withoutTheGraphicsNeededItSaysWhatToDo)
{
    // No driver at all, and one that is too old.
    for (char const* missing : {"__EGL_VENDOR_LIBRARY_FILENAMES=/nowhere", "MESA_GL_VERSION_OVERRIDE=3.3"}) {
        SCOPED_TRACE(missing);
        Outcome const outcome = runZelview({"--output", path("picture.png"), machine()}, {missing});
        EXPECT_EQ(outcome.code, 6);
        EXPECT_THAT(outcome.err.toStdString(), HasSubstr("OpenGL 4.5"));
        EXPECT_THAT(outcome.err.toStdString(), HasSubstr("LIBGL_ALWAYS_SOFTWARE=1")) << "what to do";
        EXPECT_EQ(outcome.err.trimmed().count('\n'), 0);
        EXPECT_FALSE(QFile::exists(path("picture.png")));
    }
}

TEST_F(Running, aFullDeviceIsAFailedWrite)
{
    Outcome const outcome = runZelview({"--output", "/dev/full", "--resolution", "64,64", machine()});
    EXPECT_EQ(outcome.code, 5);
    EXPECT_THAT(outcome.err.toStdString(), HasSubstr("/dev/full: No space left"));
}

TEST_F(Running, aTruncatedModelIsDamagedAtEveryLength)
{
    QByteArray const whole = contents(machine());
    ASSERT_FALSE(whole.isEmpty());
    for (int const percent : {1, 30, 60, 90, 99}) {
        SCOPED_TRACE(percent);
        QFile cut(path("cut.zel_xml"));
        ASSERT_TRUE(cut.open(QIODevice::WriteOnly));
        cut.write(whole.left(whole.size() * percent / 100));
        cut.close();
        Outcome const outcome = runZelview({"--tree", path("cut.zel_xml")});
        EXPECT_EQ(outcome.code, 3);
        EXPECT_EQ(outcome.err.count('\n'), 1) << outcome.err.constData();
        EXPECT_TRUE(outcome.out.isEmpty());
    }
}
