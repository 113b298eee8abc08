// What holds of cutting sections whatever the pictures look like in detail.
#include "Stage.h"
#include <gtest/gtest.h>

using namespace HPS;

namespace
{

QColor const background(31, 31, 41), part(204, 51, 51), cap(51, 204, 102);

bool near(QRgb pixel, QColor const& colour)
{
    return std::abs(qRed(pixel) - colour.red()) + std::abs(qGreen(pixel) - colour.green()) +
               std::abs(qBlue(pixel) - colour.blue()) <=
           6;
}

/// A red box from -1 to 1 without light, seen along z; caps in green.
class Sections : public testing::Test
{
protected:
    Sections()
    {
        stage.root().GetMaterialMappingControl().SetFaceColor(RGBAColor(0.8f, 0.2f, 0.2f));
        stage.root().GetMaterialMappingControl().SetCutFaceColor(RGBAColor(0.2f, 0.8f, 0.4f));
        stage.root().GetVisibilityControl().SetCutFaces(true);
        box = stage.root().Subsegment("box");
        shell = insertBox(box, {-1, -1, -1}, {1, 1, 1});
    }
    /// At a place of the world's z plane: the field is 4 by 3.
    QRgb at(float x, float y) { return stage.picture().pixel(int((x + 2) * 50), int((1.5f - y) * 50)); }
    void open()
    {
        ShellKit kit;
        shell.Show(kit);
        std::vector<int> faces;
        kit.ShowFacelist(faces);
        faces.resize(25);
        kit.SetFacelist(faces);
        shell.Consume(kit);
    }

    Stage stage;
    SegmentKey box;
    ShellKey shell;
    Plane const front{0, 0, 1, 0}, right{1, 0, 0, 0}, top{0, 1, 0, 0};
};

TEST_F(Sections, cutAwayShowsTheBackground)
{
    stage.root().InsertCuttingSection(right);
    EXPECT_PRED2(near, at(-0.5f, 0.2f), part);
    EXPECT_PRED2(near, at(0.5f, 0.2f), background);
}

TEST_F(Sections, capsAreInTheCutFaceMaterialOrThatOfThePart)
{
    stage.root().InsertCuttingSection(front);
    EXPECT_PRED2(near, at(0.3f, 0.2f), cap);
    stage.root().GetCuttingSectionAttributeControl().SetMaterialPreference(
        CuttingSection::MaterialPreference::Implicit);
    EXPECT_PRED2(near, at(0.3f, 0.2f), part);
    box.GetMaterialMappingControl().SetFaceColor(RGBAColor(0.2f, 0.2f, 1));
    EXPECT_PRED2(near, at(0.3f, 0.2f), QColor(51, 51, 255));
}

TEST_F(Sections, openShellsHaveNoCap)
{
    stage.root().InsertCuttingSection(front);
    open();
    EXPECT_PRED2(near, at(0.3f, 0.2f), part); // the inside of the wall behind
}

TEST_F(Sections, usageAndVisibilityDecideAboutCaps)
{
    stage.root().InsertCuttingSection(front);
    auto attributes = stage.root().GetCuttingSectionAttributeControl();
    auto visibility = stage.root().GetVisibilityControl();
    attributes.SetCappingUsage(CuttingSection::CappingUsage::Off);
    EXPECT_PRED2(near, at(0.3f, 0.2f), part);
    attributes.SetCappingUsage(CuttingSection::CappingUsage::Visibility);
    EXPECT_PRED2(near, at(0.3f, 0.2f), cap);
    visibility.SetFaces(false);
    EXPECT_PRED2(near, at(0.3f, 0.2f), background);
    attributes.SetCappingUsage(CuttingSection::CappingUsage::On);
    EXPECT_PRED2(near, at(0.3f, 0.2f), cap);
    visibility.SetCutFaces(false);
    EXPECT_PRED2(near, at(0.3f, 0.2f), background);
}

TEST_F(Sections, levelsTellWhatIsClosedTogether)
{
    // Two halves of a box, each open by itself: in one segment they bound a volume, apart they do not.
    box.Flush();
    std::vector<Point> corners;
    for (int i = 0; i < 8; ++i)
        corners.emplace_back((i & 1) != 0 ? 1.f : -1.f, (i & 2) != 0 ? 1.f : -1.f, (i & 4) != 0 ? 1.f : -1.f);
    std::vector<int> const some{4, 0, 2, 3, 1, 4, 4, 5, 7, 6, 4, 0, 1, 5, 4},
        others{4, 2, 6, 7, 3, 4, 0, 4, 6, 2, 4, 1, 3, 7, 5};
    box.InsertShell(corners, some);
    ShellKey second = box.InsertShell(corners, others);
    stage.root().InsertCuttingSection(front);
    auto attributes = box.GetCuttingSectionAttributeControl();
    EXPECT_PRED2(near, at(0.3f, 0.2f), cap);
    attributes.SetCappingLevel(CuttingSection::CappingLevel::Entity);
    EXPECT_PRED2(near, at(0.3f, 0.2f), part);
    second.Delete();
    box.Subsegment("more").InsertShell(corners, others);
    attributes.SetCappingLevel(CuttingSection::CappingLevel::Segment);
    EXPECT_PRED2(near, at(0.3f, 0.2f), part);
    attributes.SetCappingLevel(CuttingSection::CappingLevel::SegmentTree);
    EXPECT_PRED2(near, at(0.3f, 0.2f), cap);
}

TEST_F(Sections, reachWhatIsBelowTheirSegment)
{
    SegmentKey inner = box.Subsegment("inner"), beside = stage.root().Subsegment("beside");
    insertBox(inner, {-1.8f, -1, -1}, {-1.2f, 1, 1});
    insertBox(beside, {1.2f, -1, -1}, {1.8f, 1, 1});
    CuttingSectionKey const section = box.InsertCuttingSection(top);
    EXPECT_PRED2(near, at(0, 0.5f), background);
    EXPECT_PRED2(near, at(-1.5f, 0.5f), background);
    EXPECT_PRED2(near, at(1.5f, 0.5f), part);
    box.GetCuttingSectionAttributeControl().SetCuttingLevel(CuttingSection::CuttingLevel::Local);
    EXPECT_PRED2(near, at(0, 0.5f), background);
    EXPECT_PRED2(near, at(-1.5f, 0.5f), part);
    // In the view's own segment it cuts all of the model.
    CuttingSectionKey(section).Delete();
    stage.viewSegment().InsertCuttingSection(top);
    for (float x : {-1.5f, 0.f, 1.5f}) EXPECT_PRED2(near, at(x, 0.5f), background);
}

TEST_F(Sections, goWithTheMatrixOfTheirSegment)
{
    box.InsertCuttingSection(right);
    box.GetModellingMatrixControl().Rotate(0, 0, 90).Translate(0, 0.4, 0);
    EXPECT_PRED2(near, at(0.2f, 0.3f), part);
    EXPECT_PRED2(near, at(0.2f, 0.5f), background);
}

TEST_F(Sections, planesOfOneSectionTakeAwayWhatAllOfThemDo)
{
    CuttingSectionKit kit;
    kit.SetPlanes({right, top});
    CuttingSectionKey section = stage.root().InsertCuttingSection(kit);
    EXPECT_PRED2(near, at(0.5f, 0.5f), background);
    EXPECT_PRED2(near, at(-0.5f, 0.5f), part);
    EXPECT_PRED2(near, at(0.5f, -0.5f), part);
    section.SetPlanes(right);
    stage.root().InsertCuttingSection(top);
    EXPECT_PRED2(near, at(-0.5f, 0.5f), background);
    EXPECT_PRED2(near, at(0.5f, -0.5f), background);
    EXPECT_PRED2(near, at(-0.5f, -0.5f), part);
}

TEST_F(Sections, cutSixteenTimes)
{
    CuttingSectionKit kit;
    std::vector<Plane> planes;
    for (int i = 0; i < 16; ++i) {
        float const angle = float(i) * 3.14159265f / 8;
        planes.emplace_back(-std::cos(angle), -std::sin(angle), 0.f, 0.5f);
    }
    kit.SetPlanes(planes);
    stage.root().InsertCuttingSection(kit);
    EXPECT_PRED2(near, at(0, 0), background);
    EXPECT_PRED2(near, at(0.45f, 0), background);
    EXPECT_PRED2(near, at(0.4f, 0.4f), part);
}

TEST_F(Sections, cutLinesAndMarkersToo)
{
    box.GetVisibilityControl().SetFaces(false).SetLines(true).SetMarkers(true);
    box.GetMaterialMappingControl().SetLineColor(RGBAColor(1, 1, 0)).SetMarkerColor(RGBAColor(1, 1, 0));
    box.InsertLine(Point(-1.5f, 0.01f, 0), Point(1.5f, 0.01f, 0));
    box.GetLineAttributeControl().SetWeight(5, Line::SizeUnits::Pixels);
    box.GetMarkerAttributeControl().SetSize(9, Marker::SizeUnits::Pixels).SetSymbol("solid box");
    box.InsertMarker(Point(-1, 1, 0));
    box.InsertMarker(Point(1, 1, 0));
    stage.root().InsertCuttingSection(right);
    EXPECT_PRED2(near, at(-0.5f, 0), QColor(255, 255, 0));
    EXPECT_PRED2(near, at(0.5f, 0), background);
    EXPECT_PRED2(near, at(-1, 1), QColor(255, 255, 0));
    EXPECT_PRED2(near, at(1, 1), background);
}

TEST_F(Sections, cutTextsInTheirPlaneAndTakeThoseThatFaceTheViewerAsAWhole)
{
    box.GetVisibilityControl().SetFaces(false);
    box.GetTextAttributeControl()
        .SetSize(0.6f, Text::SizeUnits::WorldSpace)
        .SetAlignment(Text::Alignment::Center);
    box.GetMaterialMappingControl().SetTextColor(RGBAColor(1, 1, 1));
    box.InsertText({0, 0, 0}, "HHHHHH");
    stage.root().InsertCuttingSection(right);
    auto ink = [&](int from, int to) {
        QImage const picture = stage.picture();
        int count = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = from; x < to; ++x) count += qGray(picture.pixel(x, y)) > 150;
        return count;
    };
    using enum Text::Transform;
    box.GetTextAttributeControl().SetTransform(Transformable);
    EXPECT_GT(ink(0, 99), 50);
    EXPECT_EQ(ink(101, 200), 0) << "half of it is gone";
    box.GetTextAttributeControl().SetTransform(NonTransformable);
    EXPECT_GT(ink(101, 200), 50) << "stays with its place";
    stage.root().InsertCuttingSection(Plane(-1, 0, 0, 0.1f));
    EXPECT_EQ(ink(0, 200), 0) << "goes with its place";
}

TEST_F(Sections, offIsAsIfTheyWereNotThere)
{
    stage.light();
    QImage const before = stage.picture();
    CuttingSectionKey section = stage.root().InsertCuttingSection(Plane(1, 1, 1, 0));
    EXPECT_NE(stage.picture(), before);
    stage.root().GetVisibilityControl().SetCuttingSections(false);
    EXPECT_EQ(stage.picture(), before);
    stage.root().GetVisibilityControl().UnsetCuttingSections();
    section.SetPlanes(Plane(1, 1, 1, -10)); // beyond the box
    EXPECT_EQ(stage.picture(), before);
    section.Delete();
    EXPECT_EQ(stage.picture(), before);
}

TEST_F(Sections, aMovedPlaneMakesNoListAnewAndTheSamePicture)
{
    stage.light();
    CuttingSectionKey section = stage.root().InsertCuttingSection(Plane(1, 0.3f, 0.4f, 0.3f));
    stage.picture();
    section.SetPlanes(Plane(0.5f, 1, 0.4f, -0.3f));
    QImage const moved = stage.picture();
    EXPECT_EQ(stage.report().compiledViews, 0u);
    EXPECT_EQ(stage.picture(Window::UpdateType::Exhaustive), moved);
    section.SetPlanes(Plane(1, 0.3f, 0.4f, 0.3f));
    EXPECT_NE(stage.picture(), moved);
}

} // namespace
