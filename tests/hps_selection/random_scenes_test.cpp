// Random scenes against the long way round: all in a square, and the nearest under a pixel.
#include "Exhaustive.h"
#include "Stage.h"
#include <random>

namespace HPS
{
namespace
{

struct Case {
    unsigned seed;
    Camera::Projection projection;
    bool cut;
};
void PrintTo(Case const& c, std::ostream* out)
{
    *out << "seed " << c.seed << (c.projection == Camera::Projection::Perspective ? " perspective" : "")
         << (c.cut ? " cut" : "");
}

class RandomScenes : public Stage, public testing::WithParamInterface<Case>
{
protected:
    std::mt19937 random{GetParam().seed};
    float number(float low, float high) { return std::uniform_real_distribution<float>(low, high)(random); }
    Point place(float size) { return {number(-size, size), number(-size, size), number(-size, size)}; }
    bool chance(double share) { return std::bernoulli_distribution(share)(random); }

    MatrixKit matrix()
    {
        MatrixKit m;
        double const size = number(0.3f, 1.5f);
        m.Scale(chance(0.2) ? -size : size, size, size)
            .Rotate(number(0, 360), number(0, 360), number(0, 360));
        Point const to = place(7);
        return m.Translate(to.x, to.y, to.z);
    }
    void addShell(SegmentKey segment)
    {
        // Enough triangles in some for a hierarchy of their own.
        int const triangles = chance(0.3) ? 300 : 12;
        std::vector<Point> points;
        std::vector<int> faces;
        for (int i = 0; i < triangles; ++i) {
            Point const at = place(2);
            int const first = int(points.size());
            for (int k = 0; k < 3; ++k)
                points.push_back(at + Vector(number(-1, 1), number(-1, 1), number(-1, 1)) * 0.5f);
            faces.insert(faces.end(), {3, first, first + 1, first + 2});
        }
        segment.InsertShell(points, faces);
    }
    void addContents(SegmentKey segment)
    {
        for (int i = 0; i < 3; ++i) {
            if (chance(0.7)) addShell(segment);
            if (chance(0.5)) {
                std::vector<Point> points;
                for (int k = 0; k < (chance(0.3) ? 80 : 5); ++k) points.push_back(place(2));
                segment.InsertLine(points);
            }
            if (chance(0.5)) segment.InsertMarker(place(2));
            if (chance(0.5)) addSquare(segment, place(1), 0.6f);
        }
        using enum Selectability::Value;
        if (chance(0.15)) segment.GetVisibilityControl().SetFaces(false);
        if (chance(0.15)) segment.GetVisibilityControl().SetEverything(chance(0.5));
        segment.GetVisibilityControl().SetEdges(false).SetVertices(false);
        if (chance(0.15)) segment.GetSelectabilityControl().SetFaces(chance(0.5) ? ForcedOn : Off);
        if (chance(0.15)) segment.GetSelectabilityControl().SetLines(chance(0.5) ? ForcedOn : Off);
    }
    void fill()
    {
        std::vector<SegmentKey> parts;
        SegmentKey library = model.GetLibraryKey();
        for (int i = 0; i < 6; ++i) {
            parts.push_back(library.Subsegment());
            addContents(parts.back());
            for (int k = 0; k < 2; ++k) {
                SegmentKey child = parts.back().Subsegment();
                addContents(child);
                child.SetModellingMatrix(matrix());
            }
            if (i > 0) parts.back().IncludeSegment(parts[std::size_t(i) - 1]);
        }
        for (int i = 0; i < 30; ++i) {
            SegmentKey instance = root.Subsegment();
            instance.SetModellingMatrix(matrix());
            instance.IncludeSegment(parts[std::size_t(i) % parts.size()]);
            if (chance(0.1)) instance.GetVisibilityControl().SetEverything(false);
        }
        view.GetSegmentKey().GetMarkerAttributeControl().SetSize(1, Marker::SizeUnits::Pixels);
        if (GetParam().cut) {
            root.InsertCuttingSection(Plane(1, 0.2f, 0.3f, -1));
            root.InsertCuttingSection(Plane(-0.1f, -1, 0.1f, -2));
        }
    }
    Exhaustive reference() const
    {
        CameraKit camera;
        view.ShowCamera(camera);
        return {SprocketPath(canvas, canvas.GetAttachedLayout(), view).GetKeyPath(), camera, pixels, pixels};
    }
    static std::set<KeyArray> paths(SelectionResults const& results)
    {
        std::set<KeyArray> all;
        for (auto at = results.GetIterator(); at.IsValid(); at.Next())
            if (KeyPath path; at.GetItem().ShowPath(path) && !all.insert(path.Keys()).second)
                ADD_FAILURE() << "one thing twice";
        return all;
    }
    void expectSame(std::set<KeyArray> const& found, Exhaustive::Answer const& answer, double x, double y)
    {
        for (KeyArray const& path : answer.certain)
            EXPECT_TRUE(found.contains(path))
                << "missed at " << x << ", " << y << " of " << answer.certain.size();
        for (KeyArray const& path : found)
            EXPECT_TRUE(answer.possible.contains(path)) << "made up at " << x << ", " << y;
    }
};

TEST_P(RandomScenes, AreSelectedAsTheyStand)
{
    fill();
    look({30, 40, 50}, GetParam().projection);
    for (int round = 0; round < 3; ++round) {
        Exhaustive const exact = reference();
        for (int i = 0; i < 150; ++i) {
            float const x = number(-10, 10), y = number(-10, 10), half = number(0.5f, i % 10 == 0 ? 40 : 6);
            double const px = (x + 10) * 10, py = (10 - y) * 10;
            float const proximity = i % 3 == 0 ? 2 : 0;
            // A square takes faces as they are and the rest with its proximity: both at once would need two.
            auto options = everything().SetProximity(proximity);
            auto inWindow = [](double at) { return std::clamp(at, 0.0, double(pixels)); };
            Exhaustive::Square const square{inWindow(px - half), inWindow(py - half), inWindow(px + half),
                                            inWindow(py + half)};
            auto const answer = exact.in(square), wide = exact.in(square.grown(proximity));
            expectSame(paths(around(x, y, half, options)),
                       {answer.certain, proximity > 0 ? wide.possible : answer.possible}, px, py);
            if (testing::Test::HasFailure()) return;
        }
        // Everything that follows changes must come to the same.
        for (SegmentKey part : {root.Subsegment(), root.Subsegment()}) {
            addContents(part);
            part.SetModellingMatrix(matrix());
        }
    }
}

TEST_P(RandomScenes, HaveOneNearestFace)
{
    fill();
    view.GetSegmentKey().GetSelectabilityControl().SetLines(false).SetMarkers(false);
    look({-40, 10, 40}, GetParam().projection);
    Exhaustive const exact = reference();
    int hits = 0;
    for (int i = 0; i < 500; ++i) {
        float const x = number(-10, 10), y = number(-10, 10);
        auto const results = atPoint(x, y, nearestFirst().SetRelatedLimit(0));
        auto const answer = exact.nearestAt((x + 10) * 10, (10 - y) * 10);
        if (results.Empty()) {
            EXPECT_TRUE(answer.certain.empty()) << x << ", " << y;
            continue;
        }
        ++hits;
        EXPECT_TRUE(answer.possible.contains(pathOf(results).Keys())) << x << ", " << y;
        Point pixel;
        Point const place = positionOf(results);
        ASSERT_TRUE(canvas.GetWindowKey().ConvertCoordinate(Coordinate::Space::World, place,
                                                            Coordinate::Space::Pixel, pixel));
        EXPECT_NEAR(pixel.x, (x + 10) * 10, 0.01);
        EXPECT_NEAR(pixel.y, (10 - y) * 10, 0.01);
        if (testing::Test::HasFailure()) return;
    }
    EXPECT_GT(hits, 50);
}

constexpr auto flat = Camera::Projection::Orthographic, deep = Camera::Projection::Perspective;
INSTANTIATE_TEST_SUITE_P(Seeds, RandomScenes,
                         testing::Values(Case{1, flat, false}, Case{2, deep, false}, Case{3, flat, true},
                                         Case{4, deep, true}, Case{5, deep, false}, Case{6, flat, false}));

} // namespace
} // namespace HPS
