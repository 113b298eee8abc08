// Texts in all their settings.
#include "Stage.h"

using namespace HPS;

namespace
{

TextKit textAt(char const* text, float x, float y)
{
    TextKit kit(Point(x, y, 0), text);
    kit.SetSize(0.3f, Text::SizeUnits::WorldSpace).SetTransform(Text::Transform::Transformable);
    kit.SetColor(RGBAColor(1, 1, 1, 1)).SetFont("DejaVu Sans");
    return kit;
}

void dot(SegmentKey segment, float x, float y)
{
    SegmentKey place = segment.Subsegment("dots");
    place.GetMaterialMappingControl().SetFaceColor(RGBAColor(1, 0.3f, 0.2f));
    insertRectangle(place, {x, y, 0.01f}, 0.05f, 0.05f);
}

void text(Stage& stage)
{
    std::string const what = stage.value("what");
    SegmentKey root = stage.root();
    if (what == "plain") {
        root.InsertText(textAt("Hamburg 12.5", -1.9f, 0.8f));
        root.InsertText(textAt("A\u0301\u00E4\u00DF \u03B1\u03B2 \u0416", -1.9f, 0.3f));
        root.InsertText(textAt("\u05E9\u05DC\u05D5\u05DD \u0627\u0644\u0639\u0631\u0628", -1.9f, -0.2f));
        root.InsertText(textAt("\u2316 \u23E5 \u232D \u2300 \u24C2 \U000F1234", -1.9f, -0.7f));
        root.InsertText(textAt("fi AV office", -1.9f, -1.2f));
    } else if (what == "styles") {
        root.InsertText(textAt("Bold", -1.9f, 1).SetBold(true));
        root.InsertText(textAt("Italic", -1.9f, 0.6f).SetItalic(true));
        root.InsertText(textAt("Lines", -1.9f, 0.2f).SetUnderline(true).SetOverline(true));
        root.InsertText(textAt("Struck", -1.9f, -0.3f).SetStrikethrough(true));
        root.InsertText(textAt("Slant", -1.9f, -0.7f).SetSlant(-20));
        root.InsertText(textAt("Wide", -1.9f, -1.1f).SetSpacing(1.6f));
        root.InsertText(textAt("Serif", 0.2f, 1).SetFont("DejaVu Serif"));
        root.InsertText(textAt("Mono", 0.2f, 0.6f).SetFont("DejaVuSansMono"));
        root.InsertText(textAt("Two\nlines", 0.2f, 0).SetLineSpacing(0.8f));
        root.InsertText(
            textAt("up", 1.8f, -1.3f).SetPath(Vector(0, 1, 0)).SetRotation(Text::Rotation::FollowPath));
        root.InsertText(textAt("stack", 1.2f, 0.9f).SetPath(Vector(0, -1, 0)));
        root.InsertText(textAt("turn", 0.2f, -0.9f).SetRotation(Text::Rotation::Rotate, 30));
    } else if (what == "alignments") {
        for (std::uint32_t i = 0; i < 9; ++i) {
            float const x = -1.2f + 1.2f * float(i / 3), y = 0.9f - 0.9f * float(i % 3);
            dot(root, x, y);
            root.InsertText(textAt("Hxp\ny", x, y).SetAlignment(Text::Alignment(i)));
        }
    } else if (what == "background") {
        SegmentKey red = Database::CreateRootSegment();
        red.GetMaterialMappingControl()
            .SetFaceColor(RGBAColor(0.6f, 0.1f, 0.1f))
            .SetEdgeColor(RGBAColor(1, 0.9f, 0.2f));
        PortfolioKey portfolio = Database::CreatePortfolio();
        portfolio.DefineNamedStyle("frame", red);
        ShapeKit oval;
        oval.SetElements({{ShapeElement::Kind::Ellipse, {{-1, -1, 0}, {1, 1, 0}}, true}});
        portfolio.DefineShape("oval", oval);
        root.GetPortfolioControl().Push(portfolio);
        root.InsertText(textAt("framed", -1.6f, 0.7f).SetBackground(true).SetColor(RGBAColor(0, 0, 0, 1)));
        root.InsertText(textAt("styled", -1.6f, -0.1f).SetBackground(true).SetBackgroundStyle("frame"));
        root.InsertText(textAt("oval", -1.5f, -1)
                            .SetBackground(true, "oval")
                            .SetBackgroundStyle("frame")
                            .SetBackgroundMargins({50}, {Text::MarginUnits::Percent}));
        root.InsertText(textAt("lead", 0.6f, 0.5f).SetLeaderLines({{0.2f, -0.6f, 0}, {1.8f, -0.6f, 0}}));
    } else if (what == "region") {
        for (std::uint32_t i = 0; i < 6; ++i) {
            float const x = -1.8f + 1.9f * float(i / 3), y = 0.8f - 0.8f * float(i % 3);
            SegmentKey frame = root.Subsegment("frame");
            frame.GetMaterialMappingControl().SetFaceColor(RGBAColor(0.3f, 0.3f, 0.5f));
            insertRectangle(frame, {x + 0.8f, y + 0.2f, -0.01f}, 1.6f, 0.4f);
            root.InsertText(textAt("fit", 0, 0)
                                .SetRegion({{x, y, 0}, {x + 1.6f, y, 0}, {x, y + 0.4f, 0}},
                                           Text::RegionAlignment::Center, Text::RegionFitting(i), true, false,
                                           false));
        }
    } else if (what == "tilted") { // a sheet seen from the side: its text lies in it, labels face the reader
        stage.look({6, 4, 7}, 3, true);
        insertRectangle(root, {0, 0, -0.01f}, 3, 2);
        root.GetMaterialMappingControl().SetFaceColor(RGBAColor(0.25f, 0.35f, 0.3f));
        root.InsertText(textAt("in the plane", -1.3f, 0.4f));
        root.InsertText(textAt("faces you", -1.3f, -0.3f)
                            .SetTransform(Text::Transform::NonTransformable)
                            .SetSize(14, Text::SizeUnits::Pixels));
        root.InsertText(textAt("letters", -0.4f, -0.8f).SetTransform(Text::Transform::CharacterPositionOnly));
    } else if (what == "greeking") {
        for (std::uint32_t i = 0; i < 3; ++i)
            root.InsertText(textAt("greeked text\nof two lines", -1.7f, 0.6f - 0.8f * float(i))
                                .SetGreeking(true, 40, Text::GreekingUnits::Pixels, Text::GreekingMode(i)));
    }
}

SceneTable const table{{"text", text}};

} // namespace
