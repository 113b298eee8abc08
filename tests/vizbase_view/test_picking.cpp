#include "View3DEvo.h"
#include "ViewTest.h"
#include "ZELPickRayOperator.h"

#include <QtTest>

#include <cmath>

namespace ZelVizBase
{
namespace
{

using Priority = HPS::Operator::Priority;

struct Listener : MoraCore::IPickListener {
    void OnPick(ZELVizCore::Ray const& ray) override { Rays.push_back(ray); }
    std::vector<ZELVizCore::Ray> Rays;
};

/// The view from the front, through the host's camera, 200 pixels for `Across` units.
class PickRayTest : public ViewTest
{
protected:
    PickRayTest()
    {
        float position[] = {0, 0, 10}, target[] = {0, 0, 0}, up[] = {0, 1, 0};
        View.GetCamera()->SetOrthographic(true);
        View.GetCamera()->SetCamera(position, target, up);
        Evo.SetPickListener(&Heard);
    }
    ~PickRayTest() override { ZELPickRayOperator::_aperture = 4; }

    std::vector<HPS::EllipseKey> circles() const
    {
        HPS::SearchResults found;
        View.View().GetSegmentKey().Find(HPS::Search::Type::Ellipse, HPS::Search::Space::Subsegments, found);
        std::vector<HPS::EllipseKey> keys;
        for (auto at = found.GetIterator(); at.IsValid(); at.Next()) keys.emplace_back(at.GetItem());
        return keys;
    }
    static double radiusOf(HPS::EllipseKey const& circle, HPS::Point& center)
    {
        HPS::Point major, minor;
        circle.ShowCenter(center);
        circle.ShowMajor(major);
        circle.ShowMinor(minor);
        HPS::Vector const a = major - center, b = minor - center;
        EXPECT_NEAR(a.Length(), b.Length(), 1e-5);
        EXPECT_NEAR(a.Dot(b), 0, 1e-6);
        EXPECT_NEAR(a.z, 0, 1e-6) << "it faces the eye";
        return a.Length();
    }
    double worldX(int pixel) const { return Across * ((pixel + 0.5) / 200 - 0.5); }

    View3DEvo Evo{&View};
    Listener Heard;
    double const Across = 20 * std::tan(std::atan(1.0) / 2); ///< 45 degrees, 10 away
};

TEST_F(PickRayTest, TakesTurnsWithTheHighlight)
{
    HPS::OperatorControl const stack = View.View().GetOperatorControl();
    auto const top = [&] {
        auto const high = stack.Show(Priority::High);
        return high.size() == 1 ? std::string(high[0]->GetName().Str()) : std::string("not one");
    };
    EXPECT_FALSE(Evo.TogglePickRayOp());
    EXPECT_EQ(top(), "ZELPickRayOperator");
    EXPECT_TRUE(Evo.TogglePickRayOp());
    EXPECT_EQ(top(), "3DLoom_HighlightOperator");

    Evo.TogglePickRayOp();
    View.ConfigureOperators(ZELOpConfigurator());
    EXPECT_EQ(top(), "3DLoom_HighlightOperator") << "another configuration starts with it";
    EXPECT_FALSE(Evo.TogglePickRayOp());
}

TEST_F(PickRayTest, ACircleFollowsTheMouse)
{
    float const radius = View.GetGeometryRadius();
    Evo.TogglePickRayOp();
    EXPECT_TRUE(circles().empty()) << "not before the mouse moves";
    for (auto const& [aperture, x] : {std::pair{4, 50}, {10, 150}}) {
        ZELPickRayOperator::_aperture = aperture;
        QTest::mouseMove(&View, QPoint(x, 100));
        ASSERT_EQ(circles().size(), 1U) << "one circle is moved, none is added";
        HPS::Point center;
        EXPECT_NEAR(radiusOf(circles()[0], center), aperture * Across / 200, 1e-4);
        EXPECT_NEAR(center.x, worldX(x), Across / 200);
        EXPECT_NEAR(center.z, 0, 1e-4) << "at the camera's target";
    }
    EXPECT_EQ(View.GetGeometryRadius(), radius) << "it does not count as part of the scene";
    Evo.TogglePickRayOp();
    EXPECT_TRUE(circles().empty());
    Evo.TogglePickRayOp();
    QTest::mouseMove(&View, QPoint(60, 60));
    EXPECT_EQ(circles().size(), 1U) << "and comes back";
}

TEST_F(PickRayTest, AClickSendsARay)
{
    Evo.TogglePickRayOp();
    HPS::CameraKit before, after;
    View.View().ShowCamera(before);
    for (Qt::KeyboardModifiers const held : {Qt::NoModifier, Qt::ControlModifier}) {
        Heard.Rays.clear();
        QTest::mousePress(&View, Qt::LeftButton, held, QPoint(60, 100));
        QTest::mouseMove(&View, QPoint(90, 100));
        QTest::mouseRelease(&View, Qt::LeftButton, held, QPoint(90, 100));
        ASSERT_EQ(Heard.Rays.size(), 1U);
        ZELVizCore::Ray const& ray = Heard.Rays[0];
        EXPECT_NEAR(ray.direction[2], -1, 1e-5);
        EXPECT_NEAR(ray.origin[0], worldX(60), 1e-4);
        EXPECT_NEAR(ray.aperture, 4 * Across / 200, 1e-5);
        // It would have started among the model.
        EXPECT_NEAR(ray.origin[2], 2 * View.GetGeometryRadius() - 1, 1e-4);
    }
    View.View().ShowCamera(after);
    EXPECT_TRUE(before == after) << "the press goes no further than the ray";
    EXPECT_TRUE(Document.Told.empty());
    QTest::mouseClick(&View, Qt::RightButton, {}, QPoint(60, 100));
    EXPECT_EQ(Heard.Rays.size(), 1U) << "only the left button makes rays";
}

TEST_F(PickRayTest, ARayFromBehindTheModelStartsBeforeIt)
{
    // Behind the model by twenty, looking on.
    float position[] = {0, 0, -10}, target[] = {0, 0, -20}, up[] = {0, 1, 0};
    View.GetCamera()->SetCamera(position, target, up);
    Evo.TogglePickRayOp();
    QTest::mousePress(&View, Qt::LeftButton, {}, QPoint(100, 100));
    QTest::mouseRelease(&View, Qt::LeftButton, {}, QPoint(100, 100));
    ASSERT_EQ(Heard.Rays.size(), 1U);
    EXPECT_NEAR(Heard.Rays[0].origin[2], 20, 1e-3);
    EXPECT_NEAR(Heard.Rays[0].direction[2], -1, 1e-5);
}

TEST_F(ViewTest, RaysNeedSomebodyToHandThemOn)
{
    EXPECT_THROW(View.NotifyPick({}), std::logic_error);
    View3DEvo evo(&View);
    EXPECT_FALSE(View.NotifyPick({})) << "there is an adaptor now, and nobody behind it";
}

/// A body of one face, one edge and one vertex at the upper border of the window, left; right of it a mesh
/// without ids of its own before a face. 50 pixels a unit.
class PickingTest : public ViewTest
{
protected:
    PickingTest()
    {
        Document.Structure.SetPID(L"product");
        Document.SceneRenderer.BuildSceneGraphBrep(&Document.Structure);
        Root = Document.SceneRenderer.GetRootKey();
        Root.GetVisibilityControl().SetMarkers(true).SetLines(true);
        HPS::SegmentKey body = Root.Subsegment("body");
        Face = body.InsertShell(square(-2, 0), {4, 0, 1, 2, 3});
        ZELSegmentTagger::Tag(Face, 4ULL, ZELSegmentTagger::TAG_FACE);
        Edge = body.InsertLine({-2, 1.6F, 0}, {0, 1.6F, 0});
        ZELSegmentTagger::Tag(Edge, 5ULL, ZELSegmentTagger::TAG_EDGE);
        Vertex = body.InsertMarker({-1, 1.6F, 0});
        ZELSegmentTagger::Tag(Vertex, 6ULL, ZELSegmentTagger::TAG_VERTEX);
        Mesh = Root.Subsegment("mesh");
        ZELSegmentTagger::Tag(Mesh, 33ULL, ZELSegmentTagger::TAG_VISU_GEOMETRY);
        Mesh.Subsegment("colour").InsertShell(square(0.5F, 1.5F, -1), {4, 0, 1, 2, 3});
        HPS::ShellKey before = body.InsertShell(square(0.5F, 1.5F, 1), {4, 0, 1, 2, 3});
        ZELSegmentTagger::Tag(before, 7ULL, ZELSegmentTagger::TAG_FACE);
        View.Update(MoraCore::UpdateType::Default);
    }
    static std::vector<HPS::Point> square(float left, float right, float z = 0)
    {
        return {{left, 1.2F, z}, {right, 1.2F, z}, {right, 2, z}, {left, 2, z}};
    }

    HPS::SegmentKey Root, Mesh;
    HPS::ShellKey Face;
    HPS::LineKey Edge;
    HPS::MarkerKey Vertex;
};

TEST_F(PickingTest, VerticesBeforeEdgesBeforeFacesAndMeshesBeforeAll)
{
    struct {
        char const* what;
        QPoint at;
        HPS::Key picked;
    } const cases[] = {{"vertex", {50, 20}, Vertex},
                       {"edge", {20, 20}, Edge},
                       {"edge beside the place", {20, 23}, Edge},
                       {"face", {20, 35}, Face},
                       {"mesh behind a face", {150, 20}, Mesh}};
    for (auto const& [what, at, picked] : cases) {
        SCOPED_TRACE(what);
        HPS::KeyPath path;
        ASSERT_TRUE(View.PickVisual(at.x(), at.y(), path));
        EXPECT_EQ(path.Front(), picked);
        EXPECT_EQ(path.Back(), HPS::Key(Root));
        for (HPS::Key const& key : path) EXPECT_TRUE(key.Type() != HPS::Type::None);

        ZELVizCore::Ray ray;
        ray.origin[0] = static_cast<float>(at.x() + 0.5) / 50 - 2;
        ray.origin[1] = 2 - static_cast<float>(at.y() + 0.5) / 50;
        HPS::KeyPath again;
        ASSERT_TRUE(View.PickVisual(ray, again));
        EXPECT_EQ(again, path);
    }
    HPS::KeyPath none;
    EXPECT_FALSE(View.PickVisual(100, 190, none)) << "nothing there";
    EXPECT_FALSE(View.PickVisual(50, 100, none)) << "not of the document's scene";
    EXPECT_TRUE(none.Empty());
}

TEST_F(PickingTest, PointsOnTheModel)
{
    float x = 7, y = 8, z = 9;
    EXPECT_FALSE(View.PickPointOnModel(100, 190, x, y, z));
    EXPECT_EQ(std::vector({x, y, z}), std::vector({7.0F, 8.0F, 9.0F}));
    ASSERT_TRUE(View.PickPointOnModel(20, 34, x, y, z));
    constexpr float square = 4.5F / 50;
    EXPECT_NEAR(x, -1.6F, square);
    EXPECT_NEAR(y, 1.32F, square);
    EXPECT_NEAR(z, 0, 1e-5);
    ZELPickRayOperator::_aperture = 40;
    EXPECT_FALSE(View.PickPointOnModel(100, 190, x, y, z)) << "the square is not that of the rays";
    ZELPickRayOperator::_aperture = 4;
}

} // namespace
} // namespace ZelVizBase
