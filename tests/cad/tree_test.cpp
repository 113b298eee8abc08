#include "Plates.h"

#include "CadTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <unistd.h>

using ZELVizCore::EntityId;
using ZELVizCore::EntityType;
using ZELVizCore::RenderId;
using ZELVizCore::Settings;

namespace
{

constexpr NarMeta::Id First = 2'000'000;

/// Shows bodies in the tree for as long as it lives.
struct BodiesInTree {
    BodiesInTree() { Settings::Current().DisplayBrepInTree = true; }
    ~BodiesInTree() { Settings::Current().DisplayBrepInTree = false; }
};

std::vector<std::wstring> names(PlateDocument const& plates)
{
    std::vector<std::wstring> names;
    for (auto const& item : plates.view.GetTreeBuilder().Items()) names.push_back(item.name);
    return names;
}

/// One part of two bodies, the second of them nameless and hidden.
void fill(PlateDocument& plates)
{
    auto const part = plates.part(L"part");
    part->AddBody(plate(First)).name = L"Lid";
    part->AddBody(plate(First + 10)).hidden = true;
    plates.model.AddRootInstance(part, L"part.1", L"Part.1");
}

} // namespace

TEST(CadTree, bodiesStandInTheTreeWhenAskedFor)
{
    PlateDocument plates;
    fill(plates);
    plates.document.Render(false);
    EXPECT_THAT(names(plates), testing::ElementsAre(L"ROOT", L"Plates", L"Part.1"));

    BodiesInTree const shown;
    plates.document.Render(true);
    EXPECT_THAT(names(plates),
                testing::ElementsAre(L"ROOT", L"Plates", L"Part.1", L"Bodies", L"Lid", L"Body 2 (hidden)"));
    EXPECT_FALSE(plates.view.GetTreeBuilder().Items().back().visible);
    EXPECT_TRUE(plates.view.GetTreeBuilder().Items()[4].visible);
}

TEST(CadTree, bodiesAndFacesOfAPartConvertBothWays)
{
    for (bool const shown : {false, true}) {
        SCOPED_TRACE(shown);
        Settings::Current().DisplayBrepInTree = shown;
        PlateDocument plates;
        fill(plates);
        plates.document.Render(false);
        Settings::Current().DisplayBrepInTree = false;

        RenderId body;
        ASSERT_TRUE(plates.document.ConvertToRender({80000, EntityType::Body, First}, body));
        ASSERT_EQ(body.Length(), 5);
        EXPECT_EQ(body[3], 80000u);
        EXPECT_EQ(body[4], First);
        EntityId entity;
        ASSERT_TRUE(plates.document.ConvertToEntity(body, entity));
        EXPECT_EQ(entity, EntityId(80000, EntityType::Body, First));

        RenderId face;
        ASSERT_TRUE(plates.document.ConvertToRender({First, EntityType::Face, First + 1}, face));
        body.AddValue(First + 1);
        EXPECT_EQ(face, body);
        std::vector<EntityId> bodies;
        EXPECT_TRUE(plates.document.GetTreeContentRenderer()->GetBodyList(bodies));
        EXPECT_EQ(bodies.size(), 2u);
    }
}

TEST(CadTree, anIdThatIsTooShortConvertsToNothing)
{
    PlateDocument plates;
    fill(plates);
    plates.document.Render(false);
    EntityId entity;
    EXPECT_FALSE(plates.document.ConvertToEntity({}, entity));
    EXPECT_FALSE(plates.document.ConvertToEntity({{1}, RenderId::OriginEnum::Visualisation}, entity));
}

TEST(CadTree, nodesAreFoundByAnyPartOfTheirName)
{
    PlateDocument plates;
    fill(plates);
    plates.document.Render(false);
    std::vector<RenderId> found;
    EXPECT_TRUE(plates.document.FindNodes(L"PART", found));
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].Length(), 3);
    EXPECT_FALSE(plates.document.FindNodes(L"wheel", found));
}

TEST(CadDocument, aNodeHasProperties)
{
    PlateDocument plates;
    fill(plates);
    plates.document.Render(false);
    std::vector<RenderId> found;
    ASSERT_TRUE(plates.document.FindNodes(L"part", found));
    std::vector<std::pair<std::wstring, std::wstring>> properties;
    ASSERT_TRUE(plates.document.GetProperties(found[0], properties));
    EXPECT_THAT(properties, testing::IsSupersetOf(
                                {testing::Pair(L"Name", L"Part.1"), testing::Pair(L"Reference", L"part"),
                                 testing::Pair(L"Bodies", L"2"), testing::Pair(L"Faces", L"2")}));
    EXPECT_FALSE(plates.document.GetProperties({{1, 2, 3}, RenderId::OriginEnum::Visualisation}, properties));
}

TEST(CadDocument, countsPartsAndBodies)
{
    PlateDocument plates;
    fill(plates);
    unsigned long long parts = 0;
    unsigned long long bodies = 0;
    plates.document.GetContentCounts(parts, bodies);
    EXPECT_EQ(parts, 1u);
    EXPECT_EQ(bodies, 2u);
}

TEST(CadDocument, aFileNamedLikeTheExtensionIsXmlToo)
{
    PlateDocument plates;
    fill(plates);
    auto const before = std::filesystem::current_path();
    auto const folder = std::filesystem::temp_directory_path() / ("cad_" + std::to_string(::getpid()));
    std::filesystem::create_directory(folder);
    std::filesystem::current_path(folder);
    EXPECT_TRUE(plates.document.Save(L"zel_xml"));
    EXPECT_FALSE(plates.document.Save(L"model")) << "no format that models are written in";
    EXPECT_TRUE(plates.document.Open(L"zel_xml"));
    EXPECT_EQ(plates.model.GetProductName(), L"Plates");
    EXPECT_FALSE(std::filesystem::exists("model"));
    std::filesystem::current_path(before);
    std::filesystem::remove_all(folder);
}
