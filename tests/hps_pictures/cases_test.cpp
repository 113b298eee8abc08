// One test for each line of cases.txt: the picture of a scene, held against a stored one. With
// ZEL_UPDATE_PICTURES=1 in the environment the references are written instead; look at them before keeping
// them.
#include "Stage.h"
#include "compare.h"
#include <QDir>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace
{

struct Case {
    std::string scene;
    std::vector<std::string> arguments;
    std::string reference;
    Tolerance tolerance;
};

void PrintTo(Case const& c, std::ostream* out)
{
    *out << c.scene;
    for (std::string const& argument : c.arguments) *out << ' ' << argument;
}

std::vector<std::string> words(std::string const& text)
{
    std::istringstream in(text);
    return {std::istream_iterator<std::string>(in), {}};
}

std::vector<Case> readCases()
{
    std::ifstream file(ZEL_SOURCE_DIR "/tests/hps_pictures/cases.txt");
    std::vector<Case> cases;
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line.front() == '#') continue;
        std::istringstream columns(line);
        std::string scene, arguments, reference, tolerance;
        std::getline(columns, scene, '|');
        std::getline(columns, arguments, '|');
        std::getline(columns, reference, '|');
        std::getline(columns, tolerance);
        Case c{words(scene).at(0), words(arguments), words(reference).at(0), {}};
        std::istringstream(tolerance) >> c.tolerance.channel >> c.tolerance.fraction;
        cases.push_back(std::move(c));
    }
    return cases;
}

class Cases : public testing::TestWithParam<Case>
{
};

} // namespace

TEST_P(Cases, matchesItsReference)
{
    Case const& c = GetParam();
    NamedScene const* const scene = SceneTable::find(c.scene);
    ASSERT_NE(scene, nullptr) << "no scene " << c.scene;
    int width = 200, height = 150;
    for (std::string const& argument : c.arguments)
        std::sscanf(argument.c_str(), "size=%dx%d", &width, &height);
    Stage stage(width, height);
    stage.arguments = c.arguments;
    scene->build(stage);
    QImage const image = stage.picture();

    QDir const made(QStringLiteral(ZEL_BINARY_DIR "/hps_pictures"));
    ASSERT_TRUE(made.mkpath("."));
    QString const name = QString::fromStdString(c.reference);
    QString const path = made.filePath(name + ".png");
    ASSERT_TRUE(image.save(path));
    QString const reference = QStringLiteral(ZEL_SOURCE_DIR "/tests/hps_pictures/reference/") + name + ".png";
    if (qEnvironmentVariableIntValue("ZEL_UPDATE_PICTURES") == 1) {
        ASSERT_TRUE(image.save(reference));
        return;
    }
    QImage const expected(reference);
    ASSERT_FALSE(expected.isNull()) << "no reference " << reference.toStdString();
    Comparison const comparison = compare(image, expected, c.tolerance);
    if (!comparison.difference.isNull()) comparison.difference.save(made.filePath(name + "-difference.png"));
    EXPECT_TRUE(comparison.equal) << path.toStdString() << ": " << comparison.verdict;
}

INSTANTIATE_TEST_SUITE_P(Pictures, Cases, testing::ValuesIn(readCases()),
                         [](auto const& c) { return std::to_string(c.index) + "_" + c.param.reference; });
