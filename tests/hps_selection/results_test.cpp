#include "Stage.h"

namespace HPS
{
namespace
{

using testing::ElementsAre;

class Results : public Stage
{
protected:
    SegmentKey part = model.GetLibraryKey().Subsegment("part"), left = root.Subsegment("left"),
               right = root.Subsegment("right");
    ShellKey shell = addSquare(part, {0, 0, 0});
    IncludeKey leftInclude = left.IncludeSegment(part), rightInclude = right.IncludeSegment(part);
    Results() { right.SetModellingMatrix(MatrixKit().Translate(5, 0, 0)); }

    /// Which places results are at, by the third key of their paths.
    static KeyArray placesOf(SelectionResults const& results)
    {
        KeyArray places;
        for (auto at = results.GetIterator(); at.IsValid(); at.Next())
            if (KeyPath path; at.GetItem().ShowPath(path)) places.push_back(path.At(3));
        return places;
    }
};

TEST_F(Results, JoinAndPart)
{
    auto const a = atPoint(0, 0, everything()), b = atPoint(5, 0, everything());
    EXPECT_THAT(placesOf(SelectionResults(a).Union(b)), ElementsAre(left, right));
    EXPECT_THAT(placesOf(SelectionResults(a).Union(b).Union(a)), ElementsAre(left, right))
        << "each thing once";
    EXPECT_THAT(placesOf(SelectionResults(a).Union(b).Difference(a)), ElementsAre(right));
    EXPECT_THAT(placesOf(SelectionResults(b).Union(a).Intersect(a)), ElementsAre(left));
    EXPECT_TRUE(a.Contains(b.GetIterator().GetItem()) == false && a.Contains(a.GetIterator().GetItem()));
    SelectionResults all = a;
    EXPECT_TRUE(all.Difference(all).Empty());
    EXPECT_TRUE(SelectionResults(b).Reset().Empty());
}

TEST_F(Results, OfOneThingJoinTheirParts)
{
    auto const options = everything().SetLevel(Selection::Level::Subentity);
    ShellKey const pair = root.InsertShell({{4, 4, 0}, {5, 4, 0}, {5, 5, 0}, {4, 5, 0}, {6, 4, 0}, {6, 5, 0}},
                                           {4, 0, 1, 2, 3, 4, 1, 4, 5, 2});
    auto results = atPoint(4.5f, 4.5f, options);
    results.Union(atPoint(5.5f, 4.5f, options)).Union(atPoint(4.5f, 4.5f, options));
    EXPECT_THAT(keysOf(results), ElementsAre(pair));
    SizeTArray faces, from, to;
    EXPECT_TRUE(results.GetIterator().GetItem().ShowFaces(faces));
    EXPECT_THAT(faces, ElementsAre(0u, 1u));
    EXPECT_FALSE(results.GetIterator().GetItem().ShowEdges(from, to));
    EXPECT_FALSE(results.GetIterator().GetItem().ShowVertices(faces));
}

TEST_F(Results, EmptyItemsShowNothing)
{
    SelectionResults const none;
    Key key = shell;
    KeyPath path;
    Point position(1, 2, 3);
    EXPECT_FALSE(none.GetIterator().IsValid());
    EXPECT_FALSE(none.GetIterator().GetItem().ShowSelectedItem(key));
    EXPECT_FALSE(none.GetIterator().GetItem().ShowPath(path));
    EXPECT_FALSE(none.GetIterator().GetItem().ShowSelectionPosition(position));
    EXPECT_EQ(key, shell);
    EXPECT_EQ(position, Point(1, 2, 3));
}

TEST_F(Results, AreWhatHighlightsTake)
{
    HighlightControl highlights = canvas.GetWindowKey().GetHighlightControl();
    auto const results = atPoint(5, 0, everything());
    HighlightOptionsKit options;
    highlights.Highlight(results, options.SetStyleName("highlight_style"));
    KeyPathArray paths;
    ASSERT_TRUE(highlights.ShowHighlightedPaths(paths));
    EXPECT_THAT(paths, ElementsAre(pathOf(results)));
    highlights.Unhighlight(results, HighlightOptionsKit());
    EXPECT_FALSE(highlights.ShowHighlightedPaths(paths));
}

} // namespace
} // namespace HPS
