#include "Zelview.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;

namespace
{

/// Files of every kind that is no model.
class CommandLine : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(Folder.isValid());
        write("empty.step", "");
        write("letter.txt", "Dear reader,\nthis is no model.\n");
        write("disguised.step", "Dear reader,\nthis is no model either.\n");
        write("header.step", "ISO-10303-21;\nHEADER;\nFILE_DESCRIPTION((''),'2;1');\n");
        write("zeros.brep", QByteArray(4096, '\0'));
        write("half.glb", QByteArray("glTF\x02\x00\x00\x00\xff\xff\xff\x7f", 12));
    }

    QString path(QString const& name) const { return Folder.filePath(name); }

    void write(QString const& name, QByteArray const& bytes) const
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    QTemporaryDir Folder;
};

struct Refused {
    QStringList arguments; ///< "@" stands for the folder
    int code;
    char const* said; ///< part of the one line on standard error
};

} // namespace

TEST_F(CommandLine, refusesWithACodeAndOneLine)
{
    Refused const cases[] = {
        {{}, 1, "no file given"},
        {{""}, 1, "no file given"},
        {{"--wrong", "@/letter.txt"}, 1, "unknown option --wrong"},
        {{"-x", "@/letter.txt"}, 1, "unknown option -x"},
        {{"@/letter.txt", "@/empty.step"}, 1, "more than one file"},
        {{"--tree=yes", "@/letter.txt"}, 1, "--tree takes no value"},
        {{"--output"}, 1, "--output needs a value"},
        {{"--output", "picture.jpg", "@/letter.txt"}, 1, "picture.jpg"},
        {{"--output=", "@/letter.txt"}, 1, "--output needs FILE.png"},
        {{"--resolution", "640", "@/letter.txt"}, 1, "'640'"},
        {{"--resolution", "0,480", "@/letter.txt"}, 1, "'0,480'"},
        {{"--resolution", "640,-1", "@/letter.txt"}, 1, "'640,-1'"},
        {{"--resolution", "640,480x", "@/letter.txt"}, 1, "'640,480x'"},
        {{"--resolution", "16384,16384", "@/letter.txt"}, 1, "'16384,16384'"},
        {{"--resolution", "99999999999,1", "@/letter.txt"}, 1, "'99999999999,1'"},
        {{"--view", "sideways", "@/letter.txt"}, 1, "--view needs NAME, not 'sideways'"},
        {{"--camera-position", "1,2", "@/letter.txt"}, 1, "'1,2'"},
        {{"--camera-up", "1,2,inf", "@/letter.txt"}, 1, "'1,2,inf'"},
        {{"--fov", "180", "@/letter.txt"}, 1, "'180'"},
        {{"--ortho=yes", "@/letter.txt"}, 1, "--ortho takes no value"},
        {{"--mode", "", "@/letter.txt"}, 1, "--mode needs NAME"},
        {{"--edges", "maybe", "@/letter.txt"}, 1, "--edges needs on|off"},
        {{"--background", "red", "@/letter.txt"}, 1, "--background needs TOP[,BOTTOM]"},
        {{"--set", "NumProcessors=many", "@/letter.txt"}, 1, "a whole number from 0 to 1024"},
        {{"--set", "NoSuch=1", "@/letter.txt"}, 1, "there is no setting \"NoSuch\""},
        {{"--tree", "--settings", "@/missing.ini", "@/letter.txt"}, 2, "missing.ini: No such file"},
        {{"--tree"}, 1, "no file given"},
        {{"--time-limit", "soon", "@/letter.txt"}, 1, "'soon'"},
        {{"--time-limit", "nan", "@/letter.txt"}, 1, "'nan'"},
        {{"--time-limit", "-1", "@/letter.txt"}, 1, "'-1'"},
        {{"@/missing.step"}, 2, "missing.step: No such file"},
        {{"--", "--tree"}, 2, "--tree: No such file"},
        {{"@"}, 2, "Is a directory"},
        {{"/dev/null"}, 2, "/dev/null: not a regular file"},
        {{"@/line\nfeed.step"}, 2, "line feed.step: No such file"},
        {{"@/empty.step"}, 3, "empty.step: the file is empty"},
        {{"@/letter.txt"}, 3, "letter.txt: "},
        {{"@/disguised.step"}, 3, "disguised.step: "},
        {{"@/header.step"}, 3, "header.step: "},
        {{"@/zeros.brep"}, 3, "zeros.brep: "},
        {{"@/half.glb"}, 3, "half.glb: "},
        {{"--no-isolation", "@/letter.txt"}, 3, "letter.txt: "},
        {{"--output", "@", "@/letter.txt"}, 5, "Is a directory"},
        {{"--output", "@/no/such/folder.png", "@/letter.txt"}, 5, "folder.png: No such file"},
    };
    for (Refused const& refused : cases) {
        QStringList arguments = refused.arguments;
        for (QString& argument : arguments) argument.replace('@', Folder.path());
        SCOPED_TRACE("zelview " + arguments.join(' ').toStdString());
        Outcome const outcome = runZelview(arguments);
        EXPECT_EQ(outcome.code, refused.code);
        EXPECT_THAT(outcome.err.toStdString(), HasSubstr(refused.said));
        EXPECT_TRUE(outcome.err.startsWith("zelview: ")) << outcome.err.constData();
        EXPECT_EQ(outcome.err.count('\n'), 1) << outcome.err.constData();
        EXPECT_TRUE(outcome.out.isEmpty()) << outcome.out.constData();
    }
}

TEST_F(CommandLine, versionIsNameAndNumber)
{
    Outcome const version = runZelview({"--version"});
    EXPECT_EQ(version.code, 0);
    EXPECT_THAT(version.out.toStdString(), testing::MatchesRegex("zelview [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

TEST_F(CommandLine, failureLeavesAnOlderPictureAlone)
{
    write("picture.png", "older");
    Outcome const outcome = runZelview({"--output", path("picture.png"), path("zeros.brep")});
    EXPECT_EQ(outcome.code, 3);
    QFile picture(path("picture.png"));
    ASSERT_TRUE(picture.open(QIODevice::ReadOnly));
    EXPECT_EQ(picture.readAll(), "older");
    QStringList const left = QDir(Folder.path()).entryList(QDir::Files | QDir::Hidden);
    EXPECT_EQ(left.filter(".part").size(), 0) << left.join(' ').toStdString();
}
