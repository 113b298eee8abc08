#include "CadDocument.h"

#include "CadRenderer.h"
#include "CadTree.h"

#include <unistd.h>

namespace ZelCad
{

using NarMetaInfra::FileFormat;
using NarMetaInfra::ZelIO;
using NarMetaInfra::ZELProductStructure;
using NarMetaInfra::ZELReference;
using ZELVizCore::Settings;

namespace
{

MoraCore::IDocumentEvo::Extensions extensionsOf(std::vector<FileFormat> const& formats)
{
    MoraCore::IDocumentEvo::Extensions extensions;
    for (FileFormat const& format : formats)
        for (std::wstring const& extension : format.extensions) extensions.emplace(extension, format.name);
    return extensions;
}

constexpr std::uint64_t MiB = 1 << 20;

/// Bytes that a read in a process of its own may take.
std::uint64_t memoryLimit(Settings const& settings)
{
    if (settings.ReadMemoryLimit > 0) return MiB * static_cast<unsigned>(settings.ReadMemoryLimit);
    auto const pages = static_cast<std::uint64_t>(sysconf(_SC_PHYS_PAGES));
    return pages / 4 * 3 * static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
}

std::size_t countMeshes(std::shared_ptr<NarMetaVisu::SGContainer> const& visualisation,
                        std::wstring const& pid)
{
    std::vector<std::shared_ptr<NarMetaVisu::MeshRep>> meshes;
    if (visualisation) visualisation->GetMeshes(pid, meshes);
    return meshes.size();
}

} // namespace

CadDocument::CadDocument(MoraCore::AViewTree* treeView)
    : OwnIO(std::make_unique<ZelIO>()),
      OwnStructure(std::make_unique<ZELProductStructure>()),
      OwnRenderer(std::make_unique<CadRenderer>(this)),
      OwnTree(std::make_unique<CadTree>(OwnStructure.get(), treeView))
{
    IO = OwnIO.get();
    ProductStructure = OwnStructure.get();
    Renderer = OwnRenderer.get();
    Tree = OwnTree.get();
    ImportExtensions = extensionsOf(ZelIO::ImportFormats());
    ExportExtensions = extensionsOf(ZelIO::ExportFormats());
    IO->SetUseOccurrenceData(ZELVizCore::Settings::Current().UseOccurrenceData);
    configureReader();
}

CadDocument::~CadDocument() = default;

bool CadDocument::RemoveBodyFromPart(RenderId const& id)
{
    if (!ZELDocument::RemoveBodyFromPart(id)) return false;
    Modified = true;
    Render(true);
    return true;
}

bool CadDocument::MakePartModelFromReference(unsigned long long id)
{
    if (!ZELDocument::MakePartModelFromReference(id)) return false;
    Modified = true;
    return true;
}

void CadDocument::Reset()
{
    Modified = false;
    if (!AheadPath.empty()) return; // nothing is shown yet, and what was read is to be
    ZELDocument::Reset();
}

bool CadDocument::ConvertToEntity(RenderId const& id, EntityId& entity)
{
    return id.Length() >= 2 && OwnTree->Convert(id, entity);
}

bool CadDocument::ConvertToRender(EntityId const& entity, RenderId& id)
{
    return OwnTree->Convert(entity, id);
}

bool CadDocument::FindNodes(std::wstring const& text, std::vector<RenderId>& out) const
{
    return OwnTree->FindNodes(text, out);
}

void CadDocument::GetContentCounts(unsigned long long& parts, unsigned long long& bodies) const
{
    parts = ProductStructure->GetUniqueReferencesCount();
    bodies = ProductStructure->GetCounts().bodies;
    std::wstring pid;
    for (std::shared_ptr<ZELReference> const& reference : ProductStructure->GetReferences())
        if (reference->GetPID(pid)) bodies += countMeshes(reference->GetSG(), pid);
    if (ProductStructure->GetPID(pid)) bodies += countMeshes(ProductStructure->GetSG(), pid);
}

CadDocument::Seconds CadDocument::GetTreeTime() const
{
    return OwnTree->GetRenderTime();
}

bool CadDocument::ReadAhead(wchar_t const* path, ReadGuard const& guard, Progress progress)
{
    Settings const& settings = Settings::Current();
    IO->SetReadIsolated(guard.ownProcess, guard.seconds < 0 ? settings.ReadTimeLimit : guard.seconds,
                        memoryLimit(settings));
    IO->SetPublishMaterialsLater(true);
    AheadPath = path;
    AheadResult = read(path, progress);
    IO->SetReadIsolated(false);
    IO->SetPublishMaterialsLater(false);
    return AheadResult;
}

bool CadDocument::doImport(wchar_t const* path, Progress progress)
{
    if (std::exchange(AheadPath, {}) != path) return read(path, progress);
    if (AheadResult) IO->PublishMaterials();
    return AheadResult;
}

bool CadDocument::read(wchar_t const* path, Progress progress)
{
    Settings const& settings = Settings::Current();
    IO->SetCacheLimit(MiB * static_cast<unsigned>(settings.CacheSize));
    IO->SetTessellation(settings.TessellationDistance * 1e-6, settings.TessellationAngle);
    IO->SetKeepExactShapes(true);
    return IO->Read(path, ProductStructure, progress);
}

bool CadDocument::doExport(wchar_t const* path, Progress progress)
{
    return IO->Write(path, ProductStructure, progress);
}

bool CadDocument::doExportAs(wchar_t const* referencePid, wchar_t const* path, Progress progress)
{
    std::shared_ptr<ZELReference> const reference = findReference(referencePid);
    if (!reference || !reference->IsPart()) return false;
    // A model that holds nothing but the part, placed once. The part itself is shared, not copied.
    std::wstring const pid = referencePid;
    ZELProductStructure part(pid + L".model", reference->GetReferenceName());
    part.AddReference(reference);
    part.AddRootInstance(reference, pid + L".1", reference->GetReferenceName());
    return IO->Write(path, &part, progress);
}

bool CadDocument::doSaveXml(wchar_t const* path) const
{
    if (!IO->WriteXml(path, ProductStructure, nullptr)) return false;
    Modified = false;
    return true;
}

bool CadDocument::doRestore(wchar_t const* path)
{
    return IO->Read(path, ProductStructure, nullptr);
}

bool CadDocument::buildBRepSceneGraph()
{
    return build(&ZelVizBase::ZELRenderer::BuildSceneGraphBrep);
}

bool CadDocument::buildVisuSceneGraph()
{
    return build(&ZelVizBase::ZELRenderer::BuildSceneGraphVisu);
}

bool CadDocument::build(Build operation)
{
    auto const start = std::chrono::steady_clock::now();
    ProductStructure->SetKeyFinder([mapper = OwnRenderer->GetObjectMapper()](
                                       NarMetaInfra::Id id, HPS::Key& key) { return mapper->Get(id, key); });
    bool const built = (OwnRenderer.get()->*operation)(ProductStructure);
    SceneTime = std::chrono::steady_clock::now() - start;
    // A build has no words of its own for the user.
    ProductStructure->SetErrorMessage(built ? L""
                                      : ProductStructure->GetUniqueReferencesCount() == 0
                                          ? L"none of the parts of this model is there to be shown"
                                          : L"the scene of this model could not be built");
    return built;
}

std::shared_ptr<ZELReference> CadDocument::findReference(std::wstring const& pid) const
{
    std::wstring candidate;
    for (std::shared_ptr<ZELReference> const& reference : ProductStructure->GetReferences())
        if (reference->GetPID(candidate) && candidate == pid) return reference;
    return nullptr;
}

} // namespace ZelCad
