// A draw list that followed edits has to be the one that is made of the scene as it is.
#include "Device.h"
#include "SceneCompiler.h"
#include <cstring>
#include <gtest/gtest.h>
#include <hps/Database.h>
#include <hps/SegmentKey.h>
#include <hps/StyleKey.h>
#include <random>
#include <tuple>

namespace HPS
{
namespace
{

using render::DrawList;
using render::SceneCompiler;

/// What a list draws, in an order that does not depend on how it came about.
std::vector<std::tuple<std::string, std::string>> contentsOf(DrawList const& list)
{
    std::vector<std::tuple<std::string, std::string>> contents;
    auto bytes = [](auto const& value) {
        return std::string(reinterpret_cast<char const*>(&value), sizeof value);
    };
    for (std::size_t i = 0; i < list.records.size(); ++i) {
        render::Record const& r = list.records[i];
        if (r.gone()) continue;
        std::string record = bytes(r.range.firstIndex) + bytes(r.range.indexCount) +
                             bytes(r.range.baseVertex) + bytes(r.world) + bytes(r.pipeline.primitive) +
                             bytes(r.pipeline.transparent) + bytes(r.pipeline.mirrored) +
                             bytes(r.pipeline.closed) + bytes(r.pipeline.displacement);
        render::Instance instance = list.instances[i];
        instance.material = 0; // rows are numbered as they come
        contents.emplace_back(std::move(record), bytes(instance));
    }
    std::sort(contents.begin(), contents.end());
    return contents;
}

/// Every record that is not gone lies in exactly one run of one group of its pipeline, within its box.
void expectSoundGroups(DrawList const& list)
{
    for (render::RecordGroup const& a : list.groups)
        for (render::RecordGroup const& b : list.groups)
            EXPECT_EQ(a.pipeline < b.pipeline,
                      list.records[a.first].pipeline < list.records[b.first].pipeline);
    std::vector<int> seen(list.records.size());
    for (render::RecordGroup const& group : list.groups)
        for (std::uint32_t r = 0; r < group.runs; ++r) {
            render::RecordRun const& run = list.runs[group.first + r];
            for (std::uint32_t i = run.first; i < run.first + run.count; ++i) {
                render::Record const& record = list.records[i];
                ++seen[i];
                EXPECT_EQ(record.pipeline, list.records[group.first].pipeline);
                EXPECT_EQ(record.range.baseVertex, list.records[run.first].range.baseVertex);
                render::Box box = group.box;
                box.add(record.world);
                EXPECT_EQ(box.low, group.box.low);
                EXPECT_EQ(box.high, group.box.high);
                EXPECT_LE(group.smallest, float(record.world.diagonal()));
            }
        }
    for (std::size_t i = 0; i < seen.size(); ++i) EXPECT_EQ(seen[i], list.records[i].gone() ? 0 : 1) << i;
}

class PatchedList : public testing::TestWithParam<unsigned>
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(render::Device::instance().makeCurrent());
        root = Database::CreateRootSegment();
        library = Database::CreateRootSegment();
        style = Database::CreateRootSegment();
        style.GetVisibilityControl().SetFaces(false);
        segments = {root};
        for (int i = 0; i < 4; ++i) {
            parts.push_back(library.Subsegment("part" + std::to_string(i)));
            insertSomething(parts.back());
        }
        parts[3].IncludeSegment(parts[0]); // a part in a part
        for (int i = 0; i < 60; ++i) edit();
        for (int i = 0; i < 40; ++i) at(segments).IncludeSegment(at(parts));
    }
    void TearDown() override
    {
        for (SegmentKey segment : {root, library, style}) segment.Delete();
    }

    int below(int n) { return int(random() % unsigned(n)); }
    float number() { return float(below(2001) - 1000) / 500.0f; }
    template <class T> T& at(std::vector<T>& all) { return all[std::size_t(below(int(all.size())))]; }
    SegmentKey anySegment() { return below(4) == 0 ? at(parts) : at(segments); }

    void insertSomething(SegmentKey segment)
    {
        float const x = number(), y = number();
        switch (below(4)) {
        case 0:
            geometry.push_back(segment.InsertLine({x, y, 0}, {y, x, 1}));
            break;
        case 1:
            geometry.push_back(segment.InsertMarker({x, y, 0}));
            break;
        default:
            geometry.push_back(segment.InsertShell(
                {{x, y, 0}, {x + 1, y, 0}, {x + 1, y + 1, 1}, {x, y + 1, 0}}, {4, 0, 1, 2, 3}));
        }
    }

    void edit()
    {
        SegmentKey segment = anySegment();
        switch (below(16)) {
        case 0:
            segment.GetMaterialMappingControl().SetFaceColor(
                RGBAColor(0.5f, 0.1f * float(below(10)), 0, below(3) == 0 ? 0.5f : 1.0f));
            break;
        case 1:
            segment.GetVisibilityControl().SetFaces(below(3) != 0).SetEdges(below(2) != 0);
            break;
        case 2:
            segment.GetModellingMatrixControl().Translate(number(), number(), number());
            break;
        case 3:
            segment.GetModellingMatrixControl()
                .Scale(below(2) == 0 ? -1 : 1, 1, 1)
                .Rotate(0, 0, 10.0 * number());
            break;
        case 4:
        case 5:
            segments.push_back(segment.Subsegment());
            insertSomething(segments.back());
            break;
        case 6:
            insertSomething(segment);
            break;
        case 7:
            if (!geometry.empty()) at(geometry).Delete();
            break;
        case 8:
            includes.push_back(at(segments).IncludeSegment(at(parts)));
            break;
        case 9:
            if (!includes.empty()) at(includes).Delete();
            break;
        case 10:
            if (segments.size() > 8 && below(3) == 0) {
                SegmentKey& gone = segments[1 + std::size_t(below(int(segments.size()) - 1))];
                gone.Delete();
            }
            break;
        case 11:
            segment.GetStyleControl().PushSegment(style, ConditionalExpression("hidden"));
            break;
        case 12:
            if (below(2) == 0)
                segment.SetCondition("hidden");
            else
                segment.UnsetConditions();
            break;
        case 13:
            style.GetMaterialMappingControl().SetLineColor(RGBAColor(0.1f * float(below(10)), 0, 0));
            break;
        case 14:
            segment.MoveTo(at(segments));
            break;
        case 15:
            segment.SetPriority(below(5));
            root.SetCamera(CameraKit::GetDefault().SetPosition({number(), number(), 5}));
            break;
        }
    }

    std::mt19937 random{GetParam()};
    SegmentKey root, library, style;
    std::vector<SegmentKey> segments, parts;
    std::vector<GeometryKey> geometry;
    std::vector<IncludeKey> includes;
};

} // namespace

TEST_P(PatchedList, equalsOneMadeFromScratch)
{
    SceneCompiler patched;
    std::vector<KeyIndex> const path{root.Index()};
    patched.update(path, false);
    int followed = 0;
    for (int round = 0; round < 60; ++round) {
        int const edits = 1 + below(round % 10 == 9 ? 30 : 3);
        for (int i = 0; i < edits; ++i) edit();
        followed += patched.update(path, false).listMade ? 0 : 1;
        SceneCompiler fresh;
        fresh.update(path, true);
        ASSERT_EQ(contentsOf(patched.list()), contentsOf(fresh.list())) << "round " << round;
        EXPECT_EQ(patched.scene().lights.distant.size(), fresh.scene().lights.distant.size());
        EXPECT_EQ(patched.list().bounds.low, fresh.list().bounds.low);
        EXPECT_EQ(patched.list().bounds.high, fresh.list().bounds.high);
        expectSoundGroups(patched.list());
        ASSERT_EQ(patched.occurrences().size(), fresh.occurrences().size());
    }
    EXPECT_EQ(followed, 60) << "nothing of this calls for a list from scratch";
}
INSTANTIATE_TEST_SUITE_P(Seeds, PatchedList, testing::Range(0u, 12u));

namespace
{

/// 400 instances of one part, in a row of rows.
class Instances : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(render::Device::instance().makeCurrent());
        root = Database::CreateRootSegment();
        part = Database::CreateRootSegment();
        part.InsertShell({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {3, 0, 1, 2});
        part.GetVisibilityControl().SetEdges(false);
        for (int i = 0; i < 400; ++i) {
            places.push_back(root.Subsegment());
            places.back().IncludeSegment(part);
            places.back().GetModellingMatrixControl().Translate(i % 20, i / 20, 0);
        }
        compiler.update(path(), false);
    }
    void TearDown() override
    {
        root.Delete();
        part.Delete();
    }
    std::vector<KeyIndex> path() const { return {root.Index()}; }
    SceneCompiler::Result update() { return compiler.update(path(), false); }

    SegmentKey root, part;
    std::vector<SegmentKey> places;
    SceneCompiler compiler;
};

} // namespace

// What an edit costs, counted in the occurrences that it touches.
TEST_F(Instances, anEditTouchesItsOwnRecordsAlone)
{
    EXPECT_EQ(compiler.list().records.size(), 400u);
    root.SetCamera(CameraKit::GetDefault());
    EXPECT_LE(update().shownSegments, 1u); // the root itself
    EXPECT_FALSE(update().changed);

    places[7].GetMaterialMappingControl().SetFaceColor(RGBAColor(1, 0, 0));
    EXPECT_EQ(update().shownSegments, 2u); // the place and the part in it
    EXPECT_EQ(compiler.list().patches.size(), 1u);

    places[8].GetModellingMatrixControl().Translate(0, 0, 3);
    EXPECT_EQ(update().shownSegments, 2u);
    EXPECT_EQ(compiler.list().patches.size(), 2u);

    places[9].GetVisibilityControl().SetFaces(false);
    update();
    EXPECT_EQ(compiler.list().patches.size(), 2u);
    EXPECT_EQ(compiler.list().records.size(), 400u) << "a gap is left, nothing moves";

    places.push_back(root.Subsegment());
    places.back().IncludeSegment(part);
    auto const added = update();
    EXPECT_FALSE(added.listMade);
    EXPECT_EQ(compiler.list().records.size(), 401u);
    EXPECT_LE(added.shownSegments, 5u) << "the root, the place and the part, some twice";

    part.GetMaterialMappingControl().SetFaceColor(RGBAColor(0, 1, 0));
    EXPECT_EQ(update().shownSegments, 401u);
}

// A view may be shown for hours.
TEST_F(Instances, aCameraThatMovesLeavesNothingBehind)
{
    std::size_t most = 0;
    for (int i = 0; i < 30'000; ++i) {
        root.SetCamera(CameraKit::GetDefault().SetPosition({float(i), 0, 5}));
        update();
        most = std::max(most, compiler.stateCount());
    }
    EXPECT_LT(most, 10'000u);
}

} // namespace HPS
