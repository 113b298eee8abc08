#include "operation.h"
#include <hps/SceneTree.h>

using namespace HPS;

namespace
{

bool isHighlighted(Bench const& b, KeyPath const& path)
{
    std::vector<HighlightOptionsKit> options;
    return b.window().GetHighlightControl().ShowHighlight(path, options);
}

HighlightOptionsKit highlightStyle()
{
    HighlightOptionsKit options;
    return options.SetStyleName("highlight_style");
}

} // namespace

OperationRows windowOperations()
{
    return {
        {"HighlightControl::Highlight", "tree click and pick",
         [](Bench& b) {
             auto control = b.window().GetHighlightControl();
             control.Highlight(b.shellPath(), highlightStyle(), false);
             EXPECT_TRUE(isHighlighted(b, b.shellPath()));
             auto elsewhere = b.modelPath();
             elsewhere.PushFront(KeyPath(KeyArray{b.shell, b.body, b.part, b.otherInclude, b.other}));
             EXPECT_FALSE(isHighlighted(b, elsewhere)) << "the other occurrence";
             control.Highlight(b.body, highlightStyle(), true);
             EXPECT_TRUE(isHighlighted(b, elsewhere)) << "a key stands for all occurrences";
         }},
        {"HighlightControl::Unhighlight", "tree click",
         [](Bench& b) {
             auto control = b.window().GetHighlightControl();
             control.Highlight(b.shellPath(), highlightStyle(), false);
             control.Unhighlight(b.shellPath(), highlightStyle());
             EXPECT_FALSE(isHighlighted(b, b.shellPath()));
         }},
        {"HighlightControl::UnhighlightEverything", "new pick",
         [](Bench& b) {
             auto control = b.window().GetHighlightControl();
             control.Highlight(b.shellPath(), highlightStyle(), false)
                 .Highlight(b.top, highlightStyle(), false);
             control.UnhighlightEverything();
             KeyPathArray paths;
             EXPECT_FALSE(control.ShowHighlightedPaths(paths));
         }},
        {"WindowKey::ShowWindowInfo", "scene inspector",
         [](Bench& b) {
             WindowInfoKit kit;
             ASSERT_TRUE(b.window().ShowWindowInfo(kit));
             unsigned int width = 0, height = 0;
             float wide = 0, high = 0, aspect = 0;
             ASSERT_TRUE(kit.ShowWindowPixels(width, height) && kit.ShowResolution(wide, high));
             EXPECT_EQ(width, 200u);
             EXPECT_EQ(height, 100u);
             EXPECT_TRUE(kit.ShowWindowAspectRatio(aspect));
             EXPECT_EQ(aspect, 2);
             float widthCentimetres = 0, heightCentimetres = 0;
             ASSERT_TRUE(kit.ShowWindowSize(widthCentimetres, heightCentimetres));
             EXPECT_NEAR(widthCentimetres * wide, 200, 0.01);
             EXPECT_TRUE(kit.ShowPhysicalPixels(width, height) && kit.ShowPixelAspectRatio(aspect));
             auto const window = b.window();
             b.canvas.Delete();
             EXPECT_FALSE(window.ShowWindowInfo(kit));
             EXPECT_FALSE(kit.ShowWindowPixels(width, height));
         }},
        {"WindowInfoControl::ShowWindowPixels", "first painting of the view widget",
         [](Bench& b) {
             unsigned int width = 0, height = 0;
             ASSERT_TRUE(b.window().GetWindowInfoControl().ShowWindowPixels(width, height));
             EXPECT_EQ(width, 200u);
             b.canvas.SetSize(50, 60);
             ASSERT_TRUE(b.window().GetWindowInfoControl().ShowWindowPixels(width, height));
             EXPECT_EQ(height, 60u);
         }},
        {"ApplicationWindowKey::ShowWindowOptions", "scene inspector",
         [](Bench&) {
             ApplicationWindowOptionsKit options, shown;
             options.SetAntiAliasCapable(true, 8);
             auto canvas = Factory::CreateOffScreenCanvas(10, 10, "canvas", options);
             ApplicationWindowKey const key(canvas.GetWindowKey());
             EXPECT_EQ(key.Type(), Type::ApplicationWindowKey);
             ASSERT_TRUE(key.ShowWindowOptions(shown));
             bool state = false;
             unsigned int samples = 0;
             ASSERT_TRUE(shown.ShowAntiAliasCapable(state, samples));
             EXPECT_EQ(samples, 8u);
             Window::Driver driver{};
             EXPECT_TRUE(shown.ShowDriver(driver)) << "what was left open is filled in";
             canvas.Delete();
             EXPECT_EQ(key.Type(), Type::None);
             EXPECT_FALSE(key.ShowWindowOptions(shown));
             EXPECT_TRUE(ApplicationWindowKey(Database::CreateRootSegment()).Empty());
         }},
        {"WindowKey::Set of its options", "scene inspector",
         [](Bench& b) {
             PostProcessEffectsKit effects, shown;
             effects.SetBloom(true, 2, 3, PostProcessEffects::Bloom::Shape::Radial);
             b.window().SetPostProcessEffects(effects);
             ASSERT_TRUE(b.window().ShowPostProcessEffects(shown));
             EXPECT_EQ(shown, effects);
             SelectionOptionsKit selection;
             b.window().SetSelectionOptions(selection.SetLevel(Selection::Level::Entity));
             Selection::Level level{};
             EXPECT_TRUE(b.window().GetSelectionOptionsControl().ShowLevel(level));
             b.window().UnsetPostProcessEffects();
             EXPECT_FALSE(b.window().ShowPostProcessEffects(shown));
         }},
        {"WindowKey::GetEventDispatcher", "event bridge",
         [](Bench& b) {
             struct Listener : EventHandler {
                 int heard = 0;
                 HandleResult Handle(Event const*) override { return ++heard, HandleResult::Handled; }
             } listener;
             b.window().GetEventDispatcher().Subscribe(listener, KeyboardEvent().GetClassID());
             EXPECT_TRUE(b.window().GetEventDispatcher().InjectEvent(KeyboardEvent()));
             EXPECT_FALSE(b.window().GetEventDispatcher().InjectEvent(MouseEvent()));
             EXPECT_EQ(listener.heard, 1);
         }},
        {"SceneTreeItem::Highlight", "scene inspector",
         [](Bench& b) {
             auto const tree = std::make_shared<SceneTree>(b.canvas);
             tree->SetRoot(std::make_shared<SceneTreeItem>(tree, b.model));
             auto const item = tree->GetRoot()->GetChildren().at(0);
             item->Highlight(0);
             EXPECT_TRUE(item->IsHighlighted());
             EXPECT_TRUE(isHighlighted(b, b.modelPath()));
             b.window().GetHighlightControl().UnhighlightEverything();
             EXPECT_FALSE(item->IsHighlighted());
             b.window().GetHighlightControl().Highlight(b.modelPath(), highlightStyle());
             EXPECT_TRUE(item->IsHighlighted());
             item->Unhighlight(0);
             EXPECT_FALSE(isHighlighted(b, b.modelPath()));
         }},
    };
}
