#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <hps/Factory.h>
#include <hps/SceneTree.h>
#include <hps/SprocketPath.h>
#include <hps/hps.h>

using namespace HPS;
using ItemType = SceneTree::ItemType;
using testing::ElementsAre;

namespace
{

// Counts what is made, as a browser that shows rows would make them.
struct Row : SceneTreeItem {
    using SceneTreeItem::SceneTreeItem;
    static inline int made = 0;
    int selections = 0;
    std::shared_ptr<SceneTreeItem> AddChild(Key const& key, ItemType type, UTF8 const& title) override
    {
        ++made;
        return std::make_shared<Row>(GetTree(), key, type, title);
    }
    void Select() override { ++selections; }
    void Unselect() override { --selections; }
};

class Tree : public testing::Test
{
protected:
    Canvas canvas = Factory::CreateOffScreenCanvas(100, 100);
    Model model = Factory::CreateModel("part");
    SegmentKey top = model.GetSegmentKey();
    std::shared_ptr<SceneTree> tree = std::make_shared<SceneTree>(canvas);
    std::shared_ptr<Row> root = std::make_shared<Row>(tree, model);

    Tree()
    {
        Row::made = 0;
        tree->SetRoot(root);
    }
    ~Tree() override
    {
        model.Delete();
        canvas.Delete();
    }
    std::shared_ptr<SceneTreeItem> first() { return root->GetChildren().at(0); }
    static std::shared_ptr<SceneTreeItem> open(std::shared_ptr<SceneTreeItem> const& item,
                                               std::string const& title)
    {
        item->Expand();
        for (auto const& child : item->GetChildren())
            if (child->GetTitle() == UTF8(title)) return child;
        ADD_FAILURE() << "no child " << title;
        return nullptr;
    }
    static std::vector<std::string> titles(std::shared_ptr<SceneTreeItem> const& item)
    {
        item->Expand();
        std::vector<std::string> all;
        for (auto const& child : item->GetChildren()) all.push_back(child->GetTitle().Str());
        return all;
    }
};

TEST_F(Tree, OpensOneLevelAtATime)
{
    for (int i = 0; i < 1000; ++i) top.Subsegment(("s" + std::to_string(i)).c_str()).Subsegment("below");
    EXPECT_EQ(Row::made, 1) << "the top segment alone";
    EXPECT_TRUE(first()->HasChildren());
    EXPECT_EQ(Row::made, 1) << "asking makes nothing";
    first()->Expand();
    first()->Expand();
    EXPECT_EQ(Row::made, 1001);
    EXPECT_EQ(first()->GetChildren().at(7)->GetTitle(), "s7");
    first()->Collapse();
    EXPECT_TRUE(first()->GetChildren().empty());
    top.Subsegment("s7").Delete();
    first()->Expand();
    EXPECT_EQ(first()->GetChildren().at(7)->GetTitle(), "s8") << "the scene is read again";
}

TEST_F(Tree, ShowsWhatASegmentHoldsInGroups)
{
    auto const bolt = model.GetLibraryKey().Subsegment("bolt");
    auto portfolio = model.GetPortfolioKey();
    portfolio.DefineNamedStyle("red", bolt);
    portfolio.DefineGlyph("cross", GlyphKit::GetDefault("plus"));
    top.GetPortfolioControl().Push(portfolio);
    top.GetStyleControl().PushNamed("red");
    top.GetCameraControl().SetTarget({1, 2, 3});
    top.GetModellingMatrixControl().Translate(1, 0, 0);
    top.IncludeSegment(bolt);
    auto const line = top.InsertLine({0, 0, 0}, {1, 0, 0});
    top.InsertLine({0, 0, 0}, {2, 0, 0});
    top.InsertMarker({0, 0, 0});
    top.Subsegment("a");
    top.Subsegment();

    EXPECT_THAT(titles(first()),
                ElementsAre("Portfolios", "Styles", "Attributes", "Includes", "Geometry", "a", "Segment"));
    auto const attributes = open(first(), "Attributes");
    EXPECT_THAT(titles(attributes), ElementsAre("Camera", "Modelling Matrix"));
    auto const camera = open(attributes, "Camera");
    EXPECT_EQ(static_cast<unsigned>(camera->GetItemType()), 0x20007u);
    EXPECT_TRUE(camera->HasItemType(ItemType::Attribute));
    EXPECT_FALSE(camera->HasItemType(ItemType::Group));
    EXPECT_FALSE(camera->HasChildren());
    EXPECT_TRUE(SegmentKey(camera->GetKey()) == top);

    auto const geometry = open(first(), "Geometry");
    EXPECT_THAT(titles(geometry), ElementsAre("Lines", "Markers"));
    auto const lines = open(geometry, "Lines");
    EXPECT_EQ(static_cast<unsigned>(lines->GetItemType()), 0x28000Cu);
    EXPECT_TRUE(lines->HasItemType(ItemType::Group));
    EXPECT_FALSE(lines->HasItemType(ItemType::Geometry));
    ASSERT_THAT(titles(lines), ElementsAre("Line", "Line"));
    EXPECT_TRUE(lines->GetChildren()[0]->GetKey() == line);
    EXPECT_EQ(lines->GetChildren()[0]->GetKeyPath(), KeyPath(KeyArray{line, top}));

    auto const include = open(open(first(), "Includes"), "bolt");
    EXPECT_EQ(include->GetItemType(), ItemType::Include);
    auto const included = open(include, "bolt");
    EXPECT_EQ(included->GetKeyPath(), KeyPath(KeyArray{bolt, include->GetKey(), top}));

    auto const pushed = open(open(first(), "Portfolios"), "Portfolio");
    EXPECT_THAT(titles(pushed), ElementsAre("Named Styles", "Glyphs"));
    auto const glyph = open(open(pushed, "Glyphs"), "cross");
    EXPECT_EQ(static_cast<unsigned>(glyph->GetItemType()), 0x40004u);
    GlyphDefinition definition;
    EXPECT_TRUE(PortfolioKey(glyph->GetKey()).ShowGlyphDefinition(glyph->GetTitle(), definition));
    EXPECT_EQ(open(open(first(), "Styles"), "red")->GetItemType(), ItemType::NamedStyle);
}

TEST_F(Tree, ABareSegmentHasNothingToOpen)
{
    EXPECT_FALSE(first()->HasChildren());
    top.SetUserData(1, {2});
    EXPECT_TRUE(first()->HasChildren());
    EXPECT_THAT(titles(first()), ElementsAre("Attributes"));
    auto const group = open(first(), "Attributes");
    top.UnsetAllUserData();
    first()->ReExpand();
    EXPECT_TRUE(first()->GetChildren().empty());
    EXPECT_FALSE(group->HasChildren()) << "an item that somebody still holds";
    model.Delete();
    EXPECT_FALSE(first()->HasChildren()) << "what it stood for is gone";
    first()->ReExpand();
    root->ReExpand();
    EXPECT_TRUE(root->GetChildren().empty());
}

TEST_F(Tree, HighlightBelongsToThePlaceInTheScene)
{
    top.Subsegment("a");
    auto a = std::static_pointer_cast<Row>(open(first(), "a"));
    a->Highlight();
    a->Highlight(0);
    EXPECT_TRUE(a->IsHighlighted());
    EXPECT_EQ(a->selections, 1);
    EXPECT_FALSE(first()->IsHighlighted());
    first()->ReExpand();
    a = std::static_pointer_cast<Row>(open(first(), "a"));
    EXPECT_TRUE(a->IsHighlighted());
    EXPECT_EQ(a->selections, 1) << "the new item is told";
    a->Unhighlight(0);
    EXPECT_FALSE(a->IsHighlighted());
    EXPECT_EQ(a->selections, 0);
}

TEST_F(Tree, HighlightIsThatOfTheWindow)
{
    View view = Factory::CreateView();
    view.AttachModel(model);
    canvas.AttachViewAsLayout(view);
    auto part = model.GetLibraryKey().Subsegment("part");
    auto shell = part.InsertMarker({0, 0, 0});
    auto include = top.Subsegment("a").IncludeSegment(part);
    auto const a = open(first(), "a");
    auto const marker = open(open(open(open(open(a, "Includes"), "part"), "part"), "Geometry"), "Markers");
    auto const row = open(marker, "Marker");

    // As a click in the picture does it: the way from the window down.
    auto path = SprocketPath(canvas, canvas.GetAttachedLayout(), view, model).GetKeyPath();
    path.PushFront(KeyPath(KeyArray{shell, part, include, top.Subsegment("a")}));
    HighlightOptionsKit options;
    options.SetStyleName("style");
    auto control = canvas.GetWindowKey().GetHighlightControl();
    control.Highlight(path, options);
    EXPECT_TRUE(row->IsHighlighted());
    EXPECT_FALSE(a->IsHighlighted()) << "it stands above";
    row->Unhighlight();
    KeyPathArray paths;
    EXPECT_FALSE(control.ShowHighlightedPaths(paths));
    row->Highlight(&options);
    ASSERT_TRUE(control.ShowHighlightedPaths(paths));
    EXPECT_EQ(paths.at(0), path);
    tree->Flush();
    EXPECT_TRUE(control.ShowHighlightedPaths(paths)) << "the rows go, the highlight stays";
    view.Delete();
}

TEST_F(Tree, RaysAndReferencesHaveTheirOwnRows)
{
    top.InsertInfiniteLine({0, 0, 0}, {1, 0, 0});
    auto const ray = top.InsertInfiniteRay({0, 0, 0}, {1, 0, 0});
    auto const geometry = open(first(), "Geometry");
    ASSERT_THAT(titles(geometry), ElementsAre("Infinite Lines", "Infinite Rays"));
    auto const rays = open(geometry, "Infinite Rays");
    EXPECT_EQ(static_cast<unsigned>(rays->GetItemType()), 0x280011u);
    ASSERT_THAT(titles(rays), ElementsAre("Infinite Ray"));
    EXPECT_EQ(rays->GetChildren()[0]->GetKey(), ray);
    EXPECT_EQ(titles(open(geometry, "Infinite Lines")).size(), 1u);

    auto reference = top.ReferenceGeometry(ray);
    reference.SetModellingMatrix(MatrixKit());
    first()->ReExpand();
    auto const row = open(open(open(first(), "Geometry"), "References"), "Reference");
    EXPECT_EQ(row->GetItemType(), ItemType::Reference);
    EXPECT_TRUE(row->HasChildren());
    ASSERT_THAT(titles(row), ElementsAre("Modelling Matrix", "Infinite Ray"));
    EXPECT_EQ(row->GetChildren()[0]->GetItemType(), ItemType::ModellingMatrix);
    EXPECT_EQ(row->GetChildren()[0]->GetKey(), reference);
}

TEST_F(Tree, TakesItsRootFromAnyObject)
{
    View view = Factory::CreateView();
    view.AttachModel(model);
    canvas.AttachViewAsLayout(view);
    auto const fromCanvas = std::make_shared<Row>(tree, canvas);
    tree->SetRoot(fromCanvas);
    ASSERT_THAT(titles(fromCanvas), ElementsAre("Canvas"));
    EXPECT_EQ(fromCanvas->GetChildren()[0]->GetKey().Type(), Type::ApplicationWindowKey);
    EXPECT_EQ(fromCanvas->GetChildren()[0]->GetItemType(), ItemType::Segment);
    EXPECT_THAT(titles(std::make_shared<Row>(tree, view)), ElementsAre("View"));
    EXPECT_THAT(titles(std::make_shared<Row>(tree, Layout())), ElementsAre());
    tree->Flush();
    EXPECT_EQ(tree->GetRoot(), nullptr);
    view.Delete();
}

TEST(Windows, HaveADispatcherAndCoordinatesOfTheirOwn)
{
    auto a = Factory::CreateOffScreenCanvas(200, 100), b = Factory::CreateOffScreenCanvas(10, 10);
    struct Listener : EventHandler {
        int heard = 0;
        HandleResult Handle(Event const*) override { return ++heard, HandleResult::Handled; }
    } listener;
    a.GetWindowKey().GetEventDispatcher().Subscribe(listener, MouseEvent().GetClassID());
    EXPECT_TRUE(a.GetWindowKey().GetEventDispatcher().InjectEvent(MouseEvent(MouseEvent::Action::Move)));
    EXPECT_FALSE(b.GetWindowKey().GetEventDispatcher().InjectEvent(MouseEvent()));
    EXPECT_EQ(listener.heard, 1);

    Point point;
    auto const window = a.GetWindowKey();
    ASSERT_TRUE(
        window.ConvertCoordinate(Coordinate::Space::Pixel, {50, 25, 0}, Coordinate::Space::Window, point));
    EXPECT_EQ(point, Point(-0.5f, 0.5f, 0));
    View view = Factory::CreateView();
    CameraKit camera;
    camera.SetPosition({0, 0, 10}).SetTarget({0, 0, 0}).SetUpVector({0, 1, 0}).SetField(2, 2);
    view.GetSegmentKey().SetCamera(camera.SetProjection(Camera::Projection::Orthographic));
    a.AttachViewAsLayout(view);
    ASSERT_TRUE(
        window.ConvertCoordinate(Coordinate::Space::World, {1, 0.5f, 0}, Coordinate::Space::Pixel, point));
    EXPECT_EQ(point, Point(150, 25, 0));
    a.Delete();
    EXPECT_FALSE(window.ConvertCoordinate(Coordinate::Space::Pixel, {}, Coordinate::Space::Window, point));
    EXPECT_FALSE(window.GetEventDispatcher().InjectEvent(MouseEvent()));
    view.Delete();
    b.Delete();
}

} // namespace
