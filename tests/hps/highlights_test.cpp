#include "highlights.h"
#include "structure.h"
#include "support.h"
#include <hps/WindowKey.h>

using namespace HPS;
using namespace HPS::scene;

namespace
{

// A window that shows a part twice, as a viewer's assembly does.
class Highlighting : public testing::Test
{
protected:
    SegmentKey library = Database::CreateRootSegment();
    SegmentKey part = library.Subsegment("part"), face = part.Subsegment("face");
    ShellKey shell = face.InsertShell({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {3, 0, 1, 2});
    WindowKey window{SegmentKey(store().indexOf(createSegment(nullptr, {}, Type::ApplicationWindowKey)))};
    SegmentKey left = window.Subsegment("left"), right = window.Subsegment("right");
    IncludeKey leftPart = left.IncludeSegment(part), rightPart = right.IncludeSegment(part);
    KeyPath leftFace{KeyArray{shell, face, part, leftPart, left, window}};
    KeyPath rightFace{KeyArray{shell, face, part, rightPart, right, window}};
    HighlightControl control = window.GetHighlightControl();

    ~Highlighting() override
    {
        window.Delete();
        library.Delete();
    }

    static HighlightOptionsKit style(char const* name)
    {
        HighlightOptionsKit kit;
        kit.SetStyleName(name);
        return kit;
    }
    // The styles that hold at a place, the topmost last.
    std::vector<std::string> at(KeyPath const& path) const
    {
        std::vector<HighlightOptionsKit> options;
        control.ShowHighlight(path, options);
        std::vector<std::string> names;
        for (auto const& kit : options) {
            UTF8 name;
            kit.ShowStyleName(name);
            names.push_back(name.Str());
        }
        return names;
    }
    using Names = std::vector<std::string>;
};

TEST_F(Highlighting, OfAPathHoldsForThatPlaceAndAllBelowIt)
{
    control.Highlight(KeyPath(KeyArray{part, leftPart, left, window}), style("a"));
    EXPECT_EQ(at(leftFace), Names{"a"});
    EXPECT_EQ(at(KeyPath(KeyArray{part, leftPart, left, window})), Names{"a"});
    EXPECT_EQ(at(KeyPath(KeyArray{left, window})), Names{});
    EXPECT_EQ(at(rightFace), Names{});
}

TEST_F(Highlighting, OfAKeyHoldsWhereverItIsShown)
{
    control.Highlight(shell, style("a"));
    EXPECT_EQ(at(leftFace), Names{"a"});
    EXPECT_EQ(at(rightFace), Names{"a"});
}

TEST_F(Highlighting, APathMayLeaveKeysOutAndNameOneTwice)
{
    control.Highlight(KeyPath(KeyArray{shell, face, part, part, left}), style("a"));
    EXPECT_EQ(at(leftFace), Names{"a"});
    EXPECT_EQ(at(rightFace), Names{});
    control.UnhighlightEverything().Highlight(KeyPath(KeyArray{part, face, window}), style("a"));
    EXPECT_EQ(at(leftFace), Names{}) << "the keys stand in another order";
}

TEST_F(Highlighting, SeveralStylesGoOneByOneOrAll)
{
    control.Highlight(leftFace, style("a"), false).Highlight(leftFace, style("b"), false);
    control.Highlight(rightFace, style("b"), false);
    EXPECT_EQ(at(leftFace), (Names{"a", "b"}));
    control.Highlight(leftFace, style("a"), false);
    EXPECT_EQ(at(leftFace), (Names{"b", "a"})) << "the same once more goes to the top";
    control.Unhighlight(leftFace, style("b"));
    EXPECT_EQ(at(leftFace), Names{"a"});
    EXPECT_EQ(at(rightFace), Names{"b"});
    control.Highlight(leftFace, style("c"), true);
    EXPECT_EQ(at(leftFace), Names{"c"});
    EXPECT_EQ(at(rightFace), Names{}) << "the new one took the place of all others";
    control.Highlight(rightFace, style("d"), false).Unhighlight(style("c"));
    EXPECT_EQ(at(leftFace), Names{});
    EXPECT_EQ(at(rightFace), Names{"d"});
    control.UnhighlightEverything();
    EXPECT_EQ(at(rightFace), Names{});
}

TEST_F(Highlighting, SurvivesEditsAndGoesWithItsKeys)
{
    control.Highlight(leftFace, style("a"));
    ShellKit moved;
    moved.SetPoints({{5, 5, 5}, {6, 5, 5}, {5, 6, 5}}).SetFacelist({3, 0, 1, 2});
    EXPECT_TRUE(shell.Consume(moved));
    part.Subsegment("another").InsertMarker({0, 0, 0});
    face.SetModellingMatrix(MatrixKit().Translate(1, 2, 3));
    EXPECT_EQ(at(leftFace), Names{"a"});
    shell.Delete();
    KeyPathArray paths;
    EXPECT_FALSE(control.ShowHighlightedPaths(paths));
    auto const next = face.InsertShell({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {3, 0, 1, 2});
    EXPECT_EQ(at(KeyPath(KeyArray{next, face, part, leftPart, left, window})), Names{})
        << "what takes the slot is not highlighted";
}

TEST_F(Highlighting, OfNothingDoesNothing)
{
    control.Highlight(leftFace, style("a"));
    auto stale = part.Subsegment("stale");
    stale.Delete();
    control.Highlight(KeyPath(), style("b"), true).Highlight(stale, style("b"), true);
    control.Unhighlight(KeyPath(), style("a")).Unhighlight(stale, {});
    EXPECT_EQ(at(leftFace), Names{"a"});
    HighlightControl(left).Highlight(leftFace, style("b"));
    KeyPathArray paths;
    EXPECT_FALSE(HighlightControl(left).ShowHighlightedPaths(paths)) << "only windows have highlights";
    auto const other = window;
    window.Delete();
    EXPECT_FALSE(other.GetHighlightControl().ShowHighlightedPaths(paths));
}

TEST_F(Highlighting, EachChangeLeavesAMarkOnTheWindow)
{
    ChangeCursor cursor;
    std::vector<ChangeMark> marks;
    auto const changes = [&] {
        cursor.read(marks);
        return marks.size() == 1 && marks[0].slot == window.Index().slot ? marks[0].changes : Change::None;
    };
    changes();
    control.Highlight(leftFace, style("a"));
    EXPECT_EQ(changes(), Change::Highlight);
    control.Unhighlight(rightFace, style("a"));
    EXPECT_EQ(changes(), Change::None) << "nothing was there to take away";
    control.UnhighlightEverything();
    EXPECT_EQ(changes(), Change::Highlight);
}

TEST_F(Highlighting, AWalkKnowsOnePlaceWhereNothingIsHighlighted)
{
    control.Highlight(leftFace, style("a"));
    HighlightWalk walk(highlightsOf(window.Index()));
    auto const step = [&](KeyPath const& path) {
        auto place = walk.root();
        for (auto i = path.Size(); i-- > 0;) place = walk.step(place, path.At(i).Index().slot);
        return place;
    };
    EXPECT_EQ(step(KeyPath(KeyArray{window})), step(KeyPath(KeyArray{window, window})));
    EXPECT_TRUE(walk.at(step(rightFace)).empty());
    EXPECT_EQ(walk.at(step(leftFace)).size(), 1u);
    EXPECT_TRUE(isHighlighted(window.Index(), leftFace.Keys()));
    EXPECT_FALSE(isHighlighted(window.Index(), rightFace.Keys()));
}

TEST_F(Highlighting, StylesWinOverWhatIsSetBelowButNotOverLocks)
{
    auto portfolio = Database::CreatePortfolio();
    auto source = Database::CreateRootSegment();
    source.GetMaterialMappingControl().SetFaceColor(RGBAColor(1, 0, 0, 1));
    source.GetVisibilityControl().SetFaces(true);
    portfolio.DefineNamedStyle("red", source);
    window.GetPortfolioControl().Push(portfolio);
    face.GetMaterialMappingControl().SetFaceColor(RGBAColor(0, 1, 0, 1));
    left.GetVisibilityControl().SetFaces(false);
    left.GetAttributeLockControl().SetLock(AttributeLock::Type::Visibility, true);

    NetFold fold;
    auto state = fold.root().state;
    for (auto const& key : {SegmentKey(window), left, part, face})
        state = fold.state(state, *store().resolve<SegmentRecord>(key));
    control.Highlight(leftFace, style("red"));
    std::vector<std::uint32_t> const first{0};
    auto const colored = highlighted(fold, state, highlightsOf(window.Index()), first);
    auto const color = [](NetStatePointer const& net) {
        return net->get<MaterialMappingData>().frontFace->values().diffuseColor;
    };
    EXPECT_EQ(color(colored), RGBColor(1, 0, 0));
    EXPECT_FALSE(colored->get<VisibilityData>().shows(VisibilityData::Faces, true));

    control.Highlight(leftFace, style("unknown"));
    auto const own = highlighted(fold, state, highlightsOf(window.Index()), first);
    EXPECT_NE(color(own), RGBColor(0, 1, 0)) << "without a style the highlight is still to be seen";

    HighlightOptionsKit both;
    both.SetStyleName("thick").SetSecondaryStyleName("red");
    auto thick = Database::CreateRootSegment();
    thick.GetLineAttributeControl().SetWeight(5, Line::SizeUnits::Pixels);
    portfolio.DefineNamedStyle("thick", thick);
    control.Highlight(leftFace, both);
    auto const mixed = highlighted(fold, state, highlightsOf(window.Index()), first);
    EXPECT_EQ(color(mixed), RGBColor(1, 0, 0));
    EXPECT_TRUE(mixed->get<LineAttributeData>().weight.has_value());
    for (Key key : {Key(portfolio), Key(source), Key(thick)}) key.Delete();
}

} // namespace
