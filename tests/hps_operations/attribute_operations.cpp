#include "operation.h"

using namespace HPS;

namespace
{

RGBAColor faceColor(SegmentKey const& segment)
{
    RGBColor color;
    MaterialKit material;
    float index = 0;
    Material::Type type{};
    if (!segment.GetMaterialMappingControl().ShowFrontFaceMaterial(type, material, index)) return {};
    return material.ShowDiffuseColor(color) ? RGBAColor(color, 1) : RGBAColor();
}

} // namespace

OperationRows attributeOperations()
{
    return {
        {"SegmentKey::Set, Show and Unset of every kit", "scene inspector",
         [](Bench& b) {
#define CHECK_KIT(Name)                                                                                      \
    {                                                                                                        \
        Name##Kit kit, shown;                                                                                \
        EXPECT_FALSE(b.body.Show##Name(kit)) << #Name;                                                       \
        b.body.Set##Name(kit);                                                                               \
        EXPECT_FALSE(b.body.Show##Name(kit)) << #Name << ": nothing is set by an empty kit";                 \
        b.body.Unset##Name();                                                                                \
        EXPECT_EQ(kit, Name##Kit()) << #Name;                                                                \
        b.body.Get##Name##Control().UnsetEverything();                                                       \
        EXPECT_TRUE(kit.UnsetEverything().Empty());                                                          \
    }
             HPS_SEGMENT_KITS(CHECK_KIT)
#undef CHECK_KIT
         }},
        {"GetDefault of a kit", "scene inspector",
         [](Bench& b) {
             b.body.SetVisibility(VisibilityKit::GetDefault());
             VisibilityKit shown;
             ASSERT_TRUE(b.body.ShowVisibility(shown));
             EXPECT_EQ(shown, VisibilityKit::GetDefault());
             EXPECT_FALSE(CameraKit::GetDefault().Empty());
             EXPECT_FALSE(TextAttributeKit::GetDefault().Empty());
             EXPECT_FALSE(CullingKit::GetDefault().Empty());
             EXPECT_FALSE(SelectionOptionsKit::GetDefault().Empty());
         }},
        {"MaterialMappingControl::SetFaceColor", "styles of a view",
         [](Bench& b) {
             b.body.GetMaterialMappingControl().SetFaceColor(RGBAColor(1, 0, 0, 1),
                                                             Material::Color::Channel::DiffuseColor);
             EXPECT_EQ(faceColor(b.body), RGBAColor(1, 0, 0, 1));
         }},
        {"VisibilityControl::SetEverything", "hiding of bodies",
         [](Bench& b) {
             b.body.GetVisibilityControl().SetEverything(false);
             bool faces = true, text = true;
             EXPECT_TRUE(b.body.GetVisibilityControl().ShowFaces(faces));
             EXPECT_TRUE(b.body.GetVisibilityControl().ShowText(text));
             EXPECT_FALSE(faces || text);
             b.body.GetVisibilityControl().UnsetEverything();
             EXPECT_FALSE(b.body.GetVisibilityControl().ShowFaces(faces));
         }},
        {"AttributeLockControl::SetLock", "hiding of bodies",
         [](Bench& b) {
             b.body.GetAttributeLockControl().SetLock(AttributeLock::Type::Visibility, true);
             bool state = false;
             EXPECT_TRUE(b.body.GetAttributeLockControl().ShowLock(AttributeLock::Type::Visibility, state));
             EXPECT_TRUE(state);
             b.body.GetAttributeLockControl().UnsetLock(AttributeLock::Type::Visibility);
             AttributeLockKit kit;
             EXPECT_FALSE(b.body.ShowAttributeLock(kit));
         }},
        {"AttributeLockControl::SetSubsegmentLockOverride", "scene inspector",
         [](Bench& b) {
             using enum AttributeLock::Type;
             b.body.GetAttributeLockControl().SetSubsegmentLockOverride({Camera, Material}, {true, false});
             AttributeLockTypeArray types;
             std::vector<bool> states;
             ASSERT_TRUE(b.body.GetAttributeLockControl().ShowSubsegmentLockOverride(types, states));
             EXPECT_THAT(types, testing::ElementsAre(Material, Camera));
             EXPECT_THAT(states, testing::ElementsAre(false, true));
             b.body.GetAttributeLockControl().UnsetSubsegmentLockOverride(Everything);
             EXPECT_FALSE(b.body.GetAttributeLockControl().ShowSubsegmentLockOverride(types, states));
         }},
        {"DrawingAttributeControl::SetOverrideInternalColor", "visualisation meshes",
         [](Bench& b) {
             VisibilityKit kinds, shown;
             kinds.SetEverything(false).SetFaces(true);
             b.body.GetDrawingAttributeControl().SetOverrideInternalColor(kinds);
             ASSERT_TRUE(b.body.GetDrawingAttributeControl().ShowOverrideInternalColor(shown));
             EXPECT_EQ(shown, kinds);
         }},
        {"DrawingAttributeControl::SetFaceDisplacement", "styles of a view",
         [](Bench& b) {
             b.body.GetDrawingAttributeControl().SetFaceDisplacement(-24);
             bool state = false;
             int buckets = 0;
             ASSERT_TRUE(b.body.GetDrawingAttributeControl().ShowFaceDisplacement(state, buckets));
             EXPECT_TRUE(state);
             EXPECT_EQ(buckets, -24);
         }},
        {"ModellingMatrixControl::SetElements", "placing of instances",
         [](Bench& b) {
             std::vector<float> elements(16, 0);
             for (int i = 0; i < 4; ++i) elements[std::size_t(i) * 5] = 1;
             elements[12] = 7;
             b.instance.GetModellingMatrixControl().SetElements(16, elements.data());
             MatrixKit matrix;
             ASSERT_TRUE(b.instance.ShowModellingMatrix(matrix));
             EXPECT_EQ(matrix.Transform(Point(0, 0, 0)), Point(7, 0, 0));
             b.instance.UnsetModellingMatrix();
             EXPECT_FALSE(b.instance.ShowModellingMatrix(matrix));
         }},
        {"SegmentKey::SetTextureMatrix", "scene inspector",
         [](Bench& b) {
             b.instance.SetTextureMatrix(MatrixKit().Scale(2, 2, 2));
             MatrixKit matrix;
             ASSERT_TRUE(b.shellPath().ShowNetTextureMatrix(matrix));
             EXPECT_EQ(matrix, MatrixKit().Scale(2, 2, 2));
             b.body.SetTextureMatrix(MatrixKit());
             ASSERT_TRUE(b.shellPath().ShowNetTextureMatrix(matrix));
             EXPECT_EQ(matrix, MatrixKit()) << "set to the identity is set";
             b.body.UnsetTextureMatrix();
             b.instance.UnsetTextureMatrix();
             EXPECT_FALSE(b.shellPath().ShowNetTextureMatrix(matrix));
         }},
        {"SegmentKey::SetPriority", "scene inspector",
         [](Bench& b) {
             b.top.SetPriority(3);
             int priority = 0;
             ASSERT_TRUE(b.top.ShowPriority(priority));
             EXPECT_FALSE(b.body.ShowPriority(priority));
             ASSERT_TRUE(b.shellPath().ShowNetPriority(priority));
             EXPECT_EQ(priority, 3);
             b.shell.SetPriority(-1);
             ASSERT_TRUE(b.shellPath().ShowNetPriority(priority));
             EXPECT_EQ(priority, -1) << "a geometry's own goes before";
             b.top.UnsetPriority();
             b.shell.UnsetPriority();
             EXPECT_FALSE(b.shellPath().ShowNetPriority(priority));
         }},
        {"StyleControl::PushNamed", "scene builder",
         [](Bench& b) {
             b.body.GetStyleControl().PushNamed("hidden_brep", ConditionalExpression("hide_#42"));
             b.body.GetStyleControl().PushNamed("default_style");
             StyleKeyArray styles;
             ASSERT_TRUE(b.body.GetStyleControl().Show(styles));
             UTF8 name;
             ConditionalExpression condition;
             ASSERT_TRUE(styles.at(0).ShowName(name) && styles.at(0).ShowCondition(condition));
             EXPECT_EQ(name, UTF8("hidden_brep"));
             EXPECT_EQ(condition.Condition(), UTF8("hide_#42"));
             EXPECT_FALSE(styles.at(1).ShowCondition(condition));
             EXPECT_EQ(styles[0].Type(), Type::StyleKey);
         }},
        {"SegmentKey::SetConditions", "hiding of bodies",
         [](Bench& b) {
             b.instance.SetConditions({"hide_#1", "hide_#2"});
             UTF8Array conditions;
             ASSERT_TRUE(b.instance.GetConditionControl().ShowConditions(conditions));
             EXPECT_THAT(conditions, testing::UnorderedElementsAre(UTF8("hide_#1"), UTF8("hide_#2")));
             ASSERT_TRUE(b.shellPath().ShowNetConditions(conditions));
             EXPECT_EQ(conditions.size(), 2u);
             b.instance.SetCondition("hide_pmi");
             ASSERT_TRUE(b.instance.ShowConditions(conditions));
             EXPECT_THAT(conditions, testing::ElementsAre(UTF8("hide_pmi")));
             b.instance.UnsetConditions();
             EXPECT_FALSE(b.instance.ShowConditions(conditions));
         }},
        {"IncludeKey and StyleKey::SetFilter", "scene inspector",
         [](Bench& b) {
             using enum AttributeLock::Type;
             std::vector<AttributeLock::Type> filter;
             b.include.SetFilter({Material, Visibility});
             ASSERT_TRUE(b.include.ShowFilter(filter));
             EXPECT_THAT(filter, testing::ElementsAre(Visibility, Material));
             auto style = b.body.GetStyleControl().PushNamed("style");
             style.SetFilter(Camera).UnsetFilter({Camera});
             EXPECT_FALSE(style.ShowFilter(filter));
         }},
        {"BoundingControl::SetExclusion", "pick ray",
         [](Bench& b) {
             SimpleSphere sphere;
             SimpleCuboid box;
             ASSERT_TRUE(b.top.GetBoundingControl().ShowVolume(sphere, box));
             b.body.GetBoundingControl().SetExclusion(true);
             EXPECT_FALSE(b.top.GetBoundingControl().ShowVolume(sphere, box));
             ASSERT_TRUE(b.body.GetBoundingControl().ShowVolume(sphere, box)) << "of the excluded itself";
             EXPECT_EQ(box.max, Point(1, 1, 0));
         }},
        {"SegmentKey::SetCamera", "zoom to a node",
         [](Bench& b) {
             auto camera = CameraKit::GetDefault();
             camera.SetPosition({0, 0, 9}).SetTarget({0, 0, 1}).SetField(2, 4);
             b.view.GetSegmentKey().SetCamera(camera);
             CameraKit shown;
             ASSERT_TRUE(b.view.GetSegmentKey().ShowCamera(shown));
             Point position, target;
             ASSERT_TRUE(shown.ShowPosition(position) && shown.ShowTarget(target));
             EXPECT_EQ(position, Point(0, 0, 9));
             EXPECT_EQ(target, Point(0, 0, 1));
         }},
    };
}
