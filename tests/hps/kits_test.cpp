// Every aspect of every kit, by one test over the library's list of kits.
#include "kit_values.h"
#include "merge.h"
#include "net_attributes.h"
#include "support.h"
#include <set>

using namespace HPS;

namespace
{

// A value that differs from the default, and with `n` from others.
template <class T> struct Sample {
    static T make(int n) { return static_cast<T>(n + 1); }
};
template <> struct Sample<bool> {
    static bool make(int n) { return n % 2 == 0; }
};
template <> struct Sample<UTF8> {
    static UTF8 make(int n) { return UTF8("text " + std::to_string(n)); }
};
template <> struct Sample<Point> {
    static Point make(int n) { return {float(n), 2, 3}; }
};
template <> struct Sample<Vector> {
    static Vector make(int n) { return {1, float(n), 3}; }
};
template <> struct Sample<Plane> {
    static Plane make(int n) { return {1, 2, 3, float(n)}; }
};
template <> struct Sample<RGBColor> {
    static RGBColor make(int n) { return {float(n) / 8, 1, 0}; }
};
template <> struct Sample<RGBAColor> {
    static RGBAColor make(int n) { return {float(n) / 8, 1, 0, 0.5f}; }
};
template <class T> struct Sample<Rectangle_2D<T>> {
    static Rectangle_2D<T> make(int n) { return {0, T(n + 1), 0, 2}; }
};
template <> struct Sample<KeyIndex> {
    static KeyIndex make(int n) { return {unsigned(n + 1), 1}; }
};
template <> struct Sample<SimpleCuboid> {
    static SimpleCuboid make(int n) { return {{0, 0, 0}, {1, 1, float(n + 1)}}; }
};
template <> struct Sample<BoundingVolume> {
    static BoundingVolume make(int n)
    {
        auto const box = Sample<SimpleCuboid>::make(n);
        return {false, SimpleSphere(box), box};
    }
};
template <> struct Sample<LockEntry> {
    static LockEntry make(int n) { return {AttributeLock::Type::Visibility, n % 2 == 0}; }
};
template <> struct Sample<MaterialChannel> {
    static MaterialChannel make(int n)
    {
        return {Material::Type::ModulatedTexture, Sample<RGBAColor>::make(n), Sample<UTF8>::make(n)};
    }
};
template <> struct Sample<SimpleMaterial> {
    static SimpleMaterial make(int n) { return {Sample<RGBColor>::make(n), 0.5f, std::nullopt}; }
};
template <> struct Sample<ComplexMaterial> {
    static ComplexMaterial make(int n)
    {
        MaterialData data;
        data.gloss = float(n);
        return {std::nullopt, std::make_shared<MaterialData const>(data)};
    }
};
template <class Shape> struct Sample<CapOrJoin<Shape>> {
    static CapOrJoin<Shape> make(int n)
    {
        return {LinePattern::Modifier::GlyphName, Sample<UTF8>::make(n), Shape(1)};
    }
};
template <> struct Sample<VisibilityKit> {
    static VisibilityKit make(int n) { return VisibilityKit().SetFaces(n % 2 == 0); }
};
template <> struct Sample<LinePatternOptionsKit> {
    static LinePatternOptionsKit make(int n)
    {
        return LinePatternOptionsKit().SetStartCap(Sample<UTF8>::make(n));
    }
};
template <class T> struct Sample<std::vector<T>> {
    static std::vector<T> make(int n) { return {Sample<T>::make(n)}; }
};
template <class... T> struct Sample<std::tuple<T...>> {
    static std::tuple<T...> make(int n) { return {Sample<T>::make(n)...}; }
};

template <class KitType> class EveryKit : public Scene
{
};
template <class, class... Kit> using KitTypes = testing::Types<Kit...>;
#define HPS_NEXT(Name) , Name##Kit
using Kits = KitTypes<void HPS_ALL_KITS(HPS_NEXT)>;
#undef HPS_NEXT
TYPED_TEST_SUITE(EveryKit, Kits);

TYPED_TEST(EveryKit, AspectsAreInheritedComparedAndHashed)
{
    using Data = typename TypeParam::Data;
    std::set<int> ids;
    std::set<std::string_view> names;
    forEachAspect<Data>([&](auto const& aspect) {
        using Value = typename std::decay_t<decltype(aspect)>::Value;
        SCOPED_TRACE(aspect.name);
        Data one, other;
        aspect.put(one, Sample<Value>::make(0));
        aspect.put(other, Sample<Value>::make(1));
        EXPECT_NE(one, Data());
        EXPECT_NE(one, other);
        EXPECT_NE(scene::hashValue(one), scene::hashValue(other));
        EXPECT_NE(scene::hashValue(one), scene::hashValue(Data()));

        Data net;
        scene::merge(net, one);
        EXPECT_EQ(net, one) << "a value reaches what has none";
        scene::merge(net, Data());
        EXPECT_EQ(net, one) << "what is not set leaves it";
        scene::merge(net, other);
        EXPECT_TRUE(aspect.get(net) == aspect.get(other)) << "a value set below wins";

        aspect.put(net, std::nullopt);
        EXPECT_EQ(net, Data());
        EXPECT_TRUE(ids.insert(aspect.id).second) << "ids stand in files";
        EXPECT_TRUE(names.insert(aspect.name).second);
    });
}

TYPED_TEST(EveryKit, ASegmentKeepsEachAspectAndTellsOfIt)
{
    using namespace scene;
    using Data = typename TypeParam::Data;
    auto const child = this->root.Subsegment("child");
    ChangeCursor cursor;
    std::vector<ChangeMark> marks;
    cursor.read(marks);
    forEachAspect<Data>([&](auto const& aspect) {
        using Value = typename std::decay_t<decltype(aspect)>::Value;
        SCOPED_TRACE(aspect.name);
        Data data;
        aspect.put(data, Sample<Value>::make(0));
        detail::storeKit<Data>(child, Data(data));
        EXPECT_EQ(detail::storedKit<Data>(child), data);
        ASSERT_TRUE(cursor.read(marks));
        ASSERT_EQ(marks.size(), 1u);
        EXPECT_EQ(marks[0].slot, child.Index().slot);

        detail::storeKit<Data>(child, Data(data));
        EXPECT_FALSE(cursor.pending()) << "the same value again is no change";
        detail::storeKit<Data>(child, Data());
        cursor.read(marks);
    });
    EXPECT_TRUE(store().resolve<SegmentRecord>(child)->kits.empty());
    detail::storeKit<Data>(Key(), Data()); // a stale key takes it without harm
}

TYPED_TEST(EveryKit, InheritedAspectsReachThoseBelow)
{
    using namespace scene;
    using Data = typename TypeParam::Data;
    if constexpr (kitKind<Data> < KitKind::InheritedCount) {
        auto const child = this->root.Subsegment("child");
        auto const& top = *store().resolve<SegmentRecord>(this->root);
        auto const& below = *store().resolve<SegmentRecord>(child);
        NetFold fold;
        forEachAspect<Data>([&](auto const& aspect) {
            using Value = typename std::decay_t<decltype(aspect)>::Value;
            SCOPED_TRACE(aspect.name);
            Data data;
            aspect.put(data, Sample<Value>::make(0));
            detail::storeKit<Data>(this->root, Data(data));
            auto const net = fold.step(fold.step(fold.root(), top), below);
            EXPECT_EQ(net.state->template get<Data>(), data);
        });
        detail::storeKit<Data>(this->root, Data());
        EXPECT_EQ(fold.step(fold.root(), top).state, fold.root().state) << "unset is as if never set";
    }
}

TEST(Kits, SeveralPartsComeBackTogetherOrNotAtAll)
{
    LineAttributeKit kit;
    float weight = 7;
    auto units = Line::SizeUnits::Points;
    EXPECT_FALSE(kit.ShowWeight(weight, units));
    EXPECT_EQ(weight, 7);
    kit.SetWeight(2.5f, Line::SizeUnits::Pixels);
    EXPECT_TRUE(kit.ShowWeight(weight, units));
    EXPECT_EQ(weight, 2.5f);
    EXPECT_EQ(units, Line::SizeUnits::Pixels);
    EXPECT_TRUE(kit.UnsetWeight().Empty());
}

TEST(Kits, DisplacementTakesBucketsAlone)
{
    bool state = false;
    int buckets = 0;
    EXPECT_TRUE(DrawingAttributeKit().SetFaceDisplacement(-24).ShowFaceDisplacement(state, buckets));
    EXPECT_TRUE(state);
    EXPECT_EQ(buckets, -24);
}

TEST(Kits, VisibilityGroups)
{
    VisibilityKit kit;
    bool state = true;
    EXPECT_FALSE(kit.ShowEverything(state));
    kit.SetEverything(false).SetEdges(true);
    EXPECT_TRUE(kit.ShowHardEdges(state) && state);
    EXPECT_TRUE(kit.ShowFaces(state) && !state);
    EXPECT_FALSE(kit.ShowEverything(state)) << "kinds differ";
    kit.UnsetHardEdges();
    EXPECT_FALSE(kit.ShowEdges(state)) << "one kind has no value";
    EXPECT_TRUE(kit.UnsetEverything().Empty());
}

TEST(Kits, ColourAndAlphaOfASurfaceStandApart)
{
    MaterialMappingKit kit;
    kit.SetFaceColor(RGBAColor(1, 0, 0, 0.25f)).SetFaceColor(RGBColor(0, 1, 0));
    Material::Type type{};
    MaterialKit material;
    float index = 0;
    ASSERT_TRUE(kit.ShowFrontFaceMaterial(type, material, index));
    EXPECT_EQ(type, Material::Type::FullMaterial);
    RGBAColor color;
    ASSERT_TRUE(material.ShowDiffuseColor(color));
    EXPECT_EQ(color, RGBAColor(0, 1, 0, 0.25f));

    kit.SetFaceMaterialByIndex(3);
    ASSERT_TRUE(kit.ShowBackFaceMaterial(type, material, index));
    EXPECT_EQ(type, Material::Type::MaterialIndex);
    EXPECT_EQ(index, 3);
    kit.SetFaceAlpha(0.5f);
    ASSERT_TRUE(kit.ShowBackFaceMaterial(type, material, index));
    EXPECT_EQ(type, Material::Type::FullMaterial) << "a channel takes the place of an index";
    EXPECT_TRUE(kit.UnsetFaceMaterial().Empty());
}

TEST(Kits, LineAlphaKeepsTheColourItIsLaidOver)
{
    MaterialMappingKit above, below;
    above.SetLineColor(RGBAColor(1, 0, 0));
    below.SetLineAlpha(0.5f);
    auto net = above.data();
    scene::merge(net, below.data());
    EXPECT_EQ(net.line, (SimpleMaterial{RGBColor(1, 0, 0), 0.5f, std::nullopt}));
}

TEST(Kits, LocksAreListedByType)
{
    using enum AttributeLock::Type;
    AttributeLockKit kit;
    kit.SetLock({Visibility, Camera, Material}, {true, false, true}).SetLock(Camera, true);
    AttributeLockTypeArray types;
    std::vector<bool> states;
    ASSERT_TRUE(kit.ShowLock(types, states));
    EXPECT_THAT(types, testing::ElementsAre(Visibility, Material, Camera));
    EXPECT_THAT(states, testing::ElementsAre(true, true, true));
    kit.UnsetLock(Material);
    bool state = false;
    EXPECT_FALSE(kit.ShowLock(Material, state));
    EXPECT_TRUE(kit.UnsetLock(Everything).Empty());
}

TEST(Kits, NumbersOfLocks)
{
    using enum AttributeLock::Type;
    EXPECT_EQ(static_cast<unsigned>(VisibilityShadows), 0x200001Bu);
    EXPECT_EQ(static_cast<unsigned>(MaterialFaceDiffuseColor), 0x3000027u);
    EXPECT_EQ(static_cast<unsigned>(MaterialFaceDiffuseAlpha), 0x3000028u);
    EXPECT_EQ(static_cast<unsigned>(MaterialCutFaceGloss), 0x3000054u);
}

TEST(Kits, TextureLayersLeaveEmptyOnesBetween)
{
    MaterialKit kit;
    kit.SetDiffuseTexture("a", 0).SetDiffuseTexture("b", RGBAColor::Black(), 2).SetDiffuseTexture("c", 99);
    MaterialKit::TypeArray types;
    std::vector<RGBAColor> colors;
    std::vector<UTF8> names;
    ASSERT_TRUE(kit.ShowDiffuseTexture(types, colors, names));
    EXPECT_THAT(types, testing::ElementsAre(Material::Type::TextureName, Material::Type::None,
                                            Material::Type::ModulatedTexture));
}

} // namespace
