// Selections follow what happens to the scene, and what stands in it more than once.
#include "Stage.h"

namespace HPS
{
namespace
{

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class Changes : public Stage
{
protected:
    KeyArray at(float x, float y) const { return keysOf(atPoint(x, y, nearestFirst())); }
    /// The corners themselves, not the segment.
    static void move(ShellKey shell, Vector const& by)
    {
        ShellKit kit;
        std::vector<Point> points;
        ASSERT_TRUE(shell.Show(kit) && kit.ShowPoints(points));
        for (Point& p : points) p = p + by;
        ASSERT_TRUE(shell.Consume(kit.SetPoints(points)));
    }
};

TEST_F(Changes, OfShapeAreSeen)
{
    ShellKey shell = addSquare(root, {0, 0, 0});
    EXPECT_THAT(at(0, 0), ElementsAre(shell));
    move(shell, {5, 0, 0});
    EXPECT_THAT(at(0, 0), IsEmpty());
    EXPECT_THAT(at(5, 0), ElementsAre(shell));
    shell.Delete();
    EXPECT_THAT(at(5, 0), IsEmpty());
}

TEST_F(Changes, OfStructureAreSeen)
{
    SegmentKey a = root.Subsegment("a"), b = root.Subsegment("b");
    b.SetModellingMatrix(MatrixKit().Translate(5, 0, 0));
    SegmentKey part = a.Subsegment("part");
    EXPECT_THAT(at(0, 0), IsEmpty());
    ShellKey const shell = addSquare(part, {0, 0, 0});
    EXPECT_THAT(at(0, 0), ElementsAre(shell));
    part.MoveTo(b);
    EXPECT_THAT(at(0, 0), IsEmpty());
    EXPECT_THAT(at(5, 0), ElementsAre(shell));
    IncludeKey include = a.IncludeSegment(part);
    EXPECT_THAT(at(0, 0), ElementsAre(shell));
    part.SetModellingMatrix(MatrixKit().Translate(0, 5, 0));
    EXPECT_THAT(at(0, 0), IsEmpty());
    EXPECT_THAT(at(0, 5), ElementsAre(shell));
    EXPECT_THAT(at(5, 5), ElementsAre(shell));
    include.Delete();
    EXPECT_THAT(at(0, 5), IsEmpty());
    b.Delete();
    EXPECT_THAT(at(5, 5), IsEmpty());
}

TEST_F(Changes, OfManyPlacesAreSeenOneByOne)
{
    SegmentKey part = model.GetLibraryKey().Subsegment();
    addSquare(part, {0, 0, 0}, 0.3f);
    std::vector<SegmentKey> places;
    for (int i = 0; i < 400; ++i) {
        places.push_back(root.Subsegment());
        places.back().IncludeSegment(part);
        places.back().SetModellingMatrix(MatrixKit().Translate(i % 20 - 9.5, i / 20 - 9.5, 0));
    }
    auto placeAt = [&](float x, float y) {
        KeyPath const path = pathOf(atPoint(x, y, nearestFirst()));
        return path.Size() > 3 ? path.At(3) : Key();
    };
    for (std::size_t i = 0; i < places.size(); i += 7)
        EXPECT_EQ(placeAt(float(i % 20) - 9.5f, float(i / 20) - 9.5f), places[i]) << i;
    places[210].SetModellingMatrix(MatrixKit().Translate(-9, -9, 0));
    places[30].Delete();
    EXPECT_EQ(placeAt(-9, -9), places[210]);
    EXPECT_EQ(placeAt(0.5f, 0.5f), Key());
    EXPECT_EQ(placeAt(0.5f, -8.5f), Key());
    for (std::size_t i = 1; i < places.size(); i += 7)
        EXPECT_EQ(placeAt(float(i % 20) - 9.5f, float(i / 20) - 9.5f), i == 211 ? places[211] : places[i])
            << i;
}

TEST_F(Changes, OfWhatIsReferredToAreSeen)
{
    ShellKey target = addSquare(model.GetLibraryKey().Subsegment(), {0, 0, 0});
    ReferenceKey const reference = root.ReferenceGeometry(target);
    EXPECT_THAT(at(0, 0), ElementsAre(reference));
    move(target, {5, 0, 0});
    EXPECT_THAT(at(5, 0), ElementsAre(reference));
    target.Delete();
    EXPECT_THAT(at(5, 0), IsEmpty());
}

TEST_F(Changes, OfStylesAndConditionsAreSeen)
{
    SegmentKey part = model.GetLibraryKey().Subsegment(), left = root.Subsegment(), right = root.Subsegment();
    ShellKey const shell = addSquare(part, {0, 0, 0});
    left.IncludeSegment(part);
    right.IncludeSegment(part);
    right.SetModellingMatrix(MatrixKit().Translate(5, 0, 0));
    PortfolioKey portfolio = Database::CreatePortfolio();
    SegmentKey source = Database::CreateRootSegment();
    source.GetVisibilityControl().SetEverything(false);
    portfolio.DefineNamedStyle("hidden", source);
    view.GetSegmentKey().GetPortfolioControl().Push(portfolio);
    part.GetStyleControl().PushNamed("hidden", "hide");
    EXPECT_THAT(at(0, 0), ElementsAre(shell));
    right.GetConditionControl().SetCondition("hide");
    EXPECT_THAT(at(0, 0), ElementsAre(shell));
    EXPECT_THAT(at(5, 0), IsEmpty());
    source.GetVisibilityControl().SetEverything(true);
    EXPECT_THAT(at(5, 0), ElementsAre(shell)) << "the style shows again";
    portfolio.Delete();
    source.Delete();
}

TEST_F(Changes, CutsTakeAwayWhatTheyHide)
{
    SegmentKey body = root.Subsegment(), beside = root.Subsegment();
    ShellKey const shell = addSquare(body, {0, 0, 0}, 4), other = addSquare(beside, {0, 0, -1}, 4);
    CuttingSectionKey section = body.InsertCuttingSection(Plane(1, 0, 0, 0));
    EXPECT_THAT(at(-2, 0), ElementsAre(shell, other));
    EXPECT_THAT(at(2, 0), ElementsAre(other)) << "only below the segment of the section";
    EXPECT_THAT(keysOf(around(2, 0, 15, nearestFirst())), ElementsAre(other));
    EXPECT_THAT(keysOf(around(2, 0, 25, nearestFirst())), ElementsAre(shell, other)) << "the rest reaches in";
    body.GetVisibilityControl().SetCuttingSections(false);
    EXPECT_THAT(at(2, 0), ElementsAre(shell, other));
    body.GetVisibilityControl().SetCuttingSections(true);
    // A corner is what lies before both planes.
    section.SetPlanes({Plane(1, 0, 0, 0), Plane(0, 1, 0, 0)});
    EXPECT_THAT(at(2, 2), ElementsAre(other));
    EXPECT_THAT(at(2, -2), ElementsAre(shell, other));
    EXPECT_THAT(at(-2, 2), ElementsAre(shell, other));
    EXPECT_THAT(keysOf(around(2, 2, 15, nearestFirst())), ElementsAre(other));
    // A line is found in the part that is left of it.
    LineKey const line = body.InsertLine({-3, 3, 1}, {3, 3, 1});
    auto const results = around(0, 3, 15, nearestFirst());
    EXPECT_EQ(keysOf(results).front(), line);
    EXPECT_LE(positionOf(results).x, 0);
    body.SetModellingMatrix(MatrixKit().Rotate(0, 0, 180));
    EXPECT_THAT(at(-2, -2), ElementsAre(other)) << "the section turns with its segment";
}

TEST_F(Changes, ASectionMayCutItsOwnSegmentAlone)
{
    SegmentKey body = root.Subsegment(), below = body.Subsegment();
    ShellKey const shell = addSquare(body, {0, 0, 0}, 4), inner = addSquare(below, {0, 0, -1}, 4);
    body.InsertCuttingSection(Plane(1, 0, 0, 0));
    EXPECT_THAT(at(2, 0), IsEmpty());
    body.GetCuttingSectionAttributeControl().SetCuttingLevel(CuttingSection::CuttingLevel::Local);
    EXPECT_THAT(at(2, 0), ElementsAre(inner));
    EXPECT_THAT(at(-2, 0), ElementsAre(shell, inner));
}

TEST_F(Changes, SubwindowsAreWindowsOfTheirOwn)
{
    ShellKey const behind = addSquare(root, {0, 0, 0}, 9);
    SegmentKey corner = view.GetSegmentKey().Subsegment();
    ShellKey const inside = addSquare(corner, {1, 0, 0}, 0.5f);
    corner.GetSubwindowControl().SetSubwindow({0, 1, 0, 1}, {0, 0, 0, 0}); // the upper right quarter
    CameraKit camera;
    camera.SetPosition({0, 0, 5}).SetTarget({0, 0, 0}).SetUpVector({0, 1, 0}).SetField(4, 4);
    corner.SetCamera(camera.SetProjection(Camera::Projection::Orthographic));
    // The middle of the quarter is at (5, 5); a unit of its own has 25 pixels.
    EXPECT_THAT(at(5 + 2.5f, 5), ElementsAre(inside, behind)) << "and what it covers behind it";
    EXPECT_THAT(at(5, 5), ElementsAre(behind));
    EXPECT_THAT(at(1, 0), ElementsAre(behind)) << "it stands nowhere else";
    corner.UnsetSubwindow();
    EXPECT_EQ(at(1, 0).size(), 2u) << "part of the view again";
}

TEST_F(Changes, ViewsInFrontComeFirst)
{
    ShellKey const near = addSquare(root, {0, 0, 5}, 2);
    View over = Factory::CreateView();
    Model other = Factory::CreateModel();
    over.AttachModel(other);
    ShellKey const far = addSquare(other.GetSegmentKey(), {0, 0, -5});
    CameraKit camera;
    view.ShowCamera(camera);
    over.SetCamera(camera);
    canvas.GetAttachedLayout().AttachViewFront(over);
    EXPECT_THAT(at(0, 0), ElementsAre(far, near));
    EXPECT_EQ(pathOf(atPoint(0, 0, nearestFirst())).Back(), canvas.GetWindowKey());
    canvas.GetAttachedLayout().DetachView(over);
    EXPECT_THAT(at(0, 0), ElementsAre(near));
    over.Delete();
    other.Delete();
}

TEST_F(Changes, DeepScenesCostMemoryNotStack)
{
    SegmentKey segment = root;
    for (int i = 0; i < 20'000; ++i) segment = segment.Subsegment();
    ShellKey const shell = addSquare(segment, {0, 0, 0});
    EXPECT_THAT(at(0, 0), ElementsAre(shell));
    EXPECT_EQ(pathOf(atPoint(0, 0, nearestFirst())).Front(), shell);
}

} // namespace
} // namespace HPS
