#include "Plates.h"

#include "CadRenderer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using NarMetaInfra::ZELReference;
using ZelVizBase::ZELSegmentTagger;

namespace
{

constexpr NarMeta::Id First = 2'000'000;

HPS::Key keyOf(ZELReference const& reference, NarMeta::Id id)
{
    HPS::Key key;
    if (reference.GetObjectMapper()) reference.GetObjectMapper()->Get(id, key);
    return key;
}

HPS::SegmentKey library(PlateDocument& plates)
{
    return plates.document.GetModel().GetLibraryKey();
}

} // namespace

TEST(CadScene, everyEntityIsTaggedAndStandsTwoSegmentsBelowItsBody)
{
    PlateDocument plates;
    auto const part = plates.part(L"part");
    part->AddBody(plate(First));
    part->Bodies()[0].edges[1].colour = NarMeta::Colour{0, 0, 255};
    plates.model.AddRootInstance(part, L"part.1");
    ASSERT_TRUE(plates.document.Render(false));

    struct {
        NarMeta::Id id;
        ZELSegmentTagger::TAG_TYPE tag;
        HPS::Type type;
    } const entities[] = {
        {First + 1, ZELSegmentTagger::TAG_FACE, HPS::Type::ShellKey},
        {First + 2, ZELSegmentTagger::TAG_EDGE, HPS::Type::LineKey},
        {First + 3, ZELSegmentTagger::TAG_EDGE, HPS::Type::LineKey},
        {First + 4, ZELSegmentTagger::TAG_VERTEX, HPS::Type::MarkerKey},
    };
    HPS::SegmentKey body(keyOf(*part, First));
    for (auto const& entity : entities) {
        SCOPED_TRACE(entity.id);
        HPS::GeometryKey key(keyOf(*part, entity.id));
        ASSERT_EQ(key.Type(), entity.type);
        unsigned long long pid = 0;
        ZELSegmentTagger::TAG_TYPE tag = ZELSegmentTagger::TAG_NONE;
        EXPECT_TRUE(ZELSegmentTagger::GetPid(key, pid) && ZELSegmentTagger::GetType(key, tag));
        EXPECT_EQ(pid, entity.id);
        EXPECT_EQ(tag, entity.tag);
        EXPECT_EQ(key.Owner().Owner().Owner(), body);
    }
    unsigned long long pid = 0;
    EXPECT_TRUE(ZELSegmentTagger::GetPid(body, pid));
    EXPECT_EQ(pid, First);
    HPS::SegmentKey brep = body.Owner();
    EXPECT_EQ(brep.Name(), "brep");
    EXPECT_TRUE(ZELSegmentTagger::GetPid(brep, pid));
    EXPECT_EQ(pid, 80000u);
}

TEST(CadScene, theScenesKeysAnswerTheModel)
{
    PlateDocument plates;
    auto const part = plates.part(L"part");
    part->AddBody(plate(First));
    part->NameEntity(L"top", First + 1);
    plates.model.AddRootInstance(part, L"part.1");
    ASSERT_TRUE(plates.document.Render(false));

    HPS::Key key;
    EXPECT_TRUE(part->GetLinkedEntityKey({{}, L"top"}, key));
    EXPECT_EQ(key.Type(), HPS::Type::ShellKey);
    EXPECT_FALSE(part->GetLinkedEntityKey({{}, L"bottom"}, key));
}

TEST(CadScene, aReferenceHasOneSegmentHoweverOftenItIsUsed)
{
    PlateDocument plates;
    auto const part = plates.part(L"part");
    part->AddBody(plate(First));
    auto const group = plates.model.AddReference(ZELReference::Kind::Assembly, L"group", L"Group");
    group->AddInstance(part, L"group.part.1");
    group->AddInstance(part, L"group.part.2");
    plates.model.AddRootInstance(group, L"group.1");
    plates.model.AddRootInstance(group, L"group.2");
    plates.model.AddRootInstance(part, L"part.1");
    ASSERT_TRUE(plates.document.Render(false));

    EXPECT_EQ(library(plates).Subsegment("partreferences", false).GetSubsegmentCount(), 1u);
    EXPECT_EQ(library(plates).Subsegment("subassemblyreferences", false).GetSubsegmentCount(), 1u);
    EXPECT_EQ(plates.document.GetRenderer()->GetRootKey().GetSubsegmentCount(), 3u);
    HPS::IncludeKeyArray includers;
    HPS::SegmentKey(keyOf(*part, First)).Owner().Owner().ShowIncluders(includers);
    EXPECT_EQ(includers.size(), 3u); // two inside the shared group, one in the product
}

TEST(CadScene, pidsOfAnyScriptNameSegmentsOfTheirOwn)
{
    PlateDocument plates; // in the C locale, which can narrow none of these
    for (wchar_t const* pid :
         {L"\u6b6f\u8eca", L"\u9f7f\u8f6e", L"\u0448\u0435\u0441\u0442\u0435\u0440\u043d\u044f"}) {
        auto const part = plates.part(pid);
        part->AddBody(plate(First));
        plates.model.AddRootInstance(part, std::wstring(pid) + L".1");
    }
    ASSERT_TRUE(plates.document.Render(false));
    EXPECT_EQ(library(plates).Subsegment("partreferences", false).GetSubsegmentCount(), 3u);
    EXPECT_EQ(plates.document.GetRenderer()->GetRootKey().GetSubsegmentCount(), 3u);
}

TEST(CadScene, aPartOfMeshesStandsBesideOneWhoseDataIsUnknown)
{
    using namespace NarMetaVisu;
    PlateDocument plates;
    auto const addPart = [&](std::wstring const& pid, NodeType type) {
        auto const face = std::make_shared<FaceRep>(std::vector<float>{0, 0, 0, 1, 0, 0, 0, 1, 0},
                                                    std::vector<float>{0, 0, 1, 0, 0, 1, 0, 0, 1});
        face->AddPolygon({VisuPolygonType::Triangles, {0, 3, 6}});
        auto const mesh = std::make_shared<MeshRep>(NarMeta::HashId(pid));
        mesh->AddFace(face);
        auto const leaf = std::make_shared<Node>(type);
        leaf->SetMesh(mesh);
        auto const root = std::make_shared<Node>(NodeType::Root);
        root->AddChild(leaf);
        auto const visualisation = std::make_shared<SGContainer>();
        visualisation->AddRootNode(pid, root);
        auto const part = plates.part(pid);
        part->SetGraphical(true);
        part->SetSG(visualisation);
        plates.model.AddRootInstance(part, pid + L".1");
    };
    addPart(L"unknown", static_cast<NodeType>(77));
    addPart(L"mesh", NodeType::Geometry);
    ASSERT_TRUE(plates.document.Render(false));

    HPS::Key key;
    ASSERT_TRUE(plates.document.GetRenderer()->GetObjectMapper()->Get(NarMeta::HashId(L"mesh"), key));
    HPS::SearchResults found;
    EXPECT_EQ(HPS::SegmentKey(key).Find(HPS::Search::Type::Shell, HPS::Search::Space::Subsegments, found),
              1u);
    EXPECT_EQ(plates.document.GetRenderer()->GetRootKey().GetSubsegmentCount(), 2u);
}

TEST(CadScene, aMissingPartTakesNothingAway)
{
    PlateDocument plates;
    auto const part = plates.part(L"part");
    part->AddBody(plate(First));
    auto const missing = plates.model.AddReference(ZELReference::Kind::Missing, L"missing", L"Missing");
    plates.model.AddRootInstance(missing, L"missing.1");
    plates.model.AddRootInstance(part, L"part.1");
    ASSERT_TRUE(plates.document.Render(false));
    EXPECT_NE(keyOf(*part, First + 1).Type(), HPS::Type::None);
}

TEST(CadScene, aModelWithoutAnyPartSaysWhyNothingIsShown)
{
    PlateDocument plates;
    auto const errorOf = [&plates] {
        std::wstring error;
        plates.document.GetErrorAndWarnings(&error, nullptr);
        return error;
    };
    auto const missing = plates.model.AddReference(ZELReference::Kind::Missing, L"missing", L"Missing");
    plates.model.AddRootInstance(missing, L"missing.1");
    EXPECT_FALSE(plates.document.Render(false));
    EXPECT_EQ(errorOf(), L"none of the parts of this model is there to be shown");

    auto const part = plates.part(L"part");
    part->AddBody(plate(First));
    plates.model.AddRootInstance(part, L"part.1");
    EXPECT_TRUE(plates.document.Render(false));
    EXPECT_EQ(errorOf(), L"");
}

TEST(CadScene, aSecondBuildStartsFromNothing)
{
    PlateDocument plates;
    auto const part = plates.part(L"part");
    part->AddBody(plate(First));
    part->AddBody(plate(First + 10));
    plates.model.AddRootInstance(part, L"part.1");
    ASSERT_TRUE(plates.document.Render(false));
    HPS::Key const before = keyOf(*part, First);
    ASSERT_TRUE(part->RemoveBodyFromPart(First + 10));
    ASSERT_TRUE(plates.document.Render(true));

    EXPECT_EQ(before.Type(), HPS::Type::None);
    EXPECT_NE(keyOf(*part, First).Type(), HPS::Type::None);
    EXPECT_EQ(keyOf(*part, First + 10).Type(), HPS::Type::None);
    EXPECT_EQ(library(plates).Subsegment("partreferences", false).GetSubsegmentCount(), 1u);
}
