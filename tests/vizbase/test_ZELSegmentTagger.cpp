#include "ZELSegmentTagger.h"

#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <sstream>

namespace ZelVizBase
{
namespace
{

using testing::ElementsAre;
using testing::HasSubstr;
using Tagger = ZELSegmentTagger;

class SegmentTaggerTest : public testing::Test
{
protected:
    HPS::SegmentKey Segment = HPS::Database::CreateRootSegment();
    Tagger::TAG_TYPE Type = Tagger::TAG_FACE;
    unsigned long long Number = 99;
    std::wstring Text = L"before";

    ~SegmentTaggerTest() override { Segment.Delete(); }

    HPS::ByteArray Entry(std::int64_t index)
    {
        HPS::ByteArray bytes;
        EXPECT_TRUE(Segment.ShowUserData(index, bytes));
        return bytes;
    }
};

TEST_F(SegmentTaggerTest, NumberIsOneTypeByteAndEightBytesHighestFirst)
{
    Tagger::Tag(Segment, 10005ULL, Tagger::TAG_PMI_ROOT);
    EXPECT_EQ(Segment.ShowUserDataCount(), 2u);
    EXPECT_THAT(Entry(0), ElementsAre(0x0E));
    EXPECT_THAT(Entry(1), ElementsAre(0, 0, 0, 0, 0, 0, 0x27, 0x15));
}

TEST_F(SegmentTaggerTest, TextIsUtf8WithoutTerminator)
{
    Tagger::Tag(Segment, std::wstring(L"A\u00e9"), Tagger::TAG_REFERENCE);
    EXPECT_THAT(Entry(0), ElementsAre(1));
    EXPECT_THAT(Entry(1), ElementsAre('A', 0xC3, 0xA9));
    EXPECT_TRUE(Tagger::GetPid(Segment, Text));
    EXPECT_EQ(Text, L"A\u00e9");
}

TEST_F(SegmentTaggerTest, NumbersReadBackWhatTheyWere)
{
    for (unsigned long long const pid : {0ULL, 1ULL, 0x0123456789ABCDEFULL, ~0ULL}) {
        Tagger::Tag(Segment, pid, Tagger::TAG_INSTANCE);
        EXPECT_TRUE(Tagger::GetPid(Segment, Number));
        EXPECT_EQ(Number, pid);
        EXPECT_TRUE(Tagger::GetType(Segment, Type));
        EXPECT_EQ(Type, Tagger::TAG_INSTANCE);
    }
}

TEST_F(SegmentTaggerTest, GeometryCarriesATagOfItsOwn)
{
    HPS::MarkerKey marker = Segment.InsertMarker(HPS::Point(0, 0, 0));
    Tagger::Tag(marker, 77ULL, Tagger::TAG_VERTEX);
    EXPECT_TRUE(Tagger::GetPid(marker, Number));
    EXPECT_EQ(Number, 77u);
    EXPECT_TRUE(Tagger::GetType(marker, Type));
    EXPECT_EQ(Type, Tagger::TAG_VERTEX);
    EXPECT_FALSE(Tagger::GetType(Segment, Type));
}

TEST_F(SegmentTaggerTest, OnlyExactlyTwoEntriesAreATag)
{
    auto const expectUntagged = [this] {
        Number = 99;
        Text = L"before";
        Type = Tagger::TAG_FACE;
        EXPECT_FALSE(Tagger::GetPid(Segment, Number));
        EXPECT_EQ(Number, 0u);
        EXPECT_FALSE(Tagger::GetPid(Segment, Text));
        EXPECT_EQ(Text, L"");
        EXPECT_FALSE(Tagger::GetType(Segment, Type));
        EXPECT_EQ(Type, Tagger::TAG_NONE);
    };
    expectUntagged();
    Tagger::Tag(Segment, 5ULL, Tagger::TAG_INSTANCE);
    Segment.SetUserData(2, HPS::ByteArray{1});
    expectUntagged();
    Segment.UnsetUserData(2);
    EXPECT_TRUE(Tagger::GetType(Segment, Type));
    Segment.UnsetUserData(1);
    expectUntagged();
}

TEST_F(SegmentTaggerTest, EmptyTextHasATypeButNoPid)
{
    Tagger::Tag(Segment, std::wstring(), Tagger::TAG_REFERENCE);
    EXPECT_FALSE(Tagger::GetPid(Segment, Text));
    EXPECT_TRUE(Tagger::GetType(Segment, Type));
    EXPECT_EQ(Type, Tagger::TAG_REFERENCE);
}

TEST_F(SegmentTaggerTest, TextReadOfANumberDependsOnTheType)
{
    Tagger::Tag(Segment, 0x4142434445464748ULL, Tagger::TAG_INSTANCE);
    EXPECT_TRUE(Tagger::GetPid(Segment, Text));
    EXPECT_EQ(Text, L"ABCDEFGH");
    Tagger::Tag(Segment, 0x4142434445464748ULL, Tagger::TAG_PMI);
    EXPECT_TRUE(Tagger::GetPid(Segment, Text));
    EXPECT_EQ(Text, L"");
}

TEST_F(SegmentTaggerTest, NumberReadOfATextNeedsEightBytes)
{
    Tagger::Tag(Segment, std::wstring(L"short"), Tagger::TAG_REFERENCE);
    EXPECT_FALSE(Tagger::GetPid(Segment, Number));
    Tagger::Tag(Segment, std::wstring(L"longer than eight"), Tagger::TAG_REFERENCE);
    EXPECT_TRUE(Tagger::GetPid(Segment, Number));
}

TEST_F(SegmentTaggerTest, PrintListsLeavesWithTheirGeometry)
{
    std::filesystem::path const folder = std::filesystem::temp_directory_path() / "zel_tagger_print";
    std::filesystem::create_directories(folder / "D:");
    std::filesystem::path const before = std::filesystem::current_path();
    std::filesystem::current_path(folder);
    HPS::Model model = HPS::Factory::CreateModel("");
    HPS::SegmentKey leaf = model.GetSegmentKey().Subsegment("group", true).Subsegment("leaf", true);
    leaf.InsertMarker(HPS::Point(0, 0, 0));
    leaf.InsertLine({HPS::Point(0, 0, 0), HPS::Point(1, 0, 0)});
    Tagger::Print(model);
    std::filesystem::current_path(before);

    std::ostringstream text;
    text << std::ifstream(folder / "D:" / "ZELSegmentTagger.txt").rdbuf();
    EXPECT_THAT(text.str(), HasSubstr("\n\tgroup\n\tleaf\n\t\tLine\n\t\tMarker"));
    model.Delete();
    std::filesystem::remove_all(folder);
}

} // namespace
} // namespace ZelVizBase
