#include "TestDocument.h"
#include "scene_dump.h"

#include <gtest/gtest.h>

namespace ZelVizBase
{
namespace
{

using Kind = NarMetaInfra::ZELReference::Kind;
using Lock = HPS::AttributeLock::Type;
using Model = NarMetaInfra::ZELProductStructure;

NarMetaInfra::Matrix movedTo(float x, float y, float z)
{
    NarMetaInfra::Matrix matrix = NarMetaInfra::IdentityMatrix;
    matrix[12] = x;
    matrix[13] = y;
    matrix[14] = z;
    return matrix;
}

class ProductSceneTest : public testing::Test
{
protected:
    TestDocument Document;
    TestRenderer& Renderer = Document.SceneRenderer;
    Model& Structure = Document.Structure;

    ProductSceneTest() { Structure.SetPID(L"product"); }

    bool build() { return Renderer.BuildSceneGraphBrep(&Structure); }
    std::string product() { return dump(Document.GetModel().GetSegmentKey()); }
    std::string library() { return dump(Document.GetModel().GetLibraryKey()); }
    HPS::SegmentKey instance(char const* path) { return Renderer.GetRootKey().Subsegment(path, false); }
};

/// The text of a dump without its first line, whose name is the library's own.
std::string below(std::string const& text)
{
    return text.substr(text.find('\n') + 1);
}

TEST_F(ProductSceneTest, OnePartPlacedTwiceStandsOnce)
{
    auto const part = Structure.AddReference(Kind::Part, L"A");
    Structure.AddRootInstance(part, L"A.1")->SetTransform(movedTo(1, 2, 3));
    Structure.AddRootInstance(part, L"A.2")->SetTransform(movedTo(4, 5, 6));
    ASSERT_TRUE(build());
    EXPECT_EQ(below(product()), "  product [1 product]\n"
                                "    A.1 [2 #] @1,2,3\n"
                                "      -> part A\n"
                                "    A.2 [2 #] @4,5,6\n"
                                "      -> part A\n");
    EXPECT_EQ(below(library()), "  partreferences\n"
                                "    part A [1 A]\n");
    EXPECT_EQ(Renderer.PartCalls, 1u);
}

TEST_F(ProductSceneTest, AssembliesAreSharedAndHoldTheirInstances)
{
    auto const part = Structure.AddReference(Kind::Part, L"A");
    auto const sub = Structure.AddReference(Kind::Assembly, L"S");
    sub->AddInstance(part, L"S.A.1");
    sub->AddInstance(part, L"S.A.2")->SetHidden(true);
    Structure.AddRootInstance(sub, L"S.1");
    ASSERT_TRUE(build());
    EXPECT_EQ(below(product()), "  product [1 product]\n"
                                "    S.1 [2 #] @0,0,0\n"
                                "      -> S\n");
    EXPECT_EQ(below(library()), "  partreferences\n"
                                "    part A [1 A]\n"
                                "  subassemblyreferences\n"
                                "    - [1 S]\n"
                                "      content\n"
                                "        S.A.1 [2 #] @0,0,0\n"
                                "          -> part A\n"
                                "        S.A.2 [2 #] @0,0,0 hidden locked\n"
                                "          -> part A\n");
}

TEST_F(ProductSceneTest, AMissingFileLeavesItsPlaceOnly)
{
    Structure.AddRootInstance(Structure.AddReference(Kind::Part, L"A"), L"A.1");
    auto const missing = Structure.AddReference(Kind::Missing, L"M");
    Structure.AddRootInstance(missing, L"M.1")->SetTransform(movedTo(7, 0, 0));
    ASSERT_TRUE(build());
    EXPECT_EQ(dump(instance("M.1")), "M.1 [2 #] @7,0,0\n");
    HPS::Key key;
    EXPECT_FALSE(Renderer.GetObjectMapper()->Get(L"M.1", key));
}

TEST_F(ProductSceneTest, TheMapperKnowsReferencesAndInstances)
{
    auto const part = Structure.AddReference(Kind::Part, L"A");
    auto const sub = Structure.AddReference(Kind::Assembly, L"S");
    sub->AddInstance(part, L"S.A.1");
    auto const placed = Structure.AddRootInstance(sub, L"S.1");
    ASSERT_TRUE(build());
    for (wchar_t const* pid : {L"A", L"S", L"S.A.1", L"S.1"}) {
        HPS::Key key;
        EXPECT_TRUE(Renderer.GetObjectMapper()->Get(pid, key)) << HPS::UTF8(pid).GetBytes();
        EXPECT_TRUE(key.HasType(HPS::Type::SegmentKey));
    }
    HPS::SegmentKey segment = instance("S.1");
    unsigned long long pid = 0;
    EXPECT_TRUE(ZELSegmentTagger::GetPid(segment, pid));
    EXPECT_EQ(pid, placed->GetHashedID());
}

struct ColorCase {
    char const* Name;
    bool HasColor;
    bool HasAlpha;
    bool ColorLock;
    bool AlphaLock;
    HPS::RGBAColor Color;
};

class InstanceColorTest : public ProductSceneTest, public testing::WithParamInterface<ColorCase>
{
};

TEST_P(InstanceColorTest, ColorAndLocks)
{
    ColorCase const& wanted = GetParam();
    auto const placed = Structure.AddRootInstance(Structure.AddReference(Kind::Part, L"A"), L"A.1");
    if (wanted.HasColor) placed->SetRGBColor(255, 51, 0);
    if (wanted.HasAlpha) placed->SetAlphaColor(102);
    ASSERT_TRUE(build());

    HPS::SegmentKey segment = instance("A.1");
    HPS::Material::Type type{};
    HPS::MaterialKit material;
    float index = 0;
    bool const colored = segment.GetMaterialMappingControl().ShowFrontFaceMaterial(type, material, index);
    EXPECT_EQ(colored, wanted.HasColor);
    if (colored) {
        HPS::RGBAColor color;
        EXPECT_TRUE(material.ShowDiffuseColor(color));
        EXPECT_EQ(color, wanted.Color);
    }
    bool lock = false;
    HPS::AttributeLockControl const locks = segment.GetAttributeLockControl();
    EXPECT_EQ(locks.ShowLock(Lock::MaterialFaceDiffuseColor, lock) && lock, wanted.ColorLock);
    EXPECT_EQ(locks.ShowLock(Lock::MaterialFaceDiffuseAlpha, lock) && lock, wanted.AlphaLock);
}

INSTANTIATE_TEST_SUITE_P(Instances, InstanceColorTest,
                         testing::Values(ColorCase{"None", false, false, false, false, {}},
                                         ColorCase{"AlphaAlone", false, true, false, false, {}},
                                         ColorCase{"ColorAlone", true, false, true, false, {1, 0.2F, 0, 1}},
                                         ColorCase{"Both", true, true, true, true, {1, 0.2F, 0, 0.4F}}),
                         [](auto const& tested) { return tested.param.Name; });

TEST_F(ProductSceneTest, HiddenAndSuppressedInstances)
{
    auto const part = Structure.AddReference(Kind::Part, L"A");
    auto const both = Structure.AddRootInstance(part, L"A.1");
    both->SetHidden(true);
    both->SetSuppressed(true);
    Structure.AddRootInstance(part, L"A.2")->SetSuppressed(true);
    Structure.AddRootInstance(part, L"A.3")->SetHidden(false);
    ASSERT_TRUE(build());
    EXPECT_EQ(below(dump(Renderer.GetRootKey())), "  A.1 [2 #] @0,0,0 hidden locked excluded\n"
                                                  "    -> part A\n"
                                                  "  A.2 [2 #] @0,0,0 hidden locked excluded\n"
                                                  "    -> part A\n"
                                                  "  A.3 [2 #] @0,0,0\n"
                                                  "    -> part A\n");
    HPS::SegmentKey segment = instance("A.1");
    Renderer.Show(segment);
    EXPECT_EQ(dump(segment), "A.1 [2 #] @0,0,0 excluded\n  -> part A\n");
}

TEST_F(ProductSceneTest, ABodyHidesUnderItsOwnCondition)
{
    HPS::SegmentKey body = HPS::Database::CreateRootSegment();
    Renderer.enableConditionalHideBodyNode(body, 42);
    EXPECT_EQ(dump(body), "- style:hidden_brep?hide_#42\n");
    body.Delete();
}

TEST_F(ProductSceneTest, NothingToBuildIsFalse)
{
    EXPECT_FALSE(Renderer.BuildSceneGraphBrep(nullptr));
    EXPECT_FALSE(TestRenderer().BuildSceneGraphBrep(&Structure));
    EXPECT_FALSE(build()); // no reference at all: there is a product, but nothing of its tree
    EXPECT_EQ(below(product()), "  product [1 product]\n");
    Structure.AddReference(Kind::Part, L"A");
    EXPECT_FALSE(build()); // no root instance
}

TEST_F(ProductSceneTest, TwoReferencesWithOnePidAreOne)
{
    Structure.AddReference(Kind::Part, L"A");
    Structure.AddRootInstance(Structure.AddReference(Kind::Part, L"A"), L"A.1");
    build();
    EXPECT_EQ(Renderer.PartCalls, 1u);
}

TEST_F(ProductSceneTest, PidsThatTheLocaleCannotNarrowKeepApart)
{
    Structure.AddRootInstance(Structure.AddReference(Kind::Part, L"\u5de6"), L"\u5de6.1");
    Structure.AddRootInstance(Structure.AddReference(Kind::Part, L"\u53f3"), L"\u53f3.1");
    ASSERT_TRUE(build());
    EXPECT_EQ(Renderer.PartCalls, 2u);
    EXPECT_EQ(Renderer.GetRootKey().GetSubsegmentCount(), 2u);
}

TEST_F(ProductSceneTest, AnAssemblyInsideItselfIsLeftEmptyAndReported)
{
    auto const part = Structure.AddReference(Kind::Part, L"A");
    auto const first = Structure.AddReference(Kind::Assembly, L"S");
    auto const second = Structure.AddReference(Kind::Assembly, L"T");
    first->AddInstance(second, L"S.T");
    second->AddInstance(first, L"T.S");
    second->AddInstance(part, L"T.A");
    Structure.AddRootInstance(first, L"S.1");
    MoraCore::ASession& session = ZELDocument::Session();
    session.ClearMessages();
    EXPECT_TRUE(build());
    // The part beside the recursive instance is there.
    EXPECT_NE(library().find("T.A [2 #]"), std::string::npos);
    ASSERT_EQ(session.Messages().size(), 1u);
    EXPECT_EQ(session.Messages().front().type, MoraCore::MessageType::Warning);
    EXPECT_NE(session.Messages().front().text.find(L"inside itself"), std::wstring::npos);
    first->RemoveInstance(0); // takes the ownership cycle apart
}

TEST_F(ProductSceneTest, FlushEmptiesAllButRootAndPortfolio)
{
    Structure.AddRootInstance(Structure.AddReference(Kind::Part, L"A"), L"A.1");
    ASSERT_TRUE(build());
    HPS::PortfolioKey const portfolio = Renderer.GetPortfolioKey();
    std::vector<HPS::LinePatternDefinition> patterns;
    portfolio.ShowAllLinePatternDefinitions(patterns);
    EXPECT_EQ(patterns.size(), 9u);
    Renderer.Flush();
    EXPECT_EQ(below(product()) + below(library()), "");
    HPS::Key key;
    EXPECT_FALSE(Renderer.GetObjectMapper()->Get(L"A.1", key));
    EXPECT_EQ(Renderer.GetPortfolioKey(), portfolio);
    ASSERT_TRUE(build());
    EXPECT_EQ(Renderer.PartCalls, 2u);
    EXPECT_EQ(below(product()), "  product [1 product]\n"
                                "    A.1 [2 #] @0,0,0\n"
                                "      -> part A\n");
}

TEST_F(ProductSceneTest, ASecondBuildWithoutFlushMakesNoReferenceAgain)
{
    Structure.AddRootInstance(Structure.AddReference(Kind::Part, L"A"), L"A.1");
    ASSERT_TRUE(build());
    EXPECT_FALSE(build()); // no reference was initialised, so there is nothing to report success of
    EXPECT_EQ(Renderer.PartCalls, 1u);
}

} // namespace
} // namespace ZelVizBase
