// What cannot be done is refused as a whole, and the database's handlers of errors are told why.
#include "operation.h"
#include <functional>
#include <limits>

using namespace HPS;

namespace
{

constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();
constexpr float infinite = std::numeric_limits<float>::infinity();

struct Listener : EventHandler {
    std::vector<std::string> errors;
    Listener() { Database::GetEventDispatcher().Subscribe(*this, ErrorEvent().GetClassID()); }
    HandleResult Handle(Event const* event) override
    {
        errors.push_back(static_cast<ErrorEvent const*>(event)->message.Str());
        return HandleResult::Handled;
    }
};

struct Refusal {
    char const* what;
    std::function<void(Bench&)> attempt;
};

std::vector<Refusal> refusals()
{
    std::vector<Point> const triangle{{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
    auto const shell = [](std::vector<Point> const& points, std::vector<int> const& faces) {
        return [=](Bench& b) { EXPECT_TRUE(b.body.InsertShell(points, faces).Empty()); };
    };
    return {
        {"an index without a point", shell(triangle, {3, 0, 1, 3})},
        {"a negative index", shell(triangle, {3, 0, -1, 2})},
        {"a facelist that ends within a face", shell(triangle, {4, 0, 1, 2})},
        {"a face of no points", shell(triangle, {0})},
        {"the lowest count there is", shell(triangle, {std::numeric_limits<int>::min(), 0})},
        {"a point that is no number", shell({{0, notANumber, 0}, {1, 0, 0}, {0, 1, 0}}, {3, 0, 1, 2})},
        {"no points", shell({}, {})},
        {"more normals than points",
         [=](Bench& b) {
             ShellKit kit;
             kit.SetPoints(triangle).SetFacelist({3, 0, 1, 2});
             kit.SetVertexNormalsByRange(2, {{0, 0, 1}, {0, 0, 1}});
             EXPECT_TRUE(b.body.InsertShell(kit).Empty());
             EXPECT_FALSE(b.shell.Consume(kit));
         }},
        {"a grid of negative counts",
         [](Bench& b) {
             EXPECT_TRUE(
                 b.body.InsertGrid(Grid::Type::Quadrilateral, {}, {1, 0, 0}, {0, 1, 0}, -1, 2).Empty());
         }},
        {"a radius below zero",
         [](Bench& b) {
             EXPECT_TRUE(b.body.InsertSphere({0, 0, 0}, -1).Empty());
         }},
        {"a circle of includes", [](Bench& b) { EXPECT_TRUE(b.body.IncludeSegment(b.part).Empty()); }},
        {"an include of itself", [](Bench& b) { EXPECT_TRUE(b.body.IncludeSegment(b.body).Empty()); }},
        {"an include of what is not there",
         [](Bench& b) { EXPECT_TRUE(b.body.IncludeSegment(SegmentKey()).Empty()); }},
        {"a move below itself", [](Bench& b) { EXPECT_FALSE(b.part.MoveTo(b.body)); }},
        {"a name that is taken",
         [](Bench& b) {
             b.instance.SetName("other");
             EXPECT_EQ(b.instance.Name(), UTF8("instance"));
         }},
        {"a matrix of 17 elements",
         [](Bench& b) {
             b.body.GetModellingMatrixControl().SetElements(std::vector<float>(17, 1));
             MatrixKit matrix;
             EXPECT_FALSE(b.body.ShowModellingMatrix(matrix) && !(matrix == MatrixKit()));
         }},
        {"a matrix element that is not there",
         [](Bench&) {
             MatrixKit matrix;
             EXPECT_EQ(matrix.SetElement(16, 2), MatrixKit());
         }},
        {"a modelling matrix that is no number",
         [](Bench& b) {
             MatrixKit matrix;
             b.body.SetModellingMatrix(matrix.SetElement(3, infinite));
             EXPECT_FALSE(b.body.ShowModellingMatrix(matrix));
         }},
        {"a texture matrix that is no number",
         [](Bench& b) {
             MatrixKit matrix;
             b.body.SetTextureMatrix(matrix.SetElement(3, notANumber));
             EXPECT_FALSE(b.body.ShowTextureMatrix(matrix));
         }},
        {"a line weight that is no number",
         [](Bench& b) {
             LineAttributeKit kit;
             b.body.SetLineAttribute(kit.SetWeight(notANumber, Line::SizeUnits::Pixels));
             EXPECT_FALSE(b.body.ShowLineAttribute(kit));
         }},
        {"a camera at no place",
         [](Bench& b) {
             CameraKit kit;
             b.body.SetCamera(CameraKit::GetDefault());
             b.body.GetCameraControl().SetPosition({0, infinite, 0});
             EXPECT_TRUE(b.body.ShowCamera(kit));
             EXPECT_EQ(kit, CameraKit::GetDefault()) << "nothing of it is written";
         }},
        {"a colour that is no number",
         [](Bench& b) {
             MaterialMappingKit kit;
             b.body.GetMaterialMappingControl().SetFaceColor(RGBAColor(notANumber, 0, 0, 1));
             EXPECT_FALSE(b.body.ShowMaterialMapping(kit));
         }},
        {"more locks than states",
         [](Bench& b) {
             AttributeLockKit kit;
             b.body.GetAttributeLockControl().SetLock(
                 {AttributeLock::Type::Camera, AttributeLock::Type::Material}, std::vector<bool>{true});
             EXPECT_FALSE(b.body.ShowAttributeLock(kit));
         }},
        {"more indices of user data than bytes",
         [](Bench& b) {
             b.body.SetUserData(IntPtrTArray{1, 2}, ByteArrayArray{{1}});
             EXPECT_EQ(b.body.ShowUserDataCount(), 0u);
         }},
        {"user data from nowhere",
         [](Bench& b) {
             b.body.SetUserData(1, 5, nullptr);
             EXPECT_EQ(b.body.ShowUserDataCount(), 0u);
         }},
        {"more indices of a kit's user data than bytes",
         [](Bench&) {
             LineKit kit;
             kit.SetUserData(IntPtrTArray{1, 2}, ByteArrayArray{{1}});
             EXPECT_EQ(kit.ShowUserDataCount(), 0u);
         }},
        {"a style without a name",
         [](Bench& b) { EXPECT_TRUE(b.body.GetStyleControl().PushNamed("").Empty()); }},
        {"a style of a segment that is gone",
         [](Bench& b) { EXPECT_TRUE(b.body.GetStyleControl().PushSegment(SegmentKey()).Empty()); }},
        {"a definition without a name",
         [](Bench& b) { EXPECT_TRUE(b.portfolio.DefineGlyph("", GlyphKit::GetDefault("plus")).Empty()); }},
        {"a named style of a segment that is gone",
         [](Bench& b) { EXPECT_TRUE(b.portfolio.DefineNamedStyle("style", SegmentKey()).Empty()); }},
        {"a portfolio that is gone",
         [](Bench& b) {
             b.body.GetPortfolioControl().Push(PortfolioKey());
             EXPECT_EQ(b.body.GetPortfolioControl().GetCount(), 0u);
         }},
        {"a reference to a reference",
         [](Bench& b) { EXPECT_TRUE(b.body.ReferenceGeometry(b.body.ReferenceGeometry(b.shell)).Empty()); }},
    };
}

TEST(Refusals, AreToldAndLeaveNothingBehind)
{
    for (auto const& [what, attempt] : refusals()) {
        SCOPED_TRACE(what);
        Bench bench;
        Listener listener;
        attempt(bench);
        EXPECT_FALSE(listener.errors.empty()) << "an error is told";
        for (auto const& error : listener.errors) {
            EXPECT_GT(error.size(), 10u);
            EXPECT_EQ(error.find('\n'), std::string::npos) << error;
        }
        SimpleSphere sphere;
        SimpleCuboid box;
        EXPECT_TRUE(bench.part.GetBoundingControl().ShowVolume(sphere, box));
        EXPECT_EQ(box.max, Point(1, 1, 0)) << "the scene is as it was";
    }
}

TEST(Refusals, AreNoneWhereAWarningIsEnough)
{
    struct Warned : EventHandler {
        int count = 0;
        HandleResult Handle(Event const*) override { return ++count, HandleResult::Handled; }
    } warned;
    Bench bench;
    Database::GetEventDispatcher().Subscribe(warned, WarningEvent().GetClassID());
    auto const texture =
        bench.portfolio.DefineTexture("texture", ImageDefinition(), TextureOptionsKit::GetDefault());
    EXPECT_FALSE(texture.Empty());
    EXPECT_EQ(warned.count, 1);
}

TEST(Refusals, OfPlacesThatNoMemoryHasAreExceptions)
{
    ShellKit kit;
    auto const last = std::numeric_limits<std::size_t>::max();
    EXPECT_THROW(kit.SetVertexNormalsByRange(last, {{0, 0, 1}, {0, 0, 1}}), std::length_error);
    EXPECT_THROW(kit.SetVertexParametersByRange(last, {0, 0, 1, 1}, 2), std::length_error);
    EXPECT_EQ(kit, ShellKit());
}

// What is done on a key that is gone does nothing and needs no telling.
TEST(Refusals, OfStaleKeysAreSilent)
{
    Bench bench;
    auto stale = bench.top.Subsegment("stale");
    auto geometry = stale.InsertMarker({0, 0, 0});
    auto style = stale.GetStyleControl().PushNamed("style");
    auto include = stale.IncludeSegment(bench.part);
    stale.Delete();
    Listener listener;
    for (Key key : {Key(stale), Key(geometry), Key(style), Key(include)}) {
        EXPECT_EQ(key.Type(), Type::None);
        key.SetUserData(1, {1}).UnsetAllUserData();
        key.Delete();
        EXPECT_TRUE(key.Owner().Empty() && key.Name().Empty());
    }
    EXPECT_TRUE(stale.Subsegment("below").Empty());
    EXPECT_TRUE(stale.IncludeSegment(bench.part).Empty());
    EXPECT_TRUE(stale.InsertLine({0, 0, 0}, {1, 1, 1}).Empty());
    stale.SetPriority(1).SetCondition("x").SetModellingMatrix(MatrixKit()).Flush();
    stale.GetVisibilityControl().SetFaces(true);
    stale.GetStyleControl().PushNamed("style");
    SearchResults results;
    EXPECT_EQ(stale.Find(Search::Type::Everything, Search::Space::Subsegments, results), 0u);
    EXPECT_TRUE(include.GetTarget().Empty());
    EXPECT_THAT(listener.errors, testing::IsEmpty());
}

} // namespace
