// One test for each line of cases.txt: the picture that zelview makes of a model, held against a stored one.
// With ZEL_UPDATE_PICTURES=1 in the environment the references are written instead; look at them before
// keeping them.

#include "compare.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStringList>

#include <gtest/gtest.h>

namespace
{

struct Case {
    std::string name;
    QStringList arguments;
    Tolerance tolerance;
};

void PrintTo(Case const& picture, std::ostream* out)
{
    *out << picture.arguments.join(' ').toStdString();
}

std::vector<Case> readCases()
{
    QFile file(QStringLiteral(ZEL_SOURCE_DIR "/tests/pictures/cases.txt"));
    if (!file.open(QIODevice::ReadOnly)) return {};
    std::vector<Case> cases;
    for (QString const& line : QString::fromUtf8(file.readAll()).split('\n')) {
        if (line.startsWith('#') || line.trimmed().isEmpty()) continue;
        QStringList const columns = line.split('|');
        QStringList const tolerance = columns.value(2).split(' ', Qt::SkipEmptyParts);
        cases.push_back({columns.value(0).trimmed().toStdString(),
                         columns.value(1).split(' ', Qt::SkipEmptyParts),
                         {tolerance.value(0).toInt(), tolerance.value(1).toDouble()}});
    }
    return cases;
}

class Pictures : public testing::TestWithParam<Case>
{
};

} // namespace

TEST_P(Pictures, matchesItsReference)
{
    Case const& picture = GetParam();
    QDir const made(QStringLiteral(ZEL_BINARY_DIR "/pictures"));
    ASSERT_TRUE(made.mkpath("."));
    QString const name = QString::fromStdString(picture.name);
    QString const path = made.filePath(name + ".png");
    QString const reference = QStringLiteral(ZEL_SOURCE_DIR "/tests/pictures/reference/") + name + ".png";
    QString const model = QStringLiteral(ZEL_SOURCE_DIR "/") + picture.arguments.last();
    if (!QFileInfo::exists(model)) GTEST_SKIP() << "no model at " << model.toStdString();

    QProcess zelview;
    QStringList arguments{"--output", path, "--resolution", "320,240"};
    arguments += picture.arguments;
    arguments.last() = model;
    zelview.start(QStringLiteral(ZEL_BINARY_DIR "/bin/zelview"), arguments);
    ASSERT_TRUE(zelview.waitForFinished(250'000));
    ASSERT_EQ(zelview.exitCode(), 0) << zelview.readAllStandardError().constData();

    QImage const image(path);
    ASSERT_FALSE(image.isNull());
    if (qEnvironmentVariableIntValue("ZEL_UPDATE_PICTURES") == 1) {
        ASSERT_TRUE(image.save(reference));
        return;
    }
    QImage const expected(reference);
    ASSERT_FALSE(expected.isNull()) << "no reference " << reference.toStdString();
    Comparison const comparison = compare(image, expected, picture.tolerance);
    if (!comparison.difference.isNull()) comparison.difference.save(made.filePath(name + "-difference.png"));
    EXPECT_TRUE(comparison.equal) << path.toStdString() << ": " << comparison.verdict;
}

INSTANTIATE_TEST_SUITE_P(Cases, Pictures, testing::ValuesIn(readCases()),
                         [](auto const& picture) { return picture.param.name; });
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(Pictures);
