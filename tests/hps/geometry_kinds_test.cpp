// Every kind of geometry, by the same tests over the library's list of kinds.
#include "geometry_records.h"
#include "geometry_samples.h"
#include "kit_values.h"
#include "store.h"
#include "support.h"
#include <limits>

using namespace HPS;

namespace
{

#define HPS_INSERT(Name)                                                                                     \
    Name##Key insertInto(SegmentKey segment, Name##Kit const& kit)                                           \
    {                                                                                                        \
        return segment.Insert##Name(kit);                                                                    \
    }
HPS_GEOMETRY_KINDS(HPS_INSERT)
#undef HPS_INSERT

struct Kind {
    HPS::Type type;
    Search::Type search;
    std::optional<SimpleCuboid> box;
};
// What each kind is known by elsewhere, and how far its sample reaches.
Kind const kinds[] = {
    {Type(0x10100001), Search::Type(0x10000043), SimpleCuboid({11, 2, 3}, {11, 2, 3})},
    {Type(0x10100002), Search::Type(0x10000032), SimpleCuboid({1, 0, 1}, {1, 4, 5})},
    {Type(0x10100003), Search::Type(0x1000003A), SimpleCuboid({-1, 0, 0}, {1, 1, 0})},
    {Type(0x10100004), Search::Type(0x10000034), SimpleCuboid({-1, 0, 0}, {1, 1, 0})},
    {Type(0x10100005), Search::Type(0x10000027), std::nullopt},
    {Type(0x10100006), Search::Type(0x1000002F), SimpleCuboid({-2, -2, 0}, {2, 2, 5})},
    {Type(0x10100007), Search::Type(0x10000100), std::nullopt},
    {Type(0x10100008), Search::Type(0x10000035), SimpleCuboid({-2, 0, 1}, {4, 2, 1})},
    {Type(0x10100009), Search::Type(0x1000003B), SimpleCuboid({0, 0, 0}, {2, 1, 0})},
    {Type(0x1010000A), Search::Type(0x10000036), SimpleCuboid({0, 0, 0}, {4, 2, 1})},
    {Type(0x1010000B), Search::Type(0x1000002C), SimpleCuboid({1, 1, 0}, {4, 9, 0})},
    {Type(0x1010000C), Search::Type(0x10000102), std::nullopt},
    {Type(0x1010000D), Search::Type(0x1000003E), SimpleCuboid({1, 2, 3}, {1, 2, 3})},
    {Type(0x1010000E), Search::Type(0x1000002A), SimpleCuboid({0, 0, 0}, {4, 2, 1})},
    {Type(0x1010000F), Search::Type(0x10000039), SimpleCuboid({0, 0, 0}, {4, 2, 1})},
    {Type(0x10100010), Search::Type(0x1000002D), SimpleCuboid({0, 0, 0}, {4, 2, 1})},
    {Type(0x10100011), Search::Type(0x10000031), SimpleCuboid({0, 0, 0}, {4, 2, 1})},
    {Type(0x10100012), Search::Type(0x10000029), SimpleCuboid({0, 0, 0}, {4, 2, 1})},
    {Type(0x10100013), Search::Type(0x10000030), SimpleCuboid({-1, 0, 1}, {3, 4, 5})},
    {Type(0x10100014), Search::Type(0x10000101), std::nullopt},
    {Type(0x10100015), Search::Type(0x10000040), SimpleCuboid({1, 2, 3}, {1, 2, 3})},
};

template <class KitType> class EveryGeometry : public Scene
{
protected:
    KitType sample() const { return static_cast<KitType>(Sample{root}); }
    SegmentKey segment = root.Subsegment("segment");
};
template <class, class... Kit> using KitTypes = testing::Types<Kit...>;
#define HPS_NEXT(Name) , Name##Kit
using Kits = KitTypes<void HPS_GEOMETRY_KINDS(HPS_NEXT)>;
#undef HPS_NEXT
TYPED_TEST_SUITE(EveryGeometry, Kits);

TYPED_TEST(EveryGeometry, ComesBackAsItWentIn)
{
    auto kit = this->sample();
    kit.SetPriority(7).SetUserData(3, {1, 2});
    auto key = insertInto(this->segment, kit);
    ASSERT_FALSE(key.Empty());
    TypeParam back;
    ASSERT_TRUE(key.Show(back));
    EXPECT_TRUE(back == kit);
    EXPECT_FALSE(TypeParam() == kit);

    int priority = 0;
    EXPECT_TRUE(key.ShowPriority(priority) && priority == 7);
    key.SetPriority(-1);
    EXPECT_TRUE(key.Show(back) && back.ShowPriority(priority) && priority == -1);
    key.UnsetPriority();
    EXPECT_TRUE(key.Show(back) && !back.ShowPriority(priority));
    ByteArray bytes;
    EXPECT_TRUE(key.ShowUserData(3, bytes) && bytes == ByteArray({1, 2}));

    key.Delete();
    EXPECT_FALSE(key.Show(back));
    EXPECT_TRUE(back == TypeParam()) << "a stale key empties the kit";
    EXPECT_FALSE(key.Consume(kit));
}

TYPED_TEST(EveryGeometry, IsReplacedOrLeftAsItIs)
{
    auto key = insertInto(this->segment, this->sample());
    auto kit = this->sample();
    kit.SetPriority(2);
    scene::ChangeCursor cursor;
    std::vector<scene::ChangeMark> marks;
    cursor.read(marks);
    ASSERT_TRUE(key.Consume(kit));
    EXPECT_TRUE(kit == TypeParam()) << "the database took it over";
    cursor.read(marks);
    EXPECT_TRUE(std::any_of(marks.begin(), marks.end(), [&](auto const& mark) {
        return mark.slot == key.Index().slot && has(mark.changes, scene::Change::Geometry);
    }));
}

// Each number in turn is spoilt: neither an insertion nor a change may take the geometry then.
TYPED_TEST(EveryGeometry, IsRefusedWithANumberThatIsNone)
{
    auto const good = this->sample();
    auto key = insertInto(this->segment, good);
    for (float const bad : {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()})
        for (int spoilt = 0;; ++spoilt) {
            auto kit = good;
            int number = 0;
            bool found = false;
            auto const spoil = [&](auto const& part) {
                if constexpr (std::is_same_v<std::decay_t<decltype(part)>, float>)
                    if (number++ == spoilt) {
                        const_cast<float&>(part) = bad; // the kit itself is not const
                        found = true;
                    }
            };
            scene::visitParts(spoil, shapeOf(kit));
            if (!found) break;
            EXPECT_TRUE(insertInto(this->segment, kit).Empty()) << "number " << spoilt;
            EXPECT_FALSE(key.Consume(kit)) << "number " << spoilt;
        }
    TypeParam back;
    EXPECT_TRUE(key.Show(back));
    EXPECT_TRUE(back == good) << "nothing was written by halves";
    SearchResults results;
    EXPECT_EQ(this->segment.Find(Search::Type::Geometry, Search::Space::SegmentOnly, results), 1u);
}

TYPED_TEST(EveryGeometry, HasItsTypeItsSearchAndItsExtent)
{
    auto key = insertInto(this->segment, this->sample());
    auto const* const kind =
        std::find_if(std::begin(kinds), std::end(kinds), [&](Kind const& k) { return k.type == key.Type(); });
    ASSERT_NE(kind, std::end(kinds));
    EXPECT_TRUE(key.HasType(Type::GeometryKey));
    SearchResults results;
    EXPECT_EQ(this->segment.Find(kind->search, Search::Space::SegmentOnly, results), 1u);

    SimpleSphere sphere;
    SimpleCuboid box;
    auto const shown = this->segment.GetBoundingControl().ShowVolume(sphere, box);
    ASSERT_EQ(shown, kind->box.has_value());
    if (!shown) return;
    for (auto const& [have, want] :
         {std::pair(box.min, kind->box->min), std::pair(box.max, kind->box->max)}) {
        EXPECT_NEAR(have.x, want.x, 1e-5);
        EXPECT_NEAR(have.y, want.y, 1e-5);
        EXPECT_NEAR(have.z, want.z, 1e-5);
    }
    key.Delete();
    EXPECT_FALSE(this->segment.GetBoundingControl().ShowVolume(sphere, box));
}

class Refused : public Scene
{
};
// The numbers are fine but the shape is not.
TEST_F(Refused, ShapesThatAreNone)
{
    Sample const s{root};
    auto const curve = [&] { return static_cast<NURBSCurveKit>(s); };
    auto const surface = [&] { return static_cast<NURBSSurfaceKit>(s); };
    auto const cylinder = [&] { return static_cast<CylinderKit>(s); };
    auto const shell = [&] { return static_cast<ShellKit>(s); };
    std::pair<char const*, Key> const cases[] = {
        {"a mesh of one row", root.InsertMesh(1, 4, s.row)},
        {"a mesh with points missing", root.InsertMesh(2, 3, s.row)},
        {"a mesh whose product overflows", root.InsertMesh(std::size_t(1) << 63, 2, s.row)},
        {"a curve of degree 0", root.InsertNURBSCurve(curve().SetDegree(0))},
        {"a curve of too many degrees", root.InsertNURBSCurve(curve().SetDegree(std::size_t(-1)))},
        {"knots that fall", root.InsertNURBSCurve(curve().SetKnots({0, 0, 0, 2, 1, 2, 2}))},
        {"knots without a range", root.InsertNURBSCurve(curve().SetKnots({1, 1, 1, 1, 1, 1, 1}))},
        {"a knot too few", root.InsertNURBSCurve(curve().SetKnots({0, 0, 0, 2, 2, 2}))},
        {"a weight of zero", root.InsertNURBSCurve(curve().SetWeights({1, 0, 1, 1}))},
        {"a weight too few", root.InsertNURBSCurve(curve().SetWeights({1, 1, 1}))},
        {"parameters the wrong way", root.InsertNURBSCurve(curve().SetParameters(1, 0))},
        {"a surface without points", root.InsertNURBSSurface(surface().SetUCount(0))},
        {"a surface with points missing", root.InsertNURBSSurface(surface().SetUCount(3))},
        {"a trim of two points", root.InsertNURBSSurface(surface().SetTrims({TrimKit()}))},
        {"a cylinder of one point", root.InsertCylinder(cylinder().SetPoints({{0, 0, 0}}))},
        {"a cylinder that stands still", root.InsertCylinder({1, 1, 1}, {1, 1, 1}, 1)},
        {"radii for other points", root.InsertCylinder(cylinder().SetRadii({1, 2, 3}))},
        {"a negative radius", root.InsertCylinder({0, 0, 0}, {1, 1, 1}, -1)},
        {"a sphere without radius", root.InsertSphere({0, 0, 0}, 0)},
        {"a circle without normal", root.InsertCircle({0, 0, 0}, 1, {0, 0, 0})},
        {"an arc back to its start", root.InsertCircularArc({1, 0, 0}, {0, 1, 0}, {1, 0, 0})},
        {"an ellipse without an axis", root.InsertEllipse({0, 0, 0}, {0, 0, 0}, {1, 0, 0})},
        {"an arc of more than a turn", root.InsertEllipticalArc({}, {1, 0, 0}, {0, 1, 0}, 0, 2)},
        {"a grid without columns", root.InsertGrid(Grid::Type::Radial, {}, {1, 0, 0}, {0, 1, 0}, 0, 1)},
        {"a line from a point to itself", root.InsertInfiniteLine({1, 1, 1}, {1, 1, 1})},
        {"a spotlight on itself", root.InsertSpotlight({1, 1, 1}, {1, 1, 1})},
        {"a plane without normal", root.InsertCuttingSection(Plane(0, 0, 0, 1))},
        {"no planes", root.InsertCuttingSection(std::vector<Plane>())},
        {"a reference to nothing", root.ReferenceGeometry(GeometryKey())},
        {"visibility behind the last face",
         root.InsertShell(shell().SetFaceVisibilitiesByRange(0, {true, false, true}))},
        {"parameters behind the last vertex",
         root.InsertShell(shell().SetVertexParametersByRange(3, {0, 0, 1, 1}))},
        {"an index colour behind the last face", root.InsertShell(shell().SetFaceIndexColorsByRange(2, {1}))},
    };
    for (auto const& [what, key] : cases) EXPECT_TRUE(key.Empty()) << what;
}

TEST_F(Refused, AReferenceFollowsItsTargetButNoOtherReference)
{
    auto marker = root.Subsegment("target").InsertMarker({1, 2, 3});
    auto place = root.Subsegment("place");
    auto reference = place.ReferenceGeometry(marker);
    ASSERT_FALSE(reference.Empty());
    EXPECT_TRUE(root.ReferenceGeometry(reference).Empty());
    Key target;
    EXPECT_TRUE(reference.ShowTarget(target) && target == marker);
    reference.SetModellingMatrix(MatrixKit().Translate(0, 0, 5));
    MatrixKit matrix;
    EXPECT_TRUE(reference.ShowModellingMatrix(matrix));
    SimpleSphere sphere;
    SimpleCuboid box;
    ASSERT_TRUE(place.GetBoundingControl().ShowVolume(sphere, box));
    EXPECT_EQ(box.min, Point(1, 2, 8));
    reference.UnsetModellingMatrix();
    EXPECT_FALSE(reference.ShowModellingMatrix(matrix));

    scene::ChangeCursor cursor;
    std::vector<scene::ChangeMark> marks;
    cursor.read(marks);
    auto const isMarked = [&] {
        cursor.read(marks);
        return std::any_of(marks.begin(), marks.end(), [&](auto const& mark) {
            return mark.slot == reference.Index().slot && has(mark.changes, scene::Change::Geometry);
        });
    };
    auto other = root.Subsegment("another place").ReferenceGeometry(marker);
    EXPECT_FALSE(isMarked());
    marker.SetPoint({4, 4, 4});
    ASSERT_TRUE(place.GetBoundingControl().ShowVolume(sphere, box));
    EXPECT_EQ(box.min, Point(4, 4, 4)) << "the target moved";
    EXPECT_TRUE(isMarked());
    auto second = root.InsertMarker({9, 9, 9});
    reference.SetTarget(second);
    marker.SetPoint({5, 5, 5});
    ASSERT_TRUE(place.GetBoundingControl().ShowVolume(sphere, box));
    EXPECT_EQ(box.min, Point(9, 9, 9));
    root.Subsegment("target").Delete();
    EXPECT_FALSE(SegmentKey(other.Owner()).GetBoundingControl().ShowVolume(sphere, box));
    EXPECT_TRUE(place.GetBoundingControl().ShowVolume(sphere, box));
    root.Flush(Search::Type::Marker);
    EXPECT_FALSE(place.GetBoundingControl().ShowVolume(sphere, box)) << "the target is gone";
    EXPECT_TRUE(isMarked());
    EXPECT_TRUE(reference.ShowTarget(target) && target.Empty());
}

TEST_F(Refused, AKeyIsChangedInPlace)
{
    auto ellipse = root.InsertEllipse({0, 0, 0}, {1, 0, 0}, {0, 1, 0});
    ellipse.SetCenter({5, 0, 0}).SetMajor({7, 0, 0}).SetMinor({5, 1, 0});
    SimpleSphere sphere;
    SimpleCuboid box;
    ASSERT_TRUE(root.GetBoundingControl().ShowVolume(sphere, box));
    EXPECT_EQ(box.max, Point(7, 1, 0));
    ellipse.SetMajor({5, 0, 0});
    Point major;
    EXPECT_TRUE(ellipse.ShowMajor(major) && major == Point(7, 0, 0)) << "a change that is none is not made";
    ellipse.Delete();
    EXPECT_FALSE(ellipse.SetCenter({}).ShowCenter(major));
}

TEST(Polyhedron, ColoursIndicesParametersAndVisibilities)
{
    ShellKit kit;
    kit.SetPoints(std::vector<Point>(4)).SetFacelist({3, 0, 1, 2, 3, 0, 2, 3});
    kit.SetVertexRGBColorsByRange(0, std::vector<RGBColor>(3, RGBColor::Red()));
    kit.SetVertexIndexColorsByRange(1, {5});
    std::vector<bool> isSet;
    std::vector<Material::Type> types;
    std::vector<RGBAColor> colors;
    std::vector<float> numbers;
    ASSERT_TRUE(kit.ShowVertexColors(ShellKit::Component::Faces, isSet, types, colors, numbers));
    using enum Material::Type;
    EXPECT_THAT(types, testing::ElementsAre(RGBAColor, MaterialIndex, RGBAColor, None));
    EXPECT_EQ(numbers[1], 5);
    kit.UnsetVertexColors();
    EXPECT_FALSE(kit.ShowVertexColors(ShellKit::Component::Faces, isSet, colors));
    EXPECT_EQ(kit.data().colors, nullptr);

    std::size_t width = 0;
    kit.SetVertexParametersByRange(1, {0, 0.5f, 1, 1}, 2);
    ASSERT_TRUE(kit.ShowVertexParameters(isSet, numbers, width));
    EXPECT_EQ(width, 2u);
    EXPECT_THAT(isSet, testing::ElementsAre(false, true, true, false));
    EXPECT_EQ(numbers[3], 0.5f);

    std::vector<bool> visible;
    kit.SetFaceVisibilitiesByRange(1, {false});
    ASSERT_TRUE(kit.ShowFaceVisibilities(isSet, visible));
    EXPECT_THAT(isSet, testing::ElementsAre(false, true));
    MaterialMappingKit mapping;
    EXPECT_FALSE(kit.ShowMaterialMapping(mapping));
    kit.SetMaterialMapping(MaterialMappingKit().SetFaceColor(HPS::RGBAColor(1, 0, 0)));
    EXPECT_TRUE(kit.ShowMaterialMapping(mapping));
    kit.UnsetMaterialMapping().UnsetFaceVisibilities().UnsetVertexParameters();
    EXPECT_EQ(kit.data().extras, nullptr) << "nothing is kept for nothing";
}

} // namespace
