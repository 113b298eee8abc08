// Help, manual page and completion say what the table of options says.

#include "Options.h"
#include "Zelview.h"
#include "option_texts.h"

#include <mora/Settings.h>

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;
using namespace zelview;

namespace
{

QString writeTo(QTemporaryDir const& folder, QString const& name, std::string const& text)
{
    QFile file(folder.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text.data(), static_cast<qint64>(text.size()));
    return file.fileName();
}

/// What bash offers for the last of the words.
QStringList offered(QString const& completion, QStringList const& words)
{
    QProcess bash;
    bash.start("bash", {"-c", QString("source %1; COMP_WORDS=(%2); COMP_CWORD=%3; _zelview 2>/dev/null; "
                                      "printf '%s\\n' \"${COMPREPLY[@]}\"")
                                  .arg(completion, words.join(' '))
                                  .arg(words.size() - 1)});
    EXPECT_TRUE(bash.waitForFinished());
    return QString::fromUtf8(bash.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
}

} // namespace

TEST(OptionTexts, helpNamesEveryOptionAndSettingOnShortLines)
{
    Outcome const help = runZelview({"--help"});
    EXPECT_EQ(help.code, 0);
    EXPECT_TRUE(help.err.isEmpty());
    for (OptionRow const& row : optionTable())
        EXPECT_THAT(help.out.toStdString(), HasSubstr("--" + std::string(row.name)));
    for (auto const& field : ZELVizCore::Settings::Fields())
        EXPECT_THAT(help.out.toStdString(), HasSubstr(field.name));
    for (QByteArray const& line : help.out.split('\n')) EXPECT_LE(line.size(), 110) << line.constData();
}

TEST(OptionTexts, everyWordThatCompletionOffersIsTaken)
{
    for (OptionRow const& row : optionTable())
        for (QByteArray const& word :
             QByteArray(row.words.data(), static_cast<int>(row.words.size())).split(' ')) {
            if (word.isEmpty()) continue;
            Options options;
            EXPECT_TRUE(row.apply(options, word.toStdString())) << row.name << ' ' << word.constData();
        }
}

TEST(OptionTexts, bashCompletes)
{
    QTemporaryDir folder;
    QString const completion = writeTo(folder, "zelview", bashCompletion());
    EXPECT_EQ(offered(completion, {"zelview", "--camera-"}),
              QStringList({"--camera-position", "--camera-target", "--camera-up"}));
    EXPECT_EQ(offered(completion, {"zelview", "--view", "b"}), QStringList({"back", "bottom"}));
    EXPECT_EQ(offered(completion, {"zelview", "--set", "Num"}), QStringList({"NumProcessors="}));
    EXPECT_TRUE(offered(completion, {"zelview", "--fov", "1"}).isEmpty());
}

TEST(OptionTexts, theManualPageFormatsWithoutAComplaint)
{
    QTemporaryDir folder;
    QString const page = writeTo(folder, "zelview.1", manPage("1.2.3"));
    QProcess man;
    man.setProcessEnvironment([] {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("MANWIDTH", "80");
        environment.insert("LC_ALL", "C.UTF-8");
        return environment;
    }());
    man.start("man", {"--warnings", "-l", page});
    if (!man.waitForStarted()) GTEST_SKIP() << "man is not installed";
    ASSERT_TRUE(man.waitForFinished());
    if (man.exitCode() == 16 || man.exitCode() == 3) GTEST_SKIP() << man.readAllStandardError().constData();
    EXPECT_EQ(man.readAllStandardError().toStdString(), "");
    QByteArray const text = man.readAllStandardOutput();
    for (OptionRow const& row : optionTable())
        EXPECT_THAT(text.toStdString(), HasSubstr("--" + std::string(row.name)));
}
