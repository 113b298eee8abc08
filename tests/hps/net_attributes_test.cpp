#include "net_attributes.h"
#include "support.h"

using namespace HPS;
using namespace HPS::scene;
using LockType = AttributeLock::Type;

namespace
{

class Net : public Scene
{
protected:
    NetFold fold;
    PortfolioKey portfolio = Database::CreatePortfolio();

    Net() { root.GetPortfolioControl().Push(portfolio); }
    ~Net() override { portfolio.Delete(); }

    // What holds at the last of a chain of segments.
    NetStatePointer at(std::initializer_list<SegmentKey> path)
    {
        auto state = fold.root().state;
        for (auto const& key : path) state = fold.state(state, *store().resolve<SegmentRecord>(key));
        return state;
    }
    std::optional<bool> faces(std::initializer_list<SegmentKey> path)
    {
        auto const& data = at(path)->get<VisibilityData>();
        return data.isSet & VisibilityData::bit(VisibilityData::Faces)
                   ? std::optional(data.shows(VisibilityData::Faces, false))
                   : std::nullopt;
    }
    std::optional<RGBColor> faceColor(std::initializer_list<SegmentKey> path)
    {
        auto const& material = at(path)->get<MaterialMappingData>().frontFace;
        return material ? material->values().diffuseColor : std::nullopt;
    }
    SegmentKey style(char const* name)
    {
        auto const source = root.Subsegment("style sources").Subsegment(name);
        portfolio.DefineNamedStyle(name, source);
        return source;
    }
};

RGBColor const red(1, 0, 0), green(0, 1, 0), blue(0, 0, 1);

TEST_F(Net, UnsetIsNotDefault)
{
    auto child = root.Subsegment("child");
    EXPECT_EQ(faces({root, child}), std::nullopt);
    child.GetVisibilityControl().SetFaces(true);
    EXPECT_EQ(faces({root, child}), true);
    child.GetVisibilityControl().UnsetFaces();
    EXPECT_EQ(faces({root, child}), std::nullopt);
}

TEST_F(Net, DeeperValuesWinAspectByAspect)
{
    auto child = root.Subsegment("child");
    root.GetVisibilityControl().SetFaces(true).SetLines(true);
    child.GetVisibilityControl().SetFaces(false);
    auto const& data = at({root, child})->get<VisibilityData>();
    EXPECT_FALSE(data.shows(VisibilityData::Faces, true));
    EXPECT_TRUE(data.shows(VisibilityData::Lines, false));
}

TEST_F(Net, ALockKeepsWhatIsBelowButNotItsOwnSegment)
{
    auto child = root.Subsegment("child"), deep = child.Subsegment("deep");
    root.GetVisibilityControl().SetFaces(true);
    child.GetVisibilityControl().SetFaces(false);
    child.GetAttributeLockControl().SetLock(LockType::Visibility);
    deep.GetVisibilityControl().SetFaces(true).SetLines(true);
    EXPECT_EQ(faces({root, child}), false);
    EXPECT_EQ(faces({root, child, deep}), false);
    bool lines = at({root, child, deep})->get<VisibilityData>().shows(VisibilityData::Lines, false);
    EXPECT_FALSE(lines) << "the lock also keeps what nobody has set";
}

TEST_F(Net, ALockOnAColourLeavesTheAlphaFree)
{
    auto instance = root.Subsegment("instance"), shared = instance.Subsegment("shared");
    instance.GetMaterialMappingControl().SetFaceColor(RGBAColor(red, 1),
                                                      Material::Color::Channel::DiffuseColor);
    instance.GetAttributeLockControl().SetLock(LockType::MaterialFaceDiffuseColor, true);
    shared.GetMaterialMappingControl().SetFaceColor(RGBAColor(green, 0.5f));
    EXPECT_EQ(faceColor({root, instance, shared}), red);
    auto const state = at({root, instance, shared});
    auto const& face = state->get<MaterialMappingData>().frontFace;
    EXPECT_EQ(face->values().diffuseAlpha, 0.5f);

    instance.GetAttributeLockControl().SetLock(LockType::MaterialFaceDiffuseAlpha, true);
    auto const both = at({root, instance, shared});
    EXPECT_EQ(both->get<MaterialMappingData>().backFace->values().diffuseAlpha, 1);
}

TEST_F(Net, ALockedColourStandsOverAPaletteIndexFromBelow)
{
    auto instance = root.Subsegment("instance"), shared = instance.Subsegment("shared");
    instance.GetMaterialMappingControl().SetFaceColor(RGBAColor(red, 1));
    instance.GetMaterialMappingControl().SetFaceMaterial(MaterialKit().SetGloss(9));
    instance.GetAttributeLockControl().SetLock(LockType::MaterialFaceDiffuseColor, true);
    shared.GetMaterialMappingControl().SetFaceMaterialByIndex(2);
    auto const state = at({root, instance, shared});
    auto const& face = *state->get<MaterialMappingData>().frontFace;
    EXPECT_EQ(face.index, 2);
    EXPECT_EQ(face.values().diffuseColor, red);
    EXPECT_EQ(face.values().gloss, std::nullopt) << "the index takes the place of what is not locked";
}

TEST_F(Net, AStateOfFalseIsNoLock)
{
    auto child = root.Subsegment("child");
    root.GetVisibilityControl().SetFaces(true);
    root.GetAttributeLockControl().SetLock(LockType::Visibility, false);
    child.GetVisibilityControl().SetFaces(false);
    EXPECT_EQ(faces({root, child}), false);
}

TEST_F(Net, TextureMatrixPriorityAndPaletteAreInheritedStyledAndLocked)
{
    auto child = root.Subsegment("child"), deep = child.Subsegment("deep");
    auto const twice = MatrixKit().Scale(2, 2, 2), thrice = MatrixKit().Scale(3, 3, 3);
    EXPECT_EQ(at({root, child})->textureMatrix, std::nullopt);
    root.SetTextureMatrix(twice).SetPriority(1).SetMaterialPalette("first");
    EXPECT_EQ(at({root, child, deep})->textureMatrix, twice);
    EXPECT_EQ(at({root, child, deep})->priority, 1);
    child.SetTextureMatrix(thrice).SetPriority(2).SetMaterialPalette("second");
    EXPECT_EQ(at({root, child, deep})->textureMatrix, thrice);
    EXPECT_EQ(at({root, child, deep})->priority, 2);
    EXPECT_EQ(at({root, child, deep})->materialPalette, "second");

    auto source = style("styled");
    source.SetPriority(7);
    deep.GetStyleControl().PushNamed("styled");
    EXPECT_EQ(at({root, child, deep})->priority, 7);
    deep.SetPriority(8);
    EXPECT_EQ(at({root, child, deep})->priority, 8) << "the segment's own comes after its styles";
    root.GetAttributeLockControl().SetLock(LockType::Everything, true);
    EXPECT_EQ(at({root, child, deep})->priority, 1);
    EXPECT_EQ(at({root, child, deep})->textureMatrix, twice);
    EXPECT_EQ(at({root, child, deep})->materialPalette, "first");
}

TEST_F(Net, AnOverrideFreesWhatIsBelow)
{
    auto a = root.Subsegment("a"), b = a.Subsegment("b"), c = b.Subsegment("c");
    root.GetVisibilityControl().SetFaces(false);
    root.GetAttributeLockControl().SetLock(LockType::Visibility);
    for (auto segment : {a, b, c}) segment.GetVisibilityControl().SetFaces(true);
    EXPECT_EQ(faces({root, a, b, c}), false);
    b.GetAttributeLockControl().SetSubsegmentLockOverride(LockType::Visibility);
    EXPECT_EQ(faces({root, a, b}), false) << "the override is for those below it";
    EXPECT_EQ(faces({root, a, b, c}), true);
}

TEST_F(Net, LocksOfOneKindLeaveTheOthers)
{
    auto child = root.Subsegment("child");
    root.GetVisibilityControl().SetFaces(false).SetLines(false);
    root.GetAttributeLockControl().SetLock(LockType::VisibilityGeometry).SetLock(LockType::Camera);
    child.GetVisibilityControl().SetLines(true).SetCutFaces(true);
    child.GetLineAttributeControl().SetWeight(3);
    child.GetCameraControl().SetNearLimit(0.5f);
    auto const net = at({root, child});
    EXPECT_FALSE(net->get<VisibilityData>().shows(VisibilityData::Lines, true));
    EXPECT_TRUE(net->get<VisibilityData>().shows(VisibilityData::CutFaces, false));
    EXPECT_TRUE(net->get<LineAttributeData>().weight);
    EXPECT_FALSE(net->get<CameraData>().nearLimit);
}

TEST_F(Net, StylesComeInTheOrderPushedAndBeforeTheSegmentsOwn)
{
    auto child = root.Subsegment("child");
    style("first").GetMaterialMappingControl().SetFaceColor(RGBAColor(red));
    style("second").GetMaterialMappingControl().SetFaceColor(RGBAColor(green));
    child.GetStyleControl().PushNamed("first");
    child.GetStyleControl().PushNamed("second");
    EXPECT_EQ(faceColor({root, child}), green);
    child.GetMaterialMappingControl().SetFaceColor(RGBAColor(blue));
    EXPECT_EQ(faceColor({root, child}), blue);
    child.UnsetMaterialMapping();
    EXPECT_TRUE(child.GetStyleControl().Pop());
    EXPECT_EQ(faceColor({root, child}), red);
}

TEST_F(Net, ALockFromAStyleKeepsTheSegmentItselfToo)
{
    auto body = root.Subsegment("body"), face = body.Subsegment("face");
    auto hidden = style("hidden");
    hidden.GetVisibilityControl().SetEverything(false);
    hidden.GetAttributeLockControl().SetLock(LockType::Visibility, true);
    style("shown").GetVisibilityControl().SetFaces(true);
    body.GetStyleControl().PushNamed("hidden");
    body.GetStyleControl().PushNamed("shown");
    body.GetVisibilityControl().SetFaces(true);
    face.GetVisibilityControl().SetFaces(true);
    EXPECT_EQ(faces({root, body}), false);
    EXPECT_EQ(faces({root, body, face}), false);
}

TEST_F(Net, AStyleOfAnUnknownOrDeletedSourceAppliesNothing)
{
    auto child = root.Subsegment("child");
    child.GetStyleControl().PushNamed("unknown");
    auto source = style("gone");
    source.GetVisibilityControl().SetFaces(false);
    child.GetStyleControl().PushNamed("gone");
    EXPECT_EQ(faces({root, child}), false);
    source.Delete();
    EXPECT_EQ(faces({root, child}), std::nullopt);
    style("unknown").GetVisibilityControl().SetFaces(true);
    EXPECT_EQ(faces({root, child}), true) << "the name is looked up each time";
}

TEST_F(Net, ConditionsOfOnePathHideASharedSegmentOnThatPathAlone)
{
    auto hidden = style("hidden_brep");
    hidden.GetVisibilityControl().SetEverything(false);
    hidden.GetAttributeLockControl().SetLock(LockType::Visibility, true);
    auto shared = root.Subsegment("shared"), body = shared.Subsegment("body");
    body.GetStyleControl().PushNamed("hidden_brep", ConditionalExpression("hide_#7"));
    auto one = root.Subsegment("one"), two = root.Subsegment("two");
    one.SetCondition("hide_#7");
    two.SetConditions({"hide_#8", "hide_pmi"});
    root.GetVisibilityControl().SetFaces(true);
    EXPECT_EQ(faces({root, one, shared, body}), false);
    EXPECT_EQ(faces({root, two, shared, body}), true);
    one.UnsetConditions();
    EXPECT_EQ(faces({root, one, shared, body}), true);
    root.SetCondition("hide_#7");
    EXPECT_EQ(faces({root, two, shared, body}), false) << "set above holds below";
    body.SetCondition("hide_#7");
    root.UnsetConditions();
    EXPECT_EQ(faces({root, two, shared, body}), false) << "set on the segment itself holds for its styles";
}

TEST_F(Net, AChangedStyleSourceReachesAllWhoUseIt)
{
    auto source = style("default_style");
    source.GetMaterialMappingControl().SetFaceColor(RGBAColor(red));
    auto child = root.Subsegment("child");
    child.GetStyleControl().PushNamed("default_style");
    EXPECT_EQ(faceColor({root, child}), red);
    source.GetMaterialMappingControl().SetFaceColor(RGBAColor(green));
    EXPECT_EQ(faceColor({root, child}), green);
    auto const other = root.Subsegment("style sources").Subsegment("other");
    SegmentKey(other).GetMaterialMappingControl().SetFaceColor(RGBAColor(blue));
    portfolio.DefineNamedStyle("default_style", other);
    EXPECT_EQ(faceColor({root, child}), blue);
}

TEST_F(Net, PortfoliosAreAskedFromTheLastPushedUpwards)
{
    auto child = root.Subsegment("child");
    auto near = Database::CreatePortfolio();
    portfolio.DefineMaterialPalette("colours", {MaterialKit().SetDiffuse(red)});
    near.DefineMaterialPalette("colours", {MaterialKit().SetDiffuse(green), MaterialKit()});
    child.SetMaterialPalette("colours");
    ASSERT_TRUE(at({root, child})->palette());
    EXPECT_EQ(at({root, child})->palette()->size(), 1u);
    child.GetPortfolioControl().Push(near);
    EXPECT_EQ(at({root, child})->palette()->size(), 2u);
    near.Delete();
    EXPECT_EQ(at({root, child})->palette()->size(), 1u) << "a deleted portfolio is passed over";
}

TEST_F(Net, EqualStatesAreTheSame)
{
    auto a = root.Subsegment("a"), b = root.Subsegment("b"), c = root.Subsegment("c");
    a.GetMaterialMappingControl().SetFaceColor(RGBAColor(red));
    b.GetMaterialMappingControl().SetFaceColor(RGBAColor(green)).SetFaceColor(RGBAColor(red));
    c.GetMaterialMappingControl().SetFaceColor(RGBAColor(green));
    EXPECT_EQ(at({root, a}), at({root, b}));
    EXPECT_NE(at({root, a}), at({root, c}));
    EXPECT_EQ(at({root, a, b}), at({root, a}));
    auto const before = at({root, c});
    c.GetVisibilityControl().SetFaces(true);
    EXPECT_NE(at({root, c}), before);
    EXPECT_EQ(at({root, c})->block(KitKind::MaterialMapping), before->block(KitKind::MaterialMapping));
    c.UnsetVisibility();
    EXPECT_EQ(at({root, c}), before);
}

TEST_F(Net, MatricesComposeFromTheLeafUp)
{
    auto child = root.Subsegment("child");
    root.GetModellingMatrixControl().Translate(10, 0, 0);
    child.GetModellingMatrixControl().Scale(2, 2, 2);
    auto const& top = *store().resolve<SegmentRecord>(root);
    auto const net = fold.step(fold.step(fold.root(), top), *store().resolve<SegmentRecord>(child));
    EXPECT_EQ(net.matrix.Transform(Point(1, 1, 1)), Point(12, 2, 2));
}

TEST_F(Net, AnOverlayIsKeptByLocks)
{
    auto child = root.Subsegment("child");
    auto highlight = style("highlight_style");
    highlight.GetVisibilityControl().SetMarkers(false);
    highlight.GetMaterialMappingControl().SetFaceColor(RGBAColor(blue));
    auto const& source = *store().resolve<SegmentRecord>(highlight);
    child.GetMaterialMappingControl().SetFaceColor(RGBAColor(red));
    EXPECT_EQ(
        fold.overlay(at({root, child}), source)->get<MaterialMappingData>().frontFace->values().diffuseColor,
        blue);
}

TEST_F(Net, AFilteredStyleGivesAllButWhatIsFiltered)
{
    auto child = root.Subsegment("child"), source = style("s");
    source.GetMaterialMappingControl().SetFaceColor(RGBAColor(blue));
    source.GetVisibilityControl().SetFaces(false);
    auto pushed = child.GetStyleControl().PushNamed("s");
    ASSERT_EQ(faceColor({root, child}), blue);
    pushed.SetFilter(LockType::Material);
    EXPECT_EQ(faceColor({root, child}), std::nullopt);
    EXPECT_EQ(faces({root, child}), false);
    pushed.SetFilter(LockType::Everything);
    EXPECT_EQ(faces({root, child}), std::nullopt);
    child.GetVisibilityControl().SetFaces(true);
    EXPECT_EQ(faces({root, child}), true) << "the segment's own attributes are not filtered";
    child.UnsetVisibility();
    pushed.UnsetFilter({LockType::Everything});
    EXPECT_EQ(faces({root, child}), false);
    EXPECT_EQ(faceColor({root, child}), std::nullopt);
    pushed.UnsetFilter();
    EXPECT_EQ(faceColor({root, child}), blue);
}

TEST_F(Net, AFilteredIncludeKeepsWhatHoldsWhereItStands)
{
    auto part = root.Subsegment("part"), inner = part.Subsegment("inner"), user = root.Subsegment("user");
    part.GetMaterialMappingControl().SetFaceColor(RGBAColor(red));
    inner.GetMaterialMappingControl().SetFaceColor(RGBAColor(green));
    inner.GetVisibilityControl().SetFaces(false);
    user.GetMaterialMappingControl().SetFaceColor(RGBAColor(blue));
    auto plain = user.IncludeSegment(part), filtered = user.IncludeSegment(part);
    filtered.SetFilter(LockType::MaterialFace);
    auto const inside = [&](IncludeKey const& include) {
        auto net = fold.through({at({root, user}), MatrixKit()}, *store().resolve<IncludeRecord>(include));
        for (auto const& key : {part, inner}) net = fold.step(net, *store().resolve<SegmentRecord>(key));
        return net.state;
    };
    auto const colorIn = [&](IncludeKey const& include) {
        return inside(include)->get<MaterialMappingData>().frontFace->values().diffuseColor;
    };
    EXPECT_EQ(colorIn(plain), green);
    EXPECT_EQ(colorIn(filtered), blue);
    EXPECT_FALSE(inside(filtered)->get<VisibilityData>().shows(VisibilityData::Faces, true));

    std::vector<LockType> types;
    ASSERT_TRUE(filtered.ShowFilter(types));
    EXPECT_EQ(types, std::vector{LockType::MaterialFace});
    EXPECT_FALSE(plain.ShowFilter(types));
    filtered.Delete();
    auto const next = user.IncludeSegment(part);
    EXPECT_FALSE(next.ShowFilter(types)) << "a filter goes with its include";
    EXPECT_FALSE(filtered.SetFilter(LockType::Camera).ShowFilter(types));
}

} // namespace
