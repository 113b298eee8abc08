// Handles, the tree of segments, includes, search and flush, user data.
#include "structure.h"
#include "support.h"

using namespace HPS;

namespace
{

using Structure = Scene;

std::vector<std::string> names(SegmentKey const& segment)
{
    SegmentKeyArray children;
    segment.ShowSubsegments(children);
    std::vector<std::string> all;
    for (auto const& child : children) all.push_back(child.Name().Str());
    return all;
}

TEST_F(Structure, SubsegmentsAreFoundByNameAndMadeOnDemand)
{
    EXPECT_TRUE(root.Subsegment("a", false).Empty());
    auto const a = root.Subsegment("a");
    EXPECT_EQ(root.Subsegment("a"), a);
    EXPECT_EQ(root.Subsegment("a", false), a);
    EXPECT_NE(root.Subsegment(""), root.Subsegment(""));
    EXPECT_TRUE(root.Subsegment("", false).Empty());
    EXPECT_THAT(names(root), testing::ElementsAre("a", "", ""));
    EXPECT_EQ(a.Owner(), root);
    EXPECT_FALSE(root.HasOwner());
    EXPECT_TRUE(root.Owner().Empty());
}

TEST_F(Structure, ManyChildrenAreStillFoundAfterRenamingAndRemoving)
{
    for (int i = 0; i < 50; ++i) root.Subsegment(std::to_string(i).c_str());
    auto seven = root.Subsegment("7", false);
    seven.SetName("8");
    EXPECT_EQ(seven.Name(), "7") << "a sibling has that name";
    seven.SetName("seven");
    EXPECT_EQ(root.Subsegment("seven", false), seven);
    EXPECT_TRUE(root.Subsegment("7", false).Empty());
    for (int i = 0; i < 50; ++i) root.Subsegment(std::to_string(i).c_str()).Delete();
    EXPECT_THAT(names(root), testing::ElementsAre("seven"));
    EXPECT_EQ(root.Subsegment("seven", false), seven);
}

TEST_F(Structure, StaleHandlesAreHarmless)
{
    auto segment = root.Subsegment("gone"), child = segment.Subsegment("child");
    auto shell = insertTriangle(child);
    auto const copy = segment;
    segment.Delete();
    for (Key const& key : {Key(segment), Key(copy), Key(child), Key(shell)}) {
        EXPECT_EQ(key.Type(), HPS::Type::None);
        EXPECT_TRUE(key.Empty() && key.Owner().Empty() && key.Name().Empty());
        EXPECT_FALSE(key.HasType(HPS::Type::Key));
    }
    root.Subsegment("takes the slot");
    EXPECT_TRUE(copy.Empty());
    segment.Delete();
    EXPECT_TRUE(segment.Subsegment("x").Empty());
    EXPECT_TRUE(insertTriangle(segment).Empty());
    EXPECT_TRUE(segment.IncludeSegment(root).Empty() && root.IncludeSegment(segment).Empty());
    segment.SetModellingMatrix(MatrixKit()).SetCondition("c").SetMaterialPalette("p").Flush();
    segment.GetVisibilityControl().SetFaces(false);
    segment.GetPortfolioControl().Push(PortfolioKey());
    segment.SetUserData(0, {1});
    EXPECT_EQ(segment.ShowUserDataCount(), 0u);
    VisibilityKit kit;
    EXPECT_FALSE(segment.ShowVisibility(kit));
    EXPECT_TRUE(segment.GetStyleControl().PushNamed("x").Empty());
    ShellKit shellKit;
    EXPECT_FALSE(shell.Show(shellKit) || shell.Consume(shellKit));
    EXPECT_TRUE(Key().Empty());
    EXPECT_EQ(Key(), Key());
}

TEST_F(Structure, TypesAndFamilies)
{
    auto const shell = insertTriangle(root);
    EXPECT_EQ(static_cast<unsigned>(shell.Type()), 0x10100012u);
    EXPECT_TRUE(shell.HasType(HPS::Type::GeometryKey) && shell.HasType(HPS::Type::Key));
    EXPECT_FALSE(shell.HasType(HPS::Type::SegmentKey) || shell.HasType(HPS::Type::LineKey));
    EXPECT_TRUE(isOfType(HPS::Type::ApplicationWindowKey, HPS::Type::SegmentKey));
    EXPECT_FALSE(isOfType(HPS::Type::SegmentKey, HPS::Type::WindowKey));
    EXPECT_FALSE(isOfType(HPS::Type::ShellKey, HPS::Type::IncludeKey));
    EXPECT_TRUE(LineKey(shell).Empty());
    EXPECT_EQ(ShellKey(Key(shell)), shell);
    EXPECT_TRUE(SegmentKey(Key(shell)).Empty());
}

TEST_F(Structure, AnIncludeThatWouldCloseACircleIsRefused)
{
    auto a = root.Subsegment("a"), b = root.Subsegment("b"), deep = b.Subsegment("deep");
    EXPECT_TRUE(a.IncludeSegment(a).Empty());
    EXPECT_TRUE(a.IncludeSegment(root).Empty()) << "its owner";
    EXPECT_FALSE(a.IncludeSegment(b).Empty());
    EXPECT_TRUE(b.IncludeSegment(a).Empty());
    EXPECT_TRUE(deep.IncludeSegment(a).Empty()) << "by way of an include";
    EXPECT_FALSE(a.MoveTo(deep));
    EXPECT_FALSE(root.Subsegment("c").IncludeSegment(b).Empty()) << "shared is no circle";
    IncludeKeyArray includes;
    EXPECT_FALSE(b.ShowIncludes(includes));
    EXPECT_TRUE(b.ShowIncluders(includes));
    EXPECT_EQ(includes.size(), 2u);
}

TEST_F(Structure, DeletingASegmentTakesItsIncludesAlong)
{
    auto shared = root.Subsegment("shared"), user = root.Subsegment("user");
    auto const include = user.IncludeSegment(shared);
    EXPECT_EQ(include.GetTarget(), shared);
    EXPECT_EQ(include.Owner(), user);
    shared.Delete();
    EXPECT_TRUE(include.Empty());
    IncludeKeyArray includes;
    EXPECT_FALSE(user.ShowIncludes(includes));

    auto second = root.Subsegment("second");
    user.IncludeSegment(second);
    user.Delete();
    EXPECT_FALSE(second.ShowIncluders(includes));
    EXPECT_FALSE(second.Empty());
}

TEST_F(Structure, DeepTreesAreDeletedAndSearched)
{
    auto segment = root;
    for (int i = 0; i < 200'000; ++i) segment = segment.Subsegment();
    insertTriangle(segment);
    SearchResults results;
    EXPECT_EQ(root.Find(Search::Type::Shell, Search::Space::Subsegments, results), 1u);
    SimpleSphere sphere;
    SimpleCuboid box;
    EXPECT_TRUE(root.GetBoundingControl().ShowVolume(sphere, box));
    root.Flush();
    EXPECT_TRUE(segment.Empty());
}

TEST_F(Structure, FindLooksInOneSegmentOrInAll)
{
    auto child = root.Subsegment("child"), shared = child.Subsegment("shared");
    auto const include = root.IncludeSegment(shared);
    auto const marker = root.InsertMarker({1, 2, 3});
    auto const shell = insertTriangle(shared);
    SearchResults results;
    EXPECT_EQ(root.Find(Search::Type::Shell, Search::Space::SegmentOnly, results), 0u);
    EXPECT_FALSE(results.GetIterator().IsValid());
    ASSERT_EQ(root.Find(Search::Type::Shell, Search::Space::Subsegments, results), 1u);
    EXPECT_EQ(results.GetIterator().GetItem(), shell);
    EXPECT_EQ(root.Find(static_cast<Search::Type>(69), Search::Space::SegmentOnly, results), 1u);
    EXPECT_EQ(root.Find(Search::Type::Subsegments, Search::Space::Subsegments, results), 2u);
    ASSERT_EQ(root.Find(static_cast<Search::Type>(68), static_cast<Search::Space>(0), results), 1u);
    EXPECT_EQ(results.GetIterator().GetItem(), include);
    EXPECT_EQ(root.Find(Search::Type::Geometry, Search::Space::Subsegments, results), 2u);

    ASSERT_EQ(root.Find({Search::Type::Marker, Search::Type::Geometry}, Search::Space::Subsegments, results),
              2u);
    auto at = results.GetIterator();
    EXPECT_EQ(at.GetItem(), marker);
    EXPECT_THAT(at.GetResultTypes(), testing::ElementsAre(Search::Type::Marker, Search::Type::Geometry));
    at.Next();
    EXPECT_THAT(at.GetResultTypes(), testing::ElementsAre(Search::Type::Geometry));
    at.Next();
    EXPECT_FALSE(at.IsValid());
    EXPECT_TRUE(at.GetItem().Empty());
}

TEST_F(Structure, FlushRemovesWhatItNames)
{
    auto child = root.Subsegment("child");
    auto const marker = root.InsertMarker(Point());
    auto const shell = insertTriangle(root), below = insertTriangle(child);
    root.GetVisibilityControl().SetFaces(false);
    root.Flush(Search::Type::Shell);
    EXPECT_TRUE(shell.Empty() && !marker.Empty() && !below.Empty());
    root.Flush(static_cast<Search::Type>(0x10000000), static_cast<Search::Space>(0));
    VisibilityKit kit;
    EXPECT_TRUE(marker.Empty() && !child.Empty() && root.ShowVisibility(kit));
    root.Flush(Search::Type::Geometry, Search::Space::Subsegments);
    EXPECT_TRUE(below.Empty() && !child.Empty());
}

TEST_F(Structure, FlushOfEverythingLeavesTheBareSegment)
{
    auto segment = root.Subsegment("segment"), child = segment.Subsegment("child"),
         user = root.Subsegment("user");
    auto const includer = user.IncludeSegment(segment),
               include = segment.IncludeSegment(root.Subsegment("x"));
    auto const style = segment.GetStyleControl().PushNamed("s");
    segment.SetCondition("c").SetMaterialPalette("p").SetModellingMatrix(MatrixKit().Scale(2, 2, 2));
    segment.GetVisibilityControl().SetFaces(false);
    segment.SetUserData(1, {2});
    segment.Flush(static_cast<Search::Type>(0xFFFFFF), static_cast<Search::Space>(0));
    EXPECT_TRUE(child.Empty() && include.Empty() && style.Empty());
    EXPECT_FALSE(includer.Empty()) << "it belongs to the user";
    EXPECT_EQ(segment.Name(), "segment");
    VisibilityKit kit;
    MatrixKit matrix;
    UTF8Array conditions;
    UTF8 palette;
    EXPECT_FALSE(segment.ShowVisibility(kit) || segment.ShowModellingMatrix(matrix) ||
                 segment.ShowConditions(conditions) || segment.ShowMaterialPalette(palette));
    EXPECT_EQ(segment.ShowUserDataCount(), 0u);
}

TEST_F(Structure, UserDataIsKeptInOrderOfTheIndex)
{
    Key keys[] = {root.Subsegment("s"), root.InsertMarker(Point())};
    for (auto& key : keys) {
        key.SetUserData(7, {1, 2, 3}).SetUserData(-1, 0, nullptr).SetUserData(3, {9}).SetUserData(7, {4});
        IntPtrTArray indices;
        ByteArrayArray data;
        ASSERT_TRUE(key.ShowUserData(indices, data));
        EXPECT_THAT(indices, testing::ElementsAre(-1, 3, 7));
        EXPECT_THAT(data, testing::ElementsAre(ByteArray{}, ByteArray{9}, ByteArray{4}));
        key.UnsetUserData(3);
        ByteArray bytes{5};
        EXPECT_FALSE(key.ShowUserData(3, bytes));
        EXPECT_THAT(bytes, testing::ElementsAre(5));
        EXPECT_EQ(key.ShowUserDataCount(), 2u);
        EXPECT_EQ(key.UnsetAllUserData().ShowUserDataCount(), 0u);
    }
    EXPECT_EQ(Database::CreatePortfolio().SetUserData(0, {1}).ShowUserDataCount(), 0u);
}

TEST_F(Structure, MarksTellWhatWasTouchedOncePerReading)
{
    using namespace scene;
    ChangeCursor cursor;
    std::vector<ChangeMark> marks;
    EXPECT_FALSE(cursor.read(marks)) << "a new consumer has seen nothing";
    EXPECT_TRUE(cursor.read(marks) && marks.empty());

    auto child = root.Subsegment("child");
    child.GetModellingMatrixControl().Translate(1, 0, 0);
    child.GetVisibilityControl().SetFaces(false).SetLines(false);
    ASSERT_TRUE(cursor.read(marks));
    ASSERT_EQ(marks.size(), 2u);
    EXPECT_EQ(marks[0].slot, root.Index().slot);
    EXPECT_EQ(marks[0].changes, Change::Structure);
    EXPECT_EQ(marks[1].slot, child.Index().slot);
    EXPECT_EQ(marks[1].changes, Change::Matrix | Change::Attributes);

    ChangeCursor late;
    late.read(marks);
    child.GetVisibilityControl().SetFaces(true);
    ASSERT_TRUE(cursor.read(marks));
    EXPECT_EQ(marks.size(), 1u);
    child.GetVisibilityControl().SetFaces(false);
    ASSERT_TRUE(late.read(marks));
    EXPECT_GE(marks.size(), 1u) << "who is behind misses nothing";
    ASSERT_TRUE(cursor.read(marks));
    EXPECT_EQ(marks.size(), 1u) << "what was read does not join with what comes after";

    auto shell = insertTriangle(child);
    cursor.read(marks);
    ShellKit kit;
    shell.Show(kit);
    shell.Consume(kit);
    ASSERT_TRUE(cursor.read(marks));
    ASSERT_EQ(marks.size(), 1u);
    EXPECT_EQ(marks[0].slot, shell.Index().slot);
    EXPECT_EQ(marks[0].changes, Change::Geometry);
    shell.Delete();
    ASSERT_TRUE(cursor.read(marks));
    EXPECT_THAT(marks, testing::Contains(testing::Truly([&](ChangeMark const& mark) {
                    return mark.slot == shell.Index().slot && has(mark.changes, Change::Removed);
                })));
}

TEST_F(Structure, AConsumerTooFarBehindStartsAfresh)
{
    using namespace scene;
    ChangeCursor cursor;
    std::vector<ChangeMark> marks;
    cursor.read(marks);
    for (std::uint32_t slot = 1; slot < 3'000'000; ++slot) store().changes.mark(slot, Change::Name);
    EXPECT_FALSE(cursor.read(marks));
    EXPECT_TRUE(cursor.read(marks));
    root.Subsegment("x");
    EXPECT_TRUE(cursor.read(marks));
    EXPECT_EQ(marks.size(), 1u);
}

TEST(KeyPaths, LeafFirst)
{
    auto a = Database::CreateRootSegment(), b = a.Subsegment("b"), c = b.Subsegment("c");
    KeyPath path;
    path.Append(c).Append(b).PushBack(a);
    EXPECT_EQ(path.Front(), c);
    EXPECT_EQ(path.Back(), a);
    EXPECT_EQ(KeyPath(path).Reverse().Front(), a);
    EXPECT_EQ(path.PopFront().Size(), 2u);
    EXPECT_EQ(path.PushFront(c).At(1), b);
    EXPECT_TRUE(path.At(3).Empty());
    EXPECT_EQ(KeyPath().PopFront().PopBack().Size(), 0u);
    EXPECT_EQ(path.Append(path).Size(), 6u);
    a.Delete();
}

} // namespace
