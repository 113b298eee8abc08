// Highlights that change on their own: what lies under them is not drawn again, and shows as if it were.
#include "scenes.h"
#include <functional>
#include <hps/HighlightControl.h>
#include <hps/WindowKey.h>

namespace HPS
{
namespace
{

struct LookCase {
    char const* name;
    void (*apply)(SegmentKey& root, WindowKey& window);
};
void PrintTo(LookCase const& look, std::ostream* out)
{
    *out << look.name;
}

class HighlightGround : public ScenePictures, public testing::WithParamInterface<LookCase>
{
protected:
    /// A row of squares, each hiding half of the next one, and an overlay above them.
    void fill()
    {
        for (int i = 0; i < Count; ++i) {
            squares[i] = root.Subsegment();
            insertSquare(squares[i], float(-i), 0.6f);
            squares[i].GetModellingMatrixControl().Translate(0.4 * i - 0.8, 0, 0);
            colour(squares[i], {i % 2 == 0 ? 1.0f : 0.3f, 0.2f * float(i), 0, 1});
        }
        SegmentKey over = root.Subsegment();
        over.GetDrawingAttributeControl().SetOverlay(Drawing::Overlay::Default);
        over.InsertLine(Point(-1.5f, -1, 0), Point(1.5f, 1, 0));
        over.GetMaterialMappingControl().SetLineColor(RGBAColor(0, 0, 1, 1));
    }
    HighlightControl lights() const { return canvas.GetWindowKey().GetHighlightControl(); }
    /// The picture, and that it is what the whole scene drawn anew gives.
    render::Image checked()
    {
        render::Image const shown = picture();
        UpdateReport const kept = report();
        canvas.Update(Window::UpdateType::Exhaustive);
        EXPECT_TRUE(picture().bytes == shown.bytes);
        last = kept;
        return shown;
    }

    static constexpr int Count = 5;
    SegmentKey squares[Count];
    UpdateReport last;
};

INSTANTIATE_TEST_SUITE_P(
    Looks, HighlightGround,
    testing::Values(LookCase{"plain", [](SegmentKey&, WindowKey&) {}},
                    LookCase{"seen_through",
                             [](SegmentKey& root, WindowKey&) {
                                 root.GetMaterialMappingControl().SetFaceAlpha(0.5f);
                                 root.GetTransparencyControl().SetAlgorithm(
                                     Transparency::Algorithm::DepthPeeling);
                             }},
                    LookCase{"cut", [](SegmentKey& root,
                                       WindowKey&) { root.InsertCuttingSection(Plane(0, 1, 0, -0.2f)); }},
                    LookCase{"bloom",
                             [](SegmentKey&, WindowKey& window) {
                                 PostProcessEffectsKit effects;
                                 effects.SetBloom(true, 3, 3, PostProcessEffects::Bloom::Shape::Radial);
                                 window.SetPostProcessEffects(effects);
                             }}),
    [](auto const& instance) { return std::string(instance.param.name); });

TEST_P(HighlightGround, TheSceneBelowIsDrawnOnce)
{
    fill();
    WindowKey window = canvas.GetWindowKey();
    GetParam().apply(root, window);
    render::Image const dark = picture();
    auto const whole = report().triangles;
    HighlightOptionsKit const options = HighlightOptionsKit::GetDefault();
    lights().Highlight(squares[0], options);
    checked(); // from here on the ground is kept
    for (int i = 1; i < Count; ++i) {
        lights().Highlight(squares[i], options);
        render::Image const lit = checked();
        EXPECT_FALSE(lit.bytes == dark.bytes);
        EXPECT_LE(last.triangles, 2u) << "the one square and nothing else of " << whole;
    }
    lights().UnhighlightEverything();
    EXPECT_TRUE(checked().bytes == dark.bytes);
    EXPECT_EQ(last.triangles, 0u);
}

TEST_F(ScenePictures, ASegmentThatNoWindowShowsSaysNothingAboutTheWay)
{
    SegmentKey part = model.GetLibraryKey().Subsegment("parts").Subsegment("part");
    insertSquare(part, 0, 0.5f);
    SegmentKey const place = root.Subsegment(), other = root.Subsegment();
    IncludeKey const include = SegmentKey(place).IncludeSegment(part);
    HighlightControl lights = canvas.GetWindowKey().GetHighlightControl();
    render::Image const dark = picture();
    struct {
        char const* what;
        KeyArray path;
        bool lit;
    } const cases[] = {{"library above the model", {part, include, place, model.GetLibraryKey(), root}, true},
                       {"owner of the part", {part, part.Owner(), include, place}, true},
                       {"another place", {part, include, other}, false},
                       {"another place and the library", {part, other, model.GetLibraryKey()}, false}};
    for (auto const& [what, path, lit] : cases) {
        SCOPED_TRACE(what);
        lights.Highlight(KeyPath(path), HighlightOptionsKit::GetDefault());
        EXPECT_EQ(picture().bytes != dark.bytes, lit);
    }
}

// Whatever else changes with a highlight is drawn.
TEST_F(ScenePictures, AHighlightThatComesWithAnotherChangeDrawsTheScene)
{
    SegmentKey const left = root.Subsegment(), right = root.Subsegment();
    insertSquare(left, 0, 0.5f);
    insertSquare(right, -1, 1.5f);
    HighlightControl lights = canvas.GetWindowKey().GetHighlightControl();
    HighlightOptionsKit const options = HighlightOptionsKit::GetDefault();
    picture();
    lights.Highlight(left, options);
    picture();
    std::pair<char const*, std::function<void()>> const changes[] = {
        {"camera",
         [&] {
             setCamera(canvas, {0, 8, 10});
         }},
        {"colour",
         [&] {
             colour(right, {0, 1, 0, 1});
         }},
        {"size", [&] { canvas.SetSize(120, 60); }},
        {"what is highlighted moves",
         [&] { SegmentKey(left).GetModellingMatrixControl().Translate(0.5, 0, 0); }},
        {"background",
         [&] { canvas.GetWindowKey().GetMaterialMappingControl().SetWindowColor(RGBAColor(0, 0, 1, 1)); }},
        {"mode", [&] { view.SetRenderingMode(Rendering::Mode::Flat); }},
        {"another view in front", [&] {
             View const front = Factory::CreateView();
             canvas.GetAttachedLayout().AttachViewFront(front);
         }}};
    bool lit = true;
    for (auto const& [what, change] : changes) {
        SCOPED_TRACE(what);
        change();
        lit = !lit;
        if (lit)
            lights.Highlight(left, options);
        else
            lights.UnhighlightEverything();
        render::Image const shown = picture();
        EXPECT_TRUE(picture(canvas, Window::UpdateType::Exhaustive).bytes == shown.bytes);
    }
}

} // namespace
} // namespace HPS
