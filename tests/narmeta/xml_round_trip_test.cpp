#include "ZelXmlFormat.h"
#include "full_model.h"
#include "model_check.h"

#include <gmock/gmock.h>

#include <fstream>

using namespace NarMetaInfra;
using namespace NarMetaVisu;

namespace
{

/// The full model, written, read and checked.
class ZelXmlRoundTrip : public testing::Test
{
protected:
    void SetUp() override
    {
        FillFullModel(before_);
        text_ = *ZelXmlText(before_, nullptr);
        auto result = ReadZelXml(text_, {}, after_);
        ASSERT_EQ(result.outcome, IoOutcome::Done) << std::string(result.error.begin(), result.error.end());
        std::vector<std::wstring> warnings;
        CheckModel(after_, warnings);
        EXPECT_THAT(warnings, testing::IsEmpty());
        materials_ = std::move(result.materials);
    }

    std::shared_ptr<ZELReference> reference(std::wstring const& wanted) const
    {
        for (auto const& candidate : after_.GetReferences())
            if (std::wstring pid; candidate->GetPID(pid) && pid == wanted) return candidate;
        return {};
    }

    ZELProductStructure before_, after_;
    MaterialContainer materials_;
    std::string text_;
};

TEST_F(ZelXmlRoundTrip, WritesTheSameTextAgain)
{
    EXPECT_EQ(*ZelXmlText(after_, nullptr), text_);
}

TEST_F(ZelXmlRoundTrip, KeepsBodiesBitForBit)
{
    ASSERT_EQ(after_.GetReferences().size(), before_.GetReferences().size());
    for (std::size_t i = 0; i < before_.GetReferences().size(); ++i) {
        EXPECT_EQ(after_.GetReferences()[i]->GetBodies(), before_.GetReferences()[i]->GetBodies());
        EXPECT_EQ(after_.GetReferences()[i]->GetEntityNames(), before_.GetReferences()[i]->GetEntityNames());
        EXPECT_EQ(after_.GetReferences()[i]->GetKind(), before_.GetReferences()[i]->GetKind());
    }
}

TEST_F(ZelXmlRoundTrip, KeepsInstances)
{
    std::shared_ptr<ZELInstance> instance;
    ASSERT_TRUE(after_.GetInstance(NarMeta::HashId("arm.screw.1"), instance));
    EXPECT_EQ(instance->GetMatrix(), (Matrix{0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 1.5f, -2.25f, 1e-3f, 1}));
    EXPECT_EQ(instance->GetInstanceName(), L"Schraube.1");
    unsigned short red = 7, green = 7, blue = 7, alpha = 7;
    ASSERT_TRUE(instance->GetRGBColor(red, green, blue) && instance->GetAlphaColor(alpha));
    EXPECT_THAT((std::array{red, green, blue, alpha}), testing::ElementsAre(255, 0, 1, 100));
    bool flag = false;
    EXPECT_FALSE(instance->GetHidden(flag));
    ASSERT_TRUE(after_.GetInstance(NarMeta::HashId("arm.mesh.1"), instance));
    EXPECT_TRUE(instance->GetHidden(flag) && flag);
    ASSERT_TRUE(after_.GetInstance(NarMeta::HashId("arm.lost.1"), instance));
    EXPECT_TRUE(instance->GetSuppressed(flag) && flag);
    EXPECT_TRUE(instance->GetReference()->IsEmpty());
    EXPECT_EQ(instance->GetReference()->GetStorageName(), L"lost.step");
    EXPECT_FALSE(instance->GetRGBColor(red, green, blue));
}

TEST_F(ZelXmlRoundTrip, KeepsVisualisation)
{
    auto const container = reference(L"mesh")->GetSG();
    ASSERT_TRUE(container);
    EXPECT_EQ(container->GetScaleFactor(L"mesh"), 25.4f);
    std::vector<std::shared_ptr<Node>> roots, sheets;
    ASSERT_TRUE(container->GetRootNodes(L"mesh", roots));
    ASSERT_TRUE(container->GetDrawingSheets(L"mesh", sheets));
    EXPECT_EQ(sheets[0]->GetDWGDisplayName(), L"Blatt 1");
    EXPECT_FALSE(sheets[0]->IsLeaf());

    auto const group = roots[0]->GetChildNodes()[0];
    float matrix[16] = {};
    float const *first = matrix, *second = matrix + 9;
    ASSERT_TRUE(group->GetTransform(first, second));
    EXPECT_THAT(matrix, testing::ElementsAre(1, 2, 3, 0, 4, 5, 6, 0, 7, 8, 10, 0, 11, 12, 13, 1));
    LineAttribute line;
    ASSERT_TRUE(group->GetAttributes()->GetLineAttribute(line));
    EXPECT_EQ(line.ToString(), LineAttribute::ToString(LineAttribute::Dotted));

    auto const leaf = group->GetChildNodes()[0];
    auto const& faces = leaf->GetMesh()->GetFaces();
    unsigned short red = 0, green = 0, blue = 0, alpha = 0;
    EXPECT_TRUE(faces[1]->GetRGBColor(leaf, red, green, blue) && red == 12);
    EXPECT_TRUE(faces[1]->GetAlphaColor(leaf, alpha) && alpha == 5);
    EXPECT_TRUE(faces[1]->GetAttributes()->GetRGBColor(red, green, blue) && red == 11);
    std::shared_ptr<Attributes> look;
    ASSERT_TRUE(leaf->GetFaceAttributes(faces[0], look));
    EXPECT_EQ(look->GetMaterials().at(0)->GetMaterialName(), L"Holz");
    EXPECT_FALSE(leaf->GetFaceAttributes(faces[2], look));
    EXPECT_EQ(faces[0]->GetPolygons()[0].GetPolygonType(), VisuPolygonType::TriangleStrip);
    auto const& loops = faces[2]->GetPolygons()[0].GetPolyLoops();
    EXPECT_EQ(loops[0].GetType(), VisuPolygonLoopType::Outer);
    EXPECT_EQ(loops[1].GetType(), VisuPolygonLoopType::Unclassified);
    EXPECT_EQ(leaf->GetMesh()->GetEdges()[0]->GetLineType(), VisuEdgeLineType::ClosedFilled);

    std::vector<std::shared_ptr<PmiRep>> pmis;
    ASSERT_TRUE(container->GetPmis(L"mesh", pmis));
    Font font;
    ASSERT_TRUE(pmis[0]->GetStrings()[0]->GetFont(font));
    EXPECT_EQ(font, (Font{L"Arial.ttf", 3.25f, {}, 1.5f, 0.75f}));
    float origin[3], along[3], up[3];
    EXPECT_EQ(pmis[0]->GetStrings()[0]->GetTextString(origin, along, up), L"⌀12 ±0,1 <&>");
    EXPECT_THAT(origin, testing::ElementsAre(5, 6, 7));
    std::vector<std::shared_ptr<PointSetRep>> sets;
    ASSERT_TRUE(container->GetPointSets(L"mesh", sets));
    EXPECT_EQ(sets[0]->GetPoints()[0]->GetMarkerStyle(), 2005);
}

TEST_F(ZelXmlRoundTrip, KeepsMaterials)
{
    auto const& materials = materials_.GetMaterials();
    ASSERT_EQ(materials.count(L"Holz"), 1u);
    auto const& material = *materials.at(L"Holz");
    float value = 0;
    EXPECT_TRUE(material.GetTransparencyCoefficient(value) && value == 0.5f);
    EXPECT_FALSE(material.GetDiffuseCoefficient(value));
    ASSERT_EQ(material.GetNormalTextures().size(), 1u);
    auto const texture = materials_.GetTextures().at(L"grain");
    float rotation[3];
    EXPECT_TRUE(texture->GetTextureRotation(rotation) && rotation[2] == 0.25f);
    std::shared_ptr<TextureImage> image;
    unsigned char const* data = nullptr;
    std::size_t size = 0;
    ASSERT_TRUE(texture->GetTextureImage(image) && image->GetMipmap(0, data, size));
    EXPECT_EQ(size, 12u);
    EXPECT_EQ(data[11], 255);
    EXPECT_FALSE(image->GetMipmap(2, data, size));
}

TEST_F(ZelXmlRoundTrip, KeepsAnnotations)
{
    auto const container = reference(L"screw")->GetPmi();
    std::shared_ptr<PMIAnnotationView> view;
    ASSERT_TRUE(container && container->GetAnnotationView(5'000'001, view));
    EXPECT_TRUE(view->GetActive());
    EXPECT_EQ(view->GetCamera(), (NarMetaPmi::PMICamera{{1, 2, 3}, {0, 1, 0}, {0, 0, 1}, 40, 30, true}));
    NarMetaPmi::PMIToleranceType type{};
    double value = 0;
    ASSERT_EQ(view->GetGDTs().size(), 1u);
    EXPECT_TRUE(view->GetGDTs()[0]->GetToleranceInfo(type, value));
    EXPECT_EQ(type, NarMetaPmi::PMIToleranceType::CircularRunout);
    EXPECT_EQ(value, 0.05);
    EXPECT_TRUE(view->GetGDTs()[0]->IsHidden());
    EXPECT_EQ(container->ToolTip(5'000'006), L"Dimension \"Durchmesser\": Durchmesser sagt");
    EXPECT_EQ(view->GetDatumTargets().at(0)->GetLinkedEntities(),
              (std::vector<LinkedEntity>{{{L"full.arm.1", L"arm.screw.1"}, L"top face"}}));
    std::vector<std::shared_ptr<NarMetaPmi::PMIAnnotationSet>> sets;
    ASSERT_TRUE(container->GetAnnotationSets(L"screw", sets));
    EXPECT_EQ(sets[0]->GetStandard(), L"ISO");
    EXPECT_TRUE(sets[0]->IsHidden());
}

TEST(ZelIOFiles, WritesAndReadsThroughAFile)
{
    TemporaryFolder const folder;
    ZELProductStructure model, again;
    FillFullModel(model);
    ZelIO io;
    auto const path = folder.Wide(L"Prüfling 🚀.ZEL_XML");
    ASSERT_TRUE(io.Write(path.c_str(), &model, nullptr));
    ASSERT_TRUE(io.Read(path.c_str(), &again, nullptr));
    EXPECT_EQ(again.GetProductName(), model.GetProductName());
    EXPECT_FALSE(io.IsGraphicalMode());
    EXPECT_EQ(MaterialContainer::Instance().GetMaterials().count(L"Holz"), 1u);
    MaterialContainer::Instance().Clear();
    io.SetPublishMaterialsLater(true);
    ASSERT_TRUE(io.Read(path.c_str(), &again, nullptr));
    EXPECT_TRUE(MaterialContainer::Instance().GetMaterials().empty()) << "not published yet";
    io.PublishMaterials();
    EXPECT_EQ(MaterialContainer::Instance().GetMaterials().count(L"Holz"), 1u);
    EXPECT_EQ(MaterialContainer::Instance().GetTextures().count(L"grain"), 1u);
    std::wstring report = L"old";
    io.GetTimerReport(report);
    EXPECT_EQ(report.find(L"old"), std::wstring::npos);
    EXPECT_NE(report.find(L"Reading"), std::wstring::npos);

    EXPECT_FALSE(io.Write((folder / "a.step").wstring().c_str(), &model, nullptr));
    EXPECT_EQ(io.GetOutcome(), IoOutcome::CannotWrite);
    EXPECT_FALSE(io.Write((folder / "none/a.zel_xml").wstring().c_str(), &model, nullptr));
    EXPECT_NE(io.GetErrorMessage().find(L"a.zel_xml"), std::wstring::npos);
    MaterialContainer::Instance().Clear();
}

TEST(ZelIOFiles, TheModelStaysGraphicalUntilAnotherIsRead)
{
    TemporaryFolder const folder;
    ZelIO io;
    io.RequestGraphicalMode(true);
    ZELProductStructure model;
    auto const triangle = folder.Write("a.stl", "solid a\nfacet normal 0 0 1\nouter loop\nvertex 0 0 0\n"
                                                "vertex 1 0 0\nvertex 0 1 0\nendloop\nendfacet\n"
                                                "endsolid a\n");
    ASSERT_TRUE(io.Read(triangle.c_str(), &model, nullptr));
    ASSERT_TRUE(io.IsGraphicalMode());
    ASSERT_TRUE(io.Write(folder.Wide(L"a.zel_xml").c_str(), &model, nullptr));
    EXPECT_TRUE(io.IsGraphicalMode()) << "after saving";
    EXPECT_FALSE(io.Read(folder.Wide(L"none.stl").c_str(), &model, nullptr));
    EXPECT_TRUE(io.IsGraphicalMode()) << "after a failed read";
    io.Reset();
    EXPECT_FALSE(io.IsGraphicalMode());
    MaterialContainer::Instance().Clear();
}

TEST(ZelIOFiles, StopsWhenTold)
{
    TemporaryFolder const folder;
    ZELProductStructure model;
    FillFullModel(model);
    auto const stop = [](double, bool& cancel) { cancel = true; };
    ZelIO io;
    auto const path = (folder / "a.zel_xml").wstring();
    EXPECT_FALSE(io.Write(path.c_str(), &model, stop));
    EXPECT_EQ(io.GetOutcome(), IoOutcome::Cancelled);
    EXPECT_FALSE(std::filesystem::exists(path));
    ASSERT_TRUE(io.Write(path.c_str(), &model, nullptr));
    EXPECT_FALSE(io.Read(path.c_str(), &model, stop));
    EXPECT_EQ(io.GetOutcome(), IoOutcome::Cancelled);
    EXPECT_EQ(model.GetRootInstancesCount(), 3u) << "what was loaded before must stay";
}

} // namespace
