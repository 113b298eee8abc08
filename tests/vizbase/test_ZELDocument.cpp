#include "Stopwatch.h"
#include "TestDocument.h"
#include "ZELRenderTree.h"
#include "scene_dump.h"

#include <filesystem>
#include <gmock/gmock.h>

namespace ZelVizBase
{
namespace
{

using NarMetaInfra::ZELReference;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using ZELVizCore::Settings;

/// Notes when it is filled and emptied, into the document's list of calls.
class TestTree : public ZELRenderTree
{
public:
    explicit TestTree(TestDocument& document) : Calls(document.Calls) {}

    std::wstring GetRendererName() const override { return L"test"; }
    bool Render() override
    {
        Calls.push_back("tree");
        return true;
    }

protected:
    void ClearAllImpl() override { Calls.push_back("clear tree"); }
    bool hasPartContent(std::shared_ptr<ZELReference> const&) const override { return false; }
    void renderPartContent(std::shared_ptr<ZELReference> const&, RenderId&) override {}

private:
    std::vector<std::string>& Calls;
};

std::shared_ptr<NarMetaVisu::SGContainer> triangle(std::wstring const& pid)
{
    auto face = std::make_shared<NarMetaVisu::FaceRep>(std::vector<float>{0, 0, 0, 1, 0, 0, 0, 1, 0},
                                                       std::vector<float>{0, 0, 1, 0, 0, 1, 0, 0, 1});
    face->AddPolygon(NarMetaVisu::PolygonRep(NarMetaVisu::VisuPolygonType::Triangles, {0, 3, 6}));
    auto mesh = std::make_shared<NarMetaVisu::MeshRep>(2'000'000);
    mesh->AddFace(face);
    auto leaf = std::make_shared<NarMetaVisu::Node>(NarMetaVisu::NodeType::Geometry);
    leaf->SetMesh(mesh);
    auto root = std::make_shared<NarMetaVisu::Node>(NarMetaVisu::NodeType::Root);
    root->AddChild(leaf);
    auto container = std::make_shared<NarMetaVisu::SGContainer>();
    container->AddRootNode(pid, root);
    return container;
}

void fillPart(NarMetaInfra::ZELProductStructure& structure)
{
    structure.SetPID(L"product");
    auto const part = structure.AddReference(ZELReference::Kind::Part, L"A");
    part->SetSG(triangle(L"A"));
    structure.AddRootInstance(part, L"A.1");
}

class DocumentTest : public testing::Test
{
protected:
    TestDocument Document;
    TestTree TreeOf{Document};
    Settings const Before = Settings::Current();

    DocumentTest()
    {
        Document.Tree = &TreeOf;
        Document.Fill = fillPart;
        ZELDocument::Session().ClearMessages();
    }
    ~DocumentTest() override { Settings::Current() = Before; }

    std::wstring report() const { return ZELDocument::Session().Messages().back().text; }
    bool hasSegments() const { return Document.GetModel().GetSegmentKey().GetSubsegmentCount() > 0; }
};

TEST_F(DocumentTest, OpenReadsBuildsAndFillsTheTreeInThisOrder)
{
    EXPECT_TRUE(Document.Open(L"dir/model.step"));
    EXPECT_THAT(Document.Calls, ElementsAre("clear tree", "import", "build brep", "tree"));
    EXPECT_TRUE(Document.HasScenegraph());
    EXPECT_TRUE(hasSegments());
    EXPECT_EQ(Document.GetOpenedModelName(), L"dir/model.step");
}

TEST_F(DocumentTest, AFailedReadBuildsNothingButReports)
{
    Document.ReadSucceeds = false;
    EXPECT_FALSE(Document.Open(L"broken.step"));
    EXPECT_THAT(Document.Calls, ElementsAre("clear tree", "import"));
    EXPECT_FALSE(Document.HasScenegraph());
    EXPECT_EQ(Document.GetOpenedModelName(), L"");
    ASSERT_EQ(ZELDocument::Session().Messages().size(), 1u);
    EXPECT_EQ(report().find(L"Rendering"), std::wstring::npos);
    EXPECT_THAT(report(), HasSubstr(L"rocessors"));
}

TEST_F(DocumentTest, AFailedBuildStillFillsTheTreeAndIsTriedAgain)
{
    Document.Fill = nullptr;
    EXPECT_FALSE(Document.Open(L"empty.step"));
    EXPECT_THAT(Document.Calls, ElementsAre("clear tree", "import", "build brep", "tree"));
    EXPECT_EQ(Document.GetOpenedModelName(), L"empty.step");
    fillPart(Document.Structure);
    EXPECT_TRUE(Document.Render(false));
}

TEST_F(DocumentTest, RenderRebuildsOnlyWhenAskedTo)
{
    ASSERT_TRUE(Document.Open(L"model.step"));
    Document.Calls.clear();
    EXPECT_TRUE(Document.Render(false));
    EXPECT_THAT(Document.Calls, IsEmpty());
    EXPECT_TRUE(Document.Render(true));
    EXPECT_THAT(Document.Calls, ElementsAre("clear tree", "build brep", "tree"));
    EXPECT_EQ(Document.SceneRenderer.PartCalls, 2u);

    Document.Reset();
    EXPECT_FALSE(Document.HasScenegraph());
    EXPECT_FALSE(hasSegments());
    fillPart(Document.Structure);
    Document.Calls.clear();
    EXPECT_TRUE(Document.Render(true));
    EXPECT_THAT(Document.Calls, ElementsAre("build brep", "tree")) << "nothing stood that had to be flushed";
}

TEST_F(DocumentTest, ResetEmptiesModelSceneAndName)
{
    ASSERT_TRUE(Document.Open(L"model.step"));
    HPS::Model const model = Document.GetModel();
    Document.Reset();
    EXPECT_TRUE(Document.IsEmpty());
    EXPECT_EQ(Document.GetOpenedModelName(), L"");
    EXPECT_EQ(Document.GetModel(), model);
    EXPECT_NE(model.Type(), HPS::Type::None);
}

struct ProcessorCase {
    bool Multi;
    int Number;
    std::wstring End;
};

TEST_F(DocumentTest, TheReportEndsWithTheProcessors)
{
    std::wstring const note =
        L"\tNote: This does not guarantee that NarLink will use all the processors mentioned above.\n";
    ProcessorCase const cases[] = {
        {false, 8, L"[s].\n\tNumber of processors used     1.\n"},
        {true, 1, L"[s].\n\tMaximum number of processors NAR is allowed to use     1.\n"},
        {true, 8, L"[s].\n\tMaximum number of processors NAR is allowed to use     8.\n" + note},
    };
    for (ProcessorCase const& wanted : cases) {
        Settings::Current().UseMultiProcessing = wanted.Multi;
        Settings::Current().NumProcessors = wanted.Number;
        ASSERT_TRUE(Document.Open(L"model.step"));
        EXPECT_THAT(report(), HasSubstr(L"\tRendering                  "));
        EXPECT_THAT(report(), EndsWith(wanted.End));
        EXPECT_EQ(ZELDocument::Session().Messages().back().type, MoraCore::MessageType::Information);
    }
}

TEST_F(DocumentTest, SaveChoosesByTheLastExtension)
{
    ASSERT_TRUE(Document.Open(L"model.step"));
    for (wchar_t const* xml : {L"model.ZEL_XML", L"a.b/c.zel_xml", L"zel_xml"}) {
        Document.Calls.clear();
        EXPECT_TRUE(Document.Save(xml));
        EXPECT_THAT(Document.Calls, ElementsAre("save xml"));
    }
    Document.Calls.clear();
    EXPECT_FALSE(Document.Save(L"/nowhere/model")); // goes to the writer, which cannot write there
    EXPECT_THAT(Document.Calls, IsEmpty());
    Document.WithoutStructure();
    EXPECT_FALSE(Document.Save(L"model.step"));
}

TEST_F(DocumentTest, RestoreIsResetHookAndRender)
{
    EXPECT_TRUE(Document.Restore(L"saved"));
    EXPECT_THAT(Document.Calls, ElementsAre("clear tree", "restore", "build brep", "tree"));
    Document.ReadSucceeds = false;
    Document.Calls.clear();
    EXPECT_FALSE(Document.Restore(L"saved"));
    EXPECT_THAT(Document.Calls, ElementsAre("clear tree", "restore"));
}

TEST_F(DocumentTest, ExportsGoToTheirHooks)
{
    EXPECT_TRUE(Document.Export(L"path", nullptr));
    EXPECT_TRUE(Document.Export(L"pid", L"path", nullptr));
    EXPECT_FALSE(Document.ImportGraphical(L"path", nullptr));
    EXPECT_THAT(Document.Calls, ElementsAre("export", "export as"));
}

TEST_F(DocumentTest, EditableIsOnePartWithBodiesAndWithoutPmi)
{
    EXPECT_TRUE(Document.IsEmpty());
    EXPECT_FALSE(Document.HasEditablePart());
    ASSERT_TRUE(Document.Open(L"model.step"));
    EXPECT_FALSE(Document.IsEmpty());
    EXPECT_FALSE(Document.IsAssembly());
    EXPECT_TRUE(Document.HasEditablePart());

    std::shared_ptr<ZELReference> part;
    ASSERT_TRUE(Document.Structure.GetUniqueReference(0, part));
    part->SetGraphical(true);
    EXPECT_FALSE(Document.HasEditablePart());
    part->SetGraphical(false);
    auto pmi = std::make_shared<NarMetaPmi::PMIContainer>();
    part->SetPmi(pmi);
    EXPECT_TRUE(Document.HasEditablePart());
    pmi->AddAnnotationSet(L"A", nullptr);
    EXPECT_FALSE(Document.HasEditablePart());

    Document.Structure.AddRootInstance(part, L"A.2");
    EXPECT_TRUE(Document.IsAssembly());
    Document.WithoutStructure();
    EXPECT_TRUE(Document.IsEmpty());
    EXPECT_FALSE(Document.IsAssembly());
    EXPECT_FALSE(Document.HasEditablePart());
}

TEST_F(DocumentTest, ErrorsAndWarningsOfReaderAndModelStandTogether)
{
    Document.Reader.Read(L"/nowhere/model.step", &Document.Structure, nullptr);
    Document.Structure.SetErrorMessage(L" and the model");
    Document.Structure.AddWarningMessage(L"odd");
    std::wstring error;
    std::vector<std::wstring> warnings{L"before"};
    Document.GetErrorAndWarnings(&error, &warnings);
    EXPECT_EQ(error, Document.Reader.GetErrorMessage() + L" and the model");
    EXPECT_EQ(warnings.front(), L"before");
    EXPECT_EQ(warnings.back(), L"odd");
    Document.GetErrorAndWarnings(nullptr, nullptr);
    Document.WithoutReader();
    error = L"untouched";
    Document.GetErrorAndWarnings(&error, nullptr);
    EXPECT_EQ(error, L"untouched");
}

TEST_F(DocumentTest, InformationNamesTheProductFirst)
{
    std::wstring text = L"|";
    Document.GetDocInfoAsString(text);
    EXPECT_EQ(text, L"|");
    auto information = std::make_shared<NarMetaInfra::ZELDocumentInformation>();
    information->Add(L"Author", L"A. Nonymous");
    Document.Structure.SetDocumentInformation(information);
    Document.Structure.SetProductName(L"gear");
    Document.GetDocInfoAsString(text);
    EXPECT_THAT(text, testing::StartsWith(L"|Product Name\t\t   :gear\n"));
    EXPECT_THAT(text, HasSubstr(L"A. Nonymous"));
}

TEST_F(DocumentTest, OrientationFollowsTheDefaultSettings)
{
    HPS::Vector up;
    HPS::Vector front;
    ASSERT_TRUE(Document.GetModel().ShowOrientation(up, front));
    EXPECT_EQ(up, HPS::Vector(0, 0, 1));
    EXPECT_EQ(front, HPS::Vector(1, 0, 0));
    Document.SetClassicalOrientation();
    Document.GetModel().ShowOrientation(up, front);
    EXPECT_EQ(up, HPS::Vector(0, 1, 0));
    EXPECT_EQ(front, HPS::Vector(0, 0, 1));
}

TEST_F(DocumentTest, TheStreamFileStandsBesideTheModel)
{
    auto const folder = std::filesystem::temp_directory_path() / "zel_document_stream";
    std::filesystem::create_directories(folder);
    ASSERT_TRUE(Document.Open((folder / "model.step").wstring().c_str()));
    EXPECT_TRUE(Document.ExportHSF());
    EXPECT_GT(std::filesystem::file_size(folder / "model.step.hsf"), 0u);
    std::filesystem::remove_all(folder);
    EXPECT_FALSE(Document.ExportHSF()) << "the folder is gone";
}

/// Two views, of which only one shows the document's model.
class DocumentViewsTest : public DocumentTest
{
protected:
    HPS::Model Other = HPS::Factory::CreateModel();
    HPS::View Own = HPS::Factory::CreateView();
    HPS::View Foreign = HPS::Factory::CreateView();

    DocumentViewsTest()
    {
        Other.GetSegmentKey().InsertLine(HPS::Point(0, 0, 0), HPS::Point(500, 0, 0));
        Own.AttachModel(Document.GetModel());
        Foreign.AttachModel(Other);
        setAside(Own);
        setAside(Foreign);
    }
    ~DocumentViewsTest() override
    {
        Own.Delete();
        Foreign.Delete();
        Other.Delete();
    }

    /// A camera that no fitting gives.
    static void setAside(HPS::View& view)
    {
        HPS::CameraKit camera;
        camera.SetPosition(HPS::Point(0, -1000, 0)).SetTarget(HPS::Point(0, 0, 0));
        camera.SetUpVector(HPS::Vector(0, 0, 1)).SetField(1234, 1234);
        view.SetCamera(camera);
    }
    static bool isFitted(HPS::View const& view)
    {
        HPS::CameraKit camera;
        float width = 0;
        float height = 0;
        view.ShowCamera(camera);
        return camera.ShowField(width, height) && width != 1234;
    }
};

TEST_F(DocumentViewsTest, WithoutAViewOfItsOwnThoseThatShowTheModelAreFitted)
{
    ASSERT_TRUE(Document.Open(L"model.step"));
    EXPECT_TRUE(isFitted(Own));
    EXPECT_FALSE(isFitted(Foreign));
    setAside(Own);
    EXPECT_TRUE(Document.Render(false));
    EXPECT_FALSE(isFitted(Own)) << "a shown document is only drawn again";
}

TEST_F(DocumentViewsTest, AViewOfItsOwnIsTheOnlyOne)
{
    HPS::View second = HPS::Factory::CreateView();
    second.AttachModel(Document.GetModel());
    setAside(second);
    Document.SetView(second);
    ASSERT_TRUE(Document.Open(L"model.step"));
    EXPECT_TRUE(isFitted(second));
    EXPECT_FALSE(isFitted(Own));
    second.Delete();
}

TEST(StopwatchTest, TextByNameAndFormat)
{
    Stopwatch const unnamed;
    Stopwatch const named("load");
    EXPECT_EQ(unnamed.Text(), L"Elapsed time: 0.000(s)\n");
    EXPECT_EQ(named.Text(), L"Elapsed time for load: 0.000(s)\n");
    EXPECT_EQ(unnamed.Text(L"%f"), L"0.000000");
    EXPECT_EQ(named.Text(L"%s %.1f"), L"load 0.0");
}

TEST(StopwatchTest, AddsUpOverStops)
{
    Stopwatch watch;
    double last = 0;
    for (int i = 0; i < 3; ++i) {
        watch.Start();
        for (auto const start = std::chrono::steady_clock::now();
             std::chrono::steady_clock::now() == start;) {
        }
        watch.Stop();
        EXPECT_GT(watch.Seconds(), last);
        last = watch.Seconds();
    }
    watch.Reset();
    EXPECT_EQ(watch.Seconds(), 0);
}

} // namespace
} // namespace ZelVizBase
