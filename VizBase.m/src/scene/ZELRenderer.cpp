#include "ZELRenderer.h"

#include "document_model.h"
#include "host_api.h"
#include "text.h"

namespace ZelVizBase
{

unsigned long long ZELRenderer::NodeCounter = 0;

ZELRenderer::ZELRenderer(ZELDocument* document)
    : Document(document), ObjectMapper(std::make_shared<ZELObjectMapper>())
{
}

ZELRenderer::~ZELRenderer()
{
    ScratchKey.Delete(); // a copy of this renderer makes itself another
}

void ZELRenderer::SetDocument(ZELDocument* document)
{
    Document = document;
}

void ZELRenderer::Flush()
{
    PartReferenceSegments.clear();
    AssemblyReferenceSegments.clear();
    ConcreteSegments.clear();
    ConcreteMap.clear();
    if (Document) {
        HPS::Model const model = documentModel(*Document);
        model.GetSegmentKey().Flush(HPS::Search::Type::Everything, HPS::Search::Space::SegmentOnly);
        model.GetLibraryKey().Flush(HPS::Search::Type::Everything, HPS::Search::Space::SegmentOnly);
    }
    ObjectMapper->Clear();
    clearMaterials();
    NodeCounter = 0;
}

bool ZELRenderer::BuildSceneGraphBrep(NarMetaInfra::ZELProductStructure const* structure)
{
    return buildSceneGraph(structure, false);
}

bool ZELRenderer::BuildSceneGraphVisu(NarMetaInfra::ZELProductStructure const* structure)
{
    return buildSceneGraph(structure, true);
}

bool ZELRenderer::buildSceneGraph(NarMetaInfra::ZELProductStructure const* structure, bool visu)
{
    if (!Document || !structure) return false;
    HPS::Model const model = documentModel(*Document);
    if (PortfolioKey.Type() == HPS::Type::None) {
        PortfolioKey = model.GetPortfolioKey();
        initializeLineStyles();
    }
    if (visu) initializeMaterials();
    HPS::SegmentKey modelSegment = model.GetSegmentKey();
    if (visu) modelSegment.GetStyleControl().PushNamed("default_style");

    std::wstring pid;
    structure->GetPID(pid);
    RootKey = modelSegment.Subsegment(narrow(pid).c_str(), true);
    Tagger.Tag(RootKey, pid, ZELSegmentTagger::TAG_REFERENCE);

    Left = {};
    bool const built = initPartReferences(structure) && initAssemblyReferences(structure) &&
                       buildProductSceneGraph(structure);
    reportOmissions();
    return built;
}

void ZELRenderer::reportOmissions()
{
    struct Omission {
        size_t Count;
        wchar_t const* Words;
    };
    Omission const omissions[] = {
        {Left.RecursiveInstances,
         L" instances of an assembly inside itself, or nested too deep, were left empty.\n"},
        {Left.DeepNodes, L" visualisation nodes nested too deep were left out.\n"},
        {Left.BrokenPolygons, L" polygons with indices outside their points were left out.\n"},
    };
    std::wstring report;
    for (Omission const& omission : omissions) {
        if (omission.Count > 0) report += std::to_wstring(omission.Count) + omission.Words;
    }
    if (!report.empty())
        MoraCore::SessionMgr::Instance().CurrentSession().PrintMessage(report,
                                                                       MoraCore::MessageType::Warning);
}

void ZELRenderer::Hide(HPS::SegmentKey& segment)
{
    segment.GetVisibilityControl().SetEverything(false);
    segment.GetAttributeLockControl().SetLock(HPS::AttributeLock::Type::Visibility, true);
}

void ZELRenderer::Show(HPS::SegmentKey& segment)
{
    segment.GetVisibilityControl().UnsetEverything();
    segment.GetAttributeLockControl().UnsetLock(HPS::AttributeLock::Type::Visibility);
}

} // namespace ZelVizBase
