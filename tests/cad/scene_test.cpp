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
