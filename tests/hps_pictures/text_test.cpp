// What holds for texts in any picture: how high they are, where they stand, what they are sharp at.
#include "Stage.h"
#include <gtest/gtest.h>

using namespace HPS;

namespace
{

/// The rectangle around all that differs from the colour of the upper left corner.
QRect inkOf(QImage const& image)
{
    QRgb const ground = image.pixel(0, 0);
    QRect box;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) != ground) box = box.united(QRect(x, y, 1, 1));
    return box;
}

TextKit letters(char const* text, float size, Text::SizeUnits units)
{
    TextKit kit(Point(0, 0, 0), text);
    kit.SetSize(size, units).SetFont("DejaVu Sans").SetColor(RGBAColor(1, 1, 1, 1));
    return kit.SetAlignment(Text::Alignment::Center);
}

struct SizeCase {
    char const* name;
    float size;
    Text::SizeUnits units;
    float scale;     ///< of the segment
    double expected; ///< em in pixels, in a window of 200 x 150 pixels that is 3 units high
};

class TextSizes : public testing::TestWithParam<SizeCase>
{
};

TEST_P(TextSizes, AreAsTheUnitsSay)
{
    SizeCase const& c = GetParam();
    for (bool plane : {false, true}) {
        Stage stage;
        SegmentKey place = stage.root().Subsegment("place");
        place.GetModellingMatrixControl().Scale(c.scale, c.scale, c.scale);
        place.InsertText(
            letters("H", c.size, c.units)
                .SetTransform(plane ? Text::Transform::Transformable : Text::Transform::NonTransformable));
        QRect const ink = inkOf(stage.picture());
        constexpr double capital = 0.729; // of an em, in this font
        EXPECT_NEAR(ink.height(), c.expected * capital, 1.6) << c.name << (plane ? " in its plane" : "");
        EXPECT_NEAR(ink.center().x(), 100, 2);
        EXPECT_NEAR(ink.center().y(), 75, 1.5);
    }
}

using Units = Text::SizeUnits;
INSTANTIATE_TEST_SUITE_P(All, TextSizes,
                         testing::Values(SizeCase{"object", 0.5f, Units::ObjectSpace, 2, 50},
                                         SizeCase{"world", 0.5f, Units::WorldSpace, 2, 25},
                                         SizeCase{"window", 0.2f, Units::WindowRelative, 2, 30},
                                         SizeCase{"subscreen", 0.2f, Units::SubscreenRelative, 2, 30},
                                         SizeCase{"points", 30, Units::Points, 2, 40},
                                         SizeCase{"pixels", 40, Units::Pixels, 2, 40}));

TEST(TextOnScreen, ThatFacesTheReaderKeepsItsHeightAtAnyZoomAndFromAnySide)
{
    Stage stage;
    stage.root().InsertText(letters("HHH", 30, Units::Pixels));
    QRect first;
    for (Point const eye : {Point(0, 0, 10), Point(7, 3, 5), Point(-4, 8, 1)})
        for (float height : {0.01f, 3.0f, 5000.0f}) {
            stage.look(eye, height);
            QRect const ink = inkOf(stage.picture());
            if (first.isNull()) first = ink;
            EXPECT_NEAR(ink.height(), first.height(), 1);
            EXPECT_NEAR(ink.width(), first.width(), 1);
        }
}

TEST(TextOnScreen, InItsPlaneIsForeshortened)
{
    Stage stage;
    stage.root().InsertText(
        letters("HHH", 0.5f, Units::WorldSpace).SetTransform(Text::Transform::Transformable));
    QRect const straight = inkOf(stage.picture());
    stage.look({10, 0, 10});
    QRect const turned = inkOf(stage.picture());
    EXPECT_NEAR(turned.width(), straight.width() * std::sqrt(0.5), 2);
    EXPECT_NEAR(turned.height(), straight.height(), 1);
}

TEST(TextOnScreen, IsSharpCloseUp)
{
    Stage stage(400, 300);
    SegmentKey place = stage.root().Subsegment("place");
    place.GetModellingMatrixControl().Translate(-0.049f, 0,
                                                0); // the right rim of the stem comes to the middle
    place.InsertText(letters("I", 1, Units::WorldSpace).SetTransform(Text::Transform::Transformable));
    stage.look({0, 0, 10}, 0.02f);
    QImage const image = stage.picture();
    int partly = 0, full = 0;
    for (int x = 0; x < image.width(); ++x) {
        int const level = qGray(image.pixel(x, 150));
        (level > 60 && level < 240 ? partly : full)++;
    }
    EXPECT_LE(partly, 4); // a rim of a pixel, not a blur
    EXPECT_GT(full, 380);
    EXPECT_NE(image.pixel(2, 150), image.pixel(397, 150));
}

TEST(TextOnScreen, TenThousandStringsMakeFewCalls)
{
    Stage stage(640, 480);
    for (int i = 0; i < 2000; ++i) {
        TextKit kit(Point(float(i % 40) * 0.1f - 2, float(i / 40) * 0.06f - 1.5f, 0), "Kugel 12,5 H7");
        kit.SetSize(0.02f, Units::WorldSpace).SetTransform(Text::Transform::Transformable);
        stage.root().InsertText(kit);
    }
    stage.look({0, 0, 10}, 3);
    stage.picture();
    EXPECT_LT(stage.report().drawCalls, 20u);
}

TEST(TextOnScreen, ThatIsRemovedOrHiddenLeavesNothing)
{
    Stage stage;
    QImage const empty = stage.picture();
    TextKey key = stage.root().InsertText(letters("gone", 0.5f, Units::WorldSpace));
    EXPECT_NE(stage.picture(), empty);
    stage.root().GetVisibilityControl().SetText(false);
    EXPECT_EQ(stage.picture(), empty);
    stage.root().GetVisibilityControl().SetText(true);
    EXPECT_NE(stage.picture(), empty);
    key.Delete();
    EXPECT_EQ(stage.picture(), empty);
}

TEST(TextOnScreen, WithAFontThatIsMissingIsSeenAndWarnsOnce)
{
    struct Listener : EventHandler {
        std::vector<std::string> texts;
        HandleResult Handle(Event const* event) override
        {
            texts.push_back(static_cast<WarningEvent const*>(event)->message.Str());
            return HandleResult::Handled;
        }
        ~Listener() override { Shutdown(); }
    } listener;
    Database::GetEventDispatcher().Subscribe(listener, Event::ClassID<WarningEvent>());
    Stage stage;
    stage.root().InsertText(letters("HHH", 0.5f, Units::WorldSpace).SetFont("no such font.ttf"));
    EXPECT_GT(inkOf(stage.picture()).width(), 30);
    ASSERT_EQ(listener.texts.size(), 1u);
    EXPECT_NE(listener.texts[0].find("no such font.ttf"), std::string::npos);
    stage.look({1, 0, 10});
    stage.picture();
    EXPECT_EQ(listener.texts.size(), 1u);
}

} // namespace
