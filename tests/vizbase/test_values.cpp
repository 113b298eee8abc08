#include "RenderingOptions.h"

#include <gtest/gtest.h>
#include <limits>
#include <memory>

namespace ZelVizBase
{
namespace
{

TEST(RGBAColorTest, ChannelsAreClampedAndCut)
{
    EXPECT_EQ(RGBAColor(256, 0, 0, 300), RGBAColor(255, 0, 0, 255));
    float const floats[4] = {1.5F, -0.5F, 0.999F, std::numeric_limits<float>::quiet_NaN()};
    EXPECT_EQ(RGBAColor(floats), RGBAColor(255, 0, 254, 0));
    EXPECT_EQ(2.5 * RGBAColor(1, 3, 200, 0), RGBAColor(2, 7, 255, 0));
    EXPECT_EQ(-1.0 * RGBAColor::White(), RGBAColor(0, 0, 0, 0));
    EXPECT_EQ(RGBAColor(200, 1, 2, 3) + RGBAColor(100, 1, 1, 255), RGBAColor(255, 2, 3, 255));
}

TEST(RGBAColorTest, NamedColoursAreSeeThrough)
{
    EXPECT_FALSE(RGBAColor::White().IsOpaque());
    EXPECT_EQ(RGBAColor::Cyan(), RGBAColor(0, 255, 255, 0));
    EXPECT_TRUE(RGBAColor().IsOpaque());
}

TEST(RGBAColorTest, NumbersAndTexts)
{
    RGBAColor const color(1, 2, 3, 255);
    EXPECT_EQ(color.ToInt32(), 0xFF010203U);
    EXPECT_EQ(color.ToPositiveInt(), 0x7F010203);
    std::wstring text;
    RGBAColor(0, 1, 0, 0).ToHexString(text);
    EXPECT_EQ(text, L"     100");
    color.ToHexString(text);
    EXPECT_EQ(text, L"ff010203");
    HPS::RGBAColor const floats = RGBAColor(255, 0, 51, 102);
    EXPECT_EQ(floats, HPS::RGBAColor(1, 0, 0.2F, 0.4F));
}

TEST(RenderingOptionsTest, DefaultsAndWhatSettersRefuse)
{
    std::unique_ptr<RenderingOptions> const options(RenderingOptions::CreateDefault());
    EXPECT_EQ(options->GetDefaultFaceColor(), RGBAColor(205, 197, 180, 255));
    EXPECT_EQ(options->GetHighlightColor(), RGBAColor(255, 255, 0, 0));
    EXPECT_FALSE(options->GetDisplayVertices());

    options->SetEdgeWidth(3.0F);
    options->SetEdgeWidth(0.0F);
    EXPECT_EQ(options->GetEdgeWidth(), 1.0F);
    options->SetLineWidth(std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(options->GetLineWidth(), 1.0F);

    struct {
        int level, result;
    } const levels[] = {{64, 64}, {3, 1}, {4, 4}, {128, 1}, {8, 8}, {0, 1}, {16, 16}, {-8, 1}};
    for (auto const& [level, result] : levels) {
        options->SetAntialiasLevel(level);
        EXPECT_EQ(options->GetAntialiasLevel(), result) << level;
    }
}

} // namespace
} // namespace ZelVizBase
