// Shadows, mirrors and effects on the whole picture.
#include "Stage.h"
#include <cmath>
#include <gtest/gtest.h>

using namespace HPS;

namespace
{

SegmentKey coloured(SegmentKey parent, RGBAColor const& colour)
{
    SegmentKey segment = parent.Subsegment();
    segment.GetMaterialMappingControl().SetFaceColor(colour);
    return segment;
}

RGBAColor const pale{0.75f, 0.75f, 0.78f}, rust{0.8f, 0.35f, 0.2f}, sky{0.25f, 0.5f, 0.8f};

void lightFrom(Stage& stage, Vector const& direction)
{
    DistantLightKit light;
    light.SetDirection(direction).SetColor(RGBAColor(0.6f, 0.6f, 0.6f));
    stage.viewSegment().InsertDistantLight(light);
}

// A ball and a pillar on a floor, lit from above on the left.
void garden(Stage& stage, bool floor = true)
{
    stage.look({3, 5, 10}, 4);
    lightFrom(stage, {1, -2, -0.5f});
    if (floor) insertBox(coloured(stage.root(), pale).Subsegment("floor"), {-3, -1.2f, -2}, {3, -1, 2});
    insertBall(coloured(stage.root(), rust).Subsegment("ball"), {-0.8f, -0.2f, 0.3f}, 0.7f, 32);
    insertBox(coloured(stage.root(), sky).Subsegment("pillar"), {0.7f, -1, -0.9f}, {1.2f, 0.9f, -0.4f});
}

void shadowMaps(Stage& stage)
{
    garden(stage);
    auto number = [&](char const* name, unsigned otherwise) {
        std::string const text = stage.value(name);
        return text.empty() ? otherwise : unsigned(std::stoi(text));
    };
    stage.viewSegment().GetVisualEffectsControl().SetShadowMaps(!stage.has("off"), number("samples", 16),
                                                                number("resolution", 1024),
                                                                !stage.has("whole"), !stage.has("even"));
    SegmentKey ball;
    if (stage.has("glass")) {
        coloured(stage.root(), {0.9f, 0.9f, 0.3f, 0.4f});
        insertBall(coloured(stage.root(), {0.9f, 0.9f, 0.3f, 0.4f}), {0.9f, -0.4f, 1.1f}, 0.5f);
    }
    if (stage.has("nocast")) stage.root().GetVisibilityControl().SetShadowCasting(false);
    if (stage.has("noreceive")) stage.root().GetVisibilityControl().SetShadowReceiving(false);
    if (stage.has("noemit")) stage.viewSegment().GetVisibilityControl().SetShadowEmitting(false);
}

void planeShadow(Stage& stage)
{
    garden(stage, stage.has("floor"));
    auto control = stage.root().GetVisualEffectsControl();
    unsigned const blurring = stage.has("sharp") ? 0 : stage.has("soft") ? 20 : 1;
    control.SetSimpleShadow(!stage.has("off"), stage.has("coarse") ? 64 : 512, blurring, stage.has("full"));
    control.SetSimpleShadowPlane(Plane(0, 1, 0, 1)).SetSimpleShadowColor(RGBAColor(0.4f, 0.4f, 0.4f, 0.6f));
    control.SetSimpleShadowLightDirection(stage.has("slanted") ? Vector(-1, 2, 0.5f) : Vector(0, 1, 0));
    if (stage.has("floor")) coloured(stage.root(), pale);
    if (stage.has("glass")) {
        SegmentKey pane = coloured(stage.root(), {0.3f, 0.9f, 0.4f, 0.3f});
        insertBox(pane, {-0.4f, 0.8f, 0.8f}, {0.6f, 0.9f, 1.6f});
    }
    stage.background({0.9f, 0.9f, 0.92f}, {0.75f, 0.75f, 0.8f});
}

void reflection(Stage& stage)
{
    garden(stage, false);
    if (stage.has("perspective")) stage.look({3, 4, 8}, 4, true);
    auto control = stage.root().GetVisualEffectsControl();
    unsigned const blurring = stage.has("sharp") ? 0 : stage.has("soft") ? 8 : 1;
    control.SetSimpleReflection(!stage.has("off"), stage.has("faint") ? 0.2f : 0.7f, blurring,
                                stage.has("fading"), 0.2f, 1.2f);
    control.SetSimpleReflectionPlane(Plane(0, 1, 0, 1));
    if (stage.has("faces")) control.SetSimpleReflectionVisibility(VisibilityKit().SetFaces(false));
    stage.background({0.15f, 0.15f, 0.2f}, {0.3f, 0.3f, 0.35f});
}

float strengthOf(Stage const& stage, float otherwise)
{
    std::string const text = stage.value("strength");
    return text.empty() ? otherwise : std::stof(text);
}

// Corners between boxes, and a plane without any.
void occlusion(Stage& stage)
{
    stage.look({4, 5, 8}, 5);
    lightFrom(stage, {-0.5f, -2, -1});
    insertBox(coloured(stage.root(), pale), {-2.5f, -1.2f, -2}, {2.5f, -1, 2});
    insertBox(coloured(stage.root(), pale), {-1, -1, -0.8f}, {-0.2f, 0.6f, 0.4f});
    insertBox(coloured(stage.root(), pale), {-0.1f, -1, -0.8f}, {0.8f, -0.3f, 0.4f});
    using Quality = PostProcessEffects::AmbientOcclusion::Quality;
    PostProcessEffectsKit kit;
    kit.SetAmbientOcclusion(!stage.has("off"), strengthOf(stage, 1),
                            stage.has("fastest") ? Quality::Fastest : Quality::Nicest,
                            stage.has("wide") ? 4 : 2, 1);
    stage.window().SetPostProcessEffects(kit);
}

// Something bright among dull things.
void bloom(Stage& stage)
{
    insertRectangle(coloured(stage.root(), {1, 0.95f, 0.8f}), {-0.7f, 0.3f, 0}, 0.5f, 0.5f);
    SegmentKey other = coloured(stage.root(), {0.5f, 0.9f, 1});
    insertRectangle(other, {0.9f, 0.3f, 0}, 0.3f, 0.3f);
    if (stage.has("one")) other.GetVisualEffectsControl().SetBloomEnabled(false);
    insertRectangle(coloured(stage.root(), {0.4f, 0.4f, 0.45f}), {0, -0.8f, 0}, 3, 0.6f);
    using Shape = PostProcessEffects::Bloom::Shape;
    PostProcessEffectsKit kit;
    kit.SetBloom(!stage.has("off"), strengthOf(stage, 5), stage.has("wide") ? 12 : 5,
                 stage.has("star") ? Shape::Star : Shape::Radial);
    stage.window().SetPostProcessEffects(kit);
}

// A row of boxes that leads away from the viewer.
void focus(Stage& stage)
{
    stage.look({3, 3, 9}, 4, true);
    lightFrom(stage, {0.5f, -2, -1});
    for (int i = 0; i < 7; ++i) {
        float const z = 4 - 2 * float(i), x = -1.5f + 0.55f * float(i);
        insertBox(coloured(stage.root(), i % 2 != 0 ? rust : sky), {x, -0.8f, z - 0.3f},
                  {x + 0.4f, 0.6f, z + 0.3f});
    }
    PostProcessEffectsKit kit;
    kit.SetDepthOfField(!stage.has("off"), strengthOf(stage, 1.5f), 9, 11);
    if (stage.has("scaled")) kit.SetDepthOfField(true, strengthOf(stage, 1.5f), 0.9f, 1.1f).SetWorldScale(10);
    stage.window().SetPostProcessEffects(kit);
}

void silhouettes(Stage& stage)
{
    garden(stage);
    PostProcessEffectsKit kit;
    kit.SetSilhouetteEdges(!stage.has("off"), stage.has("tolerant") ? 20.0f : 1.0f, stage.has("heavy"));
    stage.window().SetPostProcessEffects(kit);
    if (stage.has("none")) stage.root().GetVisualEffectsControl().SetPostProcessEffectsEnabled(false);
}

void eyeDome(Stage& stage)
{
    garden(stage);
    PostProcessEffectsKit kit;
    kit.SetEyeDomeLighting(!stage.has("off"), stage.has("steep") ? 3.0f : 1.0f, 1, strengthOf(stage, 1));
    stage.window().SetPostProcessEffects(kit);
    if (stage.has("blue"))
        stage.viewSegment().GetVisualEffectsControl().SetEyeDomeLightingBackColor(true, RGBColor(0, 0, 1));
}

// Everything at once.
void together(Stage& stage)
{
    shadowMaps(stage);
    auto control = stage.root().GetVisualEffectsControl();
    control.SetSimpleReflection(true, 0.4f, 2).SetSimpleReflectionPlane(Plane(0, 1, 0, 1));
    PostProcessEffectsKit kit;
    kit.SetAmbientOcclusion(true)
        .SetBloom(true, 2)
        .SetSilhouetteEdges(true, 2, true)
        .SetEyeDomeLighting(true, 1, 1, 0.3f);
    kit.SetDepthOfField(true, 1, 9, 13);
    stage.window().SetPostProcessEffects(kit);
}

SceneTable const table{{"shadow_maps", shadowMaps},
                       {"plane_shadow", planeShadow},
                       {"reflection", reflection},
                       {"occlusion", occlusion},
                       {"bloom", bloom},
                       {"focus", focus},
                       {"silhouettes", silhouettes},
                       {"eye_dome", eyeDome},
                       {"together", together}};

QImage pictureOf(void (*scene)(Stage&), std::vector<std::string> arguments)
{
    Stage stage;
    stage.arguments = std::move(arguments);
    scene(stage);
    return stage.picture();
}

int brightness(QImage const& picture, int x, int y)
{
    QColor const c = picture.pixelColor(x, y);
    return c.red() + c.green() + c.blue();
}

// Where a point of the world lies in the picture of a stage.
QPoint pixelOf(Stage const& stage, Point const& world)
{
    Point window;
    EXPECT_TRUE(stage.path(stage.root())
                    .ConvertCoordinate(Coordinate::Space::World, world, Coordinate::Space::Pixel, window));
    return {int(window.x), int(window.y)};
}

int differing(QImage const& a, QImage const& b, int threshold = 0)
{
    int count = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            count += std::abs(brightness(a, x, y) - brightness(b, x, y)) > threshold;
    return count;
}

} // namespace

TEST(ShadowMaps, darkenWhereTheGeometryOfTheLightSays)
{
    Stage lit, shaded;
    lit.arguments = {"off"};
    shadowMaps(lit);
    shadowMaps(shaded);
    QImage const without = lit.picture(), with = shaded.picture();
    // The ball's middle, moved along the light down to the floor.
    float const t = 0.8f / 2;
    QPoint const under = pixelOf(shaded, {-0.8f + t, -1, 0.3f - 0.5f * t});
    QPoint const open = pixelOf(shaded, {-2.4f, -1, 1.2f});
    EXPECT_LT(brightness(with, under.x(), under.y()), brightness(without, under.x(), under.y()) - 60);
    EXPECT_EQ(with.pixelColor(open), without.pixelColor(open));
    // Nothing gets brighter.
    for (int y = 0; y < with.height(); ++y)
        for (int x = 0; x < with.width(); ++x)
            ASSERT_LE(brightness(with, x, y), brightness(without, x, y) + 3);
}

TEST(ShadowMaps, needSomethingThatCastsReceivesAndEmits)
{
    QImage const without = pictureOf(shadowMaps, {"off"});
    for (char const* missing : {"nocast", "noreceive", "noemit"}) {
        SCOPED_TRACE(missing);
        EXPECT_EQ(differing(pictureOf(shadowMaps, {missing}), without), 0);
    }
}

TEST(ShadowMaps, areThePictureOfEveryRun)
{
    EXPECT_EQ(pictureOf(shadowMaps, {}), pictureOf(shadowMaps, {}));
}

TEST(ShadowMaps, samplesSoftenTheRim)
{
    QImage const one = pictureOf(shadowMaps, {"samples=1", "resolution=128", "even"});
    QImage const many = pictureOf(shadowMaps, {"samples=32", "resolution=128", "even"});
    QImage const without = pictureOf(shadowMaps, {"off"});
    auto between = [&](QImage const& picture) {
        int count = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x) {
                int const lost = brightness(without, x, y) - brightness(picture, x, y);
                count += lost > 12 && lost < 60;
            }
        return count;
    };
    EXPECT_GT(between(many), between(one));
}

TEST(PlaneShadow, liesUnderThingsInTheColourAsked)
{
    Stage stage;
    stage.arguments = {"sharp"};
    planeShadow(stage);
    QImage const with = stage.picture();
    QImage const without = pictureOf(planeShadow, {"off"});
    QPoint const under = pixelOf(stage, {-0.8f, -1, 0.85f}); // before the ball, below its side
    double const open = without.pixelColor(under).red();
    EXPECT_NEAR(with.pixelColor(under).red(), open + (0.4 * 255 - open) * 0.6, 3);
    QPoint const beside = pixelOf(stage, {-2, -1, 1});
    EXPECT_EQ(with.pixelColor(beside), without.pixelColor(beside));
}

TEST(PlaneShadow, followsTheLightAndTheBlur)
{
    Stage stage;
    stage.arguments = {"slanted", "sharp"};
    planeShadow(stage);
    QImage const slanted = stage.picture();
    QImage const without = pictureOf(planeShadow, {"off"});
    QPoint const shadow = pixelOf(stage, {-0.8f + 0.4f, -1, 0.3f - 0.2f + 0.5f});
    EXPECT_LT(brightness(slanted, shadow.x(), shadow.y()), brightness(without, shadow.x(), shadow.y()) - 60);
    EXPECT_GT(differing(pictureOf(planeShadow, {"soft"}), without),
              differing(pictureOf(planeShadow, {"sharp"}), without));
}

TEST(PlaneShadow, ofGlassIsThinUnlessTransparencyIsIgnored)
{
    QImage const thin = pictureOf(planeShadow, {"glass", "sharp"}),
                 full = pictureOf(planeShadow, {"glass", "sharp", "full"});
    Stage stage;
    planeShadow(stage);
    QPoint const below = pixelOf(stage, {0.3f, -1, 1.4f});
    EXPECT_LT(brightness(full, below.x(), below.y()), brightness(thin, below.x(), below.y()) - 30);
}

TEST(Reflection, showsTheMirrorImage)
{
    Stage stage;
    stage.arguments = {"sharp"};
    reflection(stage);
    QImage const with = stage.picture();
    QImage const without = pictureOf(reflection, {"off"});
    QPoint const image = pixelOf(stage, {-0.8f, -1.8f, 0.9f}); // the ball's lower front, mirrored at -1
    QColor const seen = with.pixelColor(image), bare = without.pixelColor(image);
    EXPECT_GT(seen.red() - seen.blue(), bare.red() - bare.blue() + 40) << "of the ball's colour";
    QImage const faint = pictureOf(reflection, {"sharp", "faint"});
    EXPECT_LT(faint.pixelColor(image).red(), seen.red());
    EXPECT_EQ(differing(pictureOf(reflection, {"faces"}), without), 0) << "nothing to mirror";
}

TEST(Reflection, fadesWithTheHeightOverThePlane)
{
    Stage stage;
    stage.arguments = {"sharp", "fading"};
    reflection(stage);
    QImage const fading = stage.picture(), steady = pictureOf(reflection, {"sharp"}),
                 off = pictureOf(reflection, {"off"});
    QPoint const high = pixelOf(stage, {0.95f, -2.1f, -0.4f}), low = pixelOf(stage, {0.95f, -1.1f, -0.4f});
    auto share = [&](QPoint const& p) {
        return double(fading.pixelColor(p).blue() - off.pixelColor(p).blue()) /
               (steady.pixelColor(p).blue() - off.pixelColor(p).blue());
    };
    EXPECT_GT(share(low), 0.9);
    EXPECT_LT(share(high), 0.2);
}

TEST(AmbientOcclusion, darkensCornersAndNoFreePlane)
{
    Stage stage;
    occlusion(stage);
    QImage const with = stage.picture(), without = pictureOf(occlusion, {"off"});
    QPoint const corner = pixelOf(stage, {0.35f, -1, 0.44f}), open = pixelOf(stage, {1.8f, -1, 1.4f});
    EXPECT_LT(brightness(with, corner.x(), corner.y()), 0.93 * brightness(without, corner.x(), corner.y()));
    EXPECT_NEAR(brightness(with, open.x(), open.y()), brightness(without, open.x(), open.y()), 6);
    QImage const stronger = pictureOf(occlusion, {"strength=2"});
    EXPECT_LT(brightness(stronger, corner.x(), corner.y()), brightness(with, corner.x(), corner.y()));
}

TEST(Bloom, spreadsLightFromBrightPlacesAlone)
{
    Stage stage;
    bloom(stage);
    QImage const with = stage.picture(), without = pictureOf(bloom, {"off"});
    QPoint const beside = pixelOf(stage, {-0.35f, 0.3f, 0}), dull = pixelOf(stage, {1.4f, -0.8f, 0}),
                 far = pixelOf(stage, {-1.9f, -1.4f, 0});
    EXPECT_GT(brightness(with, beside.x(), beside.y()), brightness(without, beside.x(), beside.y()) + 40);
    EXPECT_NEAR(brightness(with, dull.x(), dull.y()), brightness(without, dull.x(), dull.y()), 4);
    EXPECT_EQ(with.pixelColor(far), without.pixelColor(far));
    QPoint const other = pixelOf(stage, {1.12f, 0.3f, 0});
    EXPECT_NEAR(brightness(pictureOf(bloom, {"one"}), other.x(), other.y()),
                brightness(without, other.x(), other.y()), 8)
        << "left out";
}

TEST(Bloom, ofAStarRunsAlongItsRays)
{
    Stage stage;
    stage.arguments = {"star"};
    bloom(stage);
    QImage const star = stage.picture();
    QPoint const diagonal = pixelOf(stage, {-0.7f + 0.5f, 0.3f + 0.5f, 0}),
                 straight = pixelOf(stage, {-0.7f, 0.3f + 0.7071f, 0});
    EXPECT_GT(brightness(star, diagonal.x(), diagonal.y()),
              brightness(star, straight.x(), straight.y()) + 20);
}

TEST(DepthOfField, keepsTheFocusSharp)
{
    Stage stage;
    focus(stage);
    QImage const with = stage.picture(), without = pictureOf(focus, {"off"});
    auto sharpness = [&](QImage const& picture, Point const& at) { // steps across an upright edge
        QPoint const p = pixelOf(stage, at);
        int steepest = 0;
        for (int x = p.x() - 4; x < p.x() + 4; ++x)
            steepest = std::max(steepest,
                                std::abs(brightness(picture, x, p.y()) - brightness(picture, x + 1, p.y())));
        return steepest;
    };
    Point const inFocus{-1.5f + 1.1f, 0, 0.3f}, far{0.7f, 0, -3.7f};
    EXPECT_GT(sharpness(with, inFocus), 0.75 * sharpness(without, inFocus));
    EXPECT_LT(sharpness(with, far), 0.6 * sharpness(without, far));
    EXPECT_EQ(pictureOf(focus, {"scaled"}), with) << "distances in other units";
}

TEST(Silhouettes, lieOnTheOutline)
{
    Stage stage;
    silhouettes(stage);
    QImage const with = stage.picture(), without = pictureOf(silhouettes, {"off"});
    // Up from the ball's middle to its rim, across the view.
    Stage plain;
    plain.arguments = {"off"};
    silhouettes(plain);
    QPoint const middle = pixelOf(stage, {-0.8f, -0.2f, 0.3f});
    int darkest = 999, at = 0;
    for (int y = middle.y() - 40; y < middle.y(); ++y)
        if (int const b = brightness(with, middle.x(), y); b < darkest) darkest = b, at = y;
    EXPECT_NEAR(middle.y() - at, 0.7 * 150 / 4, 2) << "the radius";
    EXPECT_LT(darkest, 60);
    EXPECT_EQ(with.pixelColor(middle), without.pixelColor(middle));
    EXPECT_GT(differing(pictureOf(silhouettes, {"heavy"}), without), differing(with, without));
    EXPECT_LT(differing(pictureOf(silhouettes, {"tolerant"}), without), differing(with, without));
    EXPECT_EQ(pictureOf(silhouettes, {"none"}), without) << "the whole model is left out";
}

TEST(EyeDome, darkensWhatLiesBehindARimInTheColourAsked)
{
    Stage stage;
    eyeDome(stage);
    QImage const with = stage.picture(), without = pictureOf(eyeDome, {"off"});
    QPoint const open = pixelOf(stage, {-2.4f, -1, 1.2f});
    EXPECT_NEAR(brightness(with, open.x(), open.y()), brightness(without, open.x(), open.y()), 4);
    EXPECT_GT(differing(with, without, 30), 100);
    QImage const blue = pictureOf(eyeDome, {"blue"});
    for (int y = 0; y < blue.height(); ++y)
        for (int x = 0; x < blue.width(); ++x)
            ASSERT_GE(blue.pixelColor(x, y).blue() + 1, with.pixelColor(x, y).blue());
    EXPECT_GT(differing(blue, with, 20), 100);
}

TEST(Effects, leaveNoTraceOnceTheyAreOff)
{
    Stage stage;
    garden(stage);
    QImage const before = stage.picture();
    PostProcessEffectsKit kit;
    kit.SetAmbientOcclusion(true)
        .SetBloom(true, 3)
        .SetSilhouetteEdges(true)
        .SetEyeDomeLighting(true)
        .SetDepthOfField(true);
    stage.window().SetPostProcessEffects(kit);
    stage.viewSegment().GetVisualEffectsControl().SetShadowMaps(true);
    EXPECT_GT(differing(stage.picture(), before), 1000);
    stage.window().UnsetPostProcessEffects();
    stage.viewSegment().GetVisualEffectsControl().SetShadowMaps(false);
    EXPECT_EQ(stage.picture(), before);
}

TEST(Effects, areTheSameOnEveryRun)
{
    EXPECT_EQ(pictureOf(together, {}), pictureOf(together, {}));
}

TEST(PlaneShadow, isLaidUnderWhatIsVisible)
{
    Stage stage;
    garden(stage, false);
    stage.model.SetOrientation(Vector(0, 1, 0), Vector(0, 0, 1));
    stage.view.SetSimpleShadow(true, 5);
    Plane plane;
    ASSERT_TRUE(stage.viewSegment().GetVisualEffectsControl().ShowSimpleShadowPlane(plane));
    EXPECT_EQ(Vector(plane.a, plane.b, plane.c), Vector(0, 1, 0));
    EXPECT_NEAR(plane.d, 1 + 0.05 * 1.9, 1e-4) << "the pillar reaches from -1 to 0.9";
    QImage const with = stage.picture();
    stage.view.SetSimpleShadow(false);
    EXPECT_GT(differing(with, stage.picture(), 60), 200);
}
