#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <mora/Settings.h>
#include <random>

using namespace ZELVizCore;
using testing::HasSubstr;
using testing::SizeIs;
namespace fs = std::filesystem;

namespace
{

class SettingsFile : public testing::Test
{
protected:
    void SetUp() override
    {
        folder_ = fs::temp_directory_path() / ("zel-settings-" + std::to_string(std::random_device()()));
        fs::create_directories(folder_);
        setenv("XDG_CONFIG_HOME", folder_.c_str(), 1);
    }
    void TearDown() override
    {
        unsetenv("XDG_CONFIG_HOME");
        fs::remove_all(folder_);
    }
    fs::path path() const { return folder_ / "zelview/settings.ini"; }
    fs::path aside() const { return path().string() + ".damaged"; }

    void write(std::string const& content) const
    {
        fs::create_directories(path().parent_path());
        std::ofstream(path(), std::ios::binary) << content;
    }
    static std::string read(fs::path const& file)
    {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

private:
    fs::path folder_;
};

struct Accepted {
    char const* name;
    char const* text;
    char const* stored; ///< null: the text must be refused
};

constexpr Accepted texts[] = {
    {"GraphicalMode", "true", "true"},     {"GraphicalMode", "off", "false"},
    {"GraphicalMode", "2", nullptr},       {"GraphicalMode", "", nullptr},
    {"NumProcessors", "8", "8"},           {"NumProcessors", "-1", nullptr},
    {"NumProcessors", "1025", nullptr},    {"NumProcessors", "99999999999999999999", nullptr},
    {"NumProcessors", "8 ", nullptr},      {"NumProcessors", "0x8", nullptr},
    {"BodyColor", "#102030", "#102030ff"}, {"BodyColor", "#A0b0C0d0", "#a0b0c0d0"},
    {"BodyColor", "#1020", nullptr},       {"BodyColor", "#1020g0", nullptr},
    {"BodyColor", "#-10203", nullptr},     {"BodyColor", "102030", nullptr},
};

} // namespace

TEST(Settings, TextsAreTakenOrRefusedWhole)
{
    for (Accepted const& row : texts) {
        Settings settings;
        Settings::Field const* field = Settings::FindField(row.name);
        ASSERT_TRUE(field) << row.name;
        std::string const before = settings.GetText(*field);
        EXPECT_EQ(settings.SetText(*field, row.text), row.stored != nullptr) << row.name << '=' << row.text;
        EXPECT_EQ(settings.GetText(*field), row.stored ? row.stored : before) << row.name << '=' << row.text;
    }
}

TEST(Settings, AssignmentSaysWhatIsWrong)
{
    Settings settings;
    EXPECT_EQ(settings.Assign("NumProcessors=3"), "");
    EXPECT_EQ(settings->NumProcessors, 3);
    EXPECT_THAT(settings.Assign("NumProcessors=x"), HasSubstr("a whole number from 0 to 1024"));
    EXPECT_THAT(settings.Assign("Colour=#ffffff"), HasSubstr("no setting \"Colour\""));
    EXPECT_THAT(settings.Assign("BodyColor"), HasSubstr("Name=value"));
    EXPECT_EQ(settings.NumProcessors, 3);
}

TEST_F(SettingsFile, RoundTripKeepsEveryField)
{
    // Each field gets a value that differs from its default, so that one left out of the table's way is seen.
    Settings saved;
    for (Settings::Field const& field : Settings::Fields()) {
        bool const taken = saved.SetText(field, saved.GetText(field) == "true" ? "false" : "true") ||
                           saved.SetText(field, std::to_string(field.highest)) || saved.SetText(field, "#01020304");
        ASSERT_TRUE(taken) << field.name;
    }
    EXPECT_EQ(saved.Save(), L"");
    EXPECT_TRUE(fs::exists(path()));
    Settings loaded;
    EXPECT_THAT(loaded.Load(), SizeIs(0));
    EXPECT_EQ(loaded, saved);
    for (Settings::Field const& field : Settings::Fields())
        EXPECT_NE(loaded.GetText(field), Settings::Default().GetText(field)) << field.name;
}

TEST_F(SettingsFile, AnAbsentFileGivesTheDefaults)
{
    Settings settings;
    settings.NumProcessors = 5;
    EXPECT_THAT(settings.Load(), SizeIs(0));
    EXPECT_EQ(settings, Settings::Default());
}

TEST_F(SettingsFile, AWrongValueTakesItsDefaultAndTheRestStays)
{
    std::string const content = "GraphicalMode=true\nNumProcessors=many\nBodyColor=@Invalid()\nOther=7\n";
    write(content);
    Settings settings;
    auto const warnings = settings.Load();
    ASSERT_EQ(warnings.size(), 3u);
    EXPECT_THAT(warnings[0], HasSubstr(L"BodyColor"));
    EXPECT_THAT(warnings[1], HasSubstr(L"NumProcessors can't be \"many\""));
    EXPECT_TRUE(settings.GraphicalMode);
    EXPECT_EQ(settings.NumProcessors, Settings::Default().NumProcessors);
    EXPECT_EQ(read(aside()), content);

    EXPECT_EQ(settings.Save(), L"");
    EXPECT_THAT(Settings().Load(), SizeIs(0)) << "saving mends the file";
    EXPECT_THAT(read(path()), HasSubstr("Other=7"));
}

TEST_F(SettingsFile, DamagedFilesAreKeptAsideAndMendedBySaving)
{
    std::string const damaged[] = {
        "[General\nGraphicalMode\xff",
        std::string("GraphicalMode=true\0\0\0", 22),
        "\x7f" + std::string("ELF\0\1\2\3", 7),
        std::string((1 << 20) + 1, 'x'),
        "this is a letter\nto nobody in particular\n",
    };
    for (std::string const& content : damaged) {
        write(content);
        Settings settings;
        EXPECT_FALSE(settings.Load().empty()) << content.substr(0, 40);
        EXPECT_EQ(settings, Settings::Default());
        EXPECT_TRUE(read(aside()) == content) << content.substr(0, 40);
        EXPECT_EQ(settings.Save(), L"") << content.substr(0, 40);
        EXPECT_THAT(Settings().Load(), SizeIs(0)) << content.substr(0, 40);
    }
}

TEST_F(SettingsFile, AFolderInThePlaceOfTheFileIsReported)
{
    fs::create_directories(path());
    Settings settings;
    EXPECT_FALSE(settings.Load().empty());
    EXPECT_THAT(settings.Save(), HasSubstr(L"can't be written"));
}
