#pragma once

#include "ZELDocument.h"
#include "document_entry.h"

#include <chrono>

namespace ZelCad
{

class CadRenderer;
struct SavedView;
class CadTree;

/// The document of zelview: reads and writes by ZelIO, builds with CadRenderer, writes the tree with CadTree,
/// and owns all of them.
class CadDocument final : public ZelVizBase::ZELDocument
{
public:
    using Seconds = std::chrono::duration<double>;

    /// @param treeView where the tree is written to; not owned, must outlive the document; null: no tree
    explicit CadDocument(MoraCore::AViewTree* treeView = nullptr);
    ~CadDocument() override;

    /// Reads into a document that was not opened yet, by the settings of the time when it was made; see
    /// ReadDocumentAhead.
    bool ReadAhead(wchar_t const* path, ReadGuard const& guard, Progress progress);

    /// Also takes the body out of the scene and the tree.
    bool RemoveBodyFromPart(RenderId const& id) override;
    bool MakePartModelFromReference(unsigned long long id) override;
    /// Also looks as the view or the capture does: by its camera, at its annotations alone, cut by its
    /// planes.
    bool ActivateViewOrCapture(RenderId const& id) override;
    void Reset() override;

    /// The model was changed by an operation above since it was read or saved.
    bool IsModified() const override { return Modified; }
    bool ConvertToEntity(RenderId const& id, EntityId& entity) override;
    bool ConvertToRender(EntityId const& entity, RenderId& id) override;
    bool GetProperties(RenderId const& id,
                       std::vector<std::pair<std::wstring, std::wstring>>& out) const override;
    bool FindNodes(std::wstring const& text, std::vector<RenderId>& out) const override;
    void GetContentCounts(unsigned long long& parts, unsigned long long& bodies) const override;

    NarMetaInfra::ZelIO const& GetIO() const { return *IO; }
    /// Time of the last build of the scene graph, and of the last writing of the tree.
    Seconds GetSceneTime() const { return SceneTime; }
    Seconds GetTreeTime() const;

protected:
    bool doImport(wchar_t const* path, Progress progress) override;
    /// `referencePid` names the part that becomes a file of its own.
    bool doExportAs(wchar_t const* referencePid, wchar_t const* path, Progress progress) override;
    bool doExport(wchar_t const* path, Progress progress) override;
    bool doSaveXml(wchar_t const* path) const override;
    bool doRestore(wchar_t const* path) override;
    bool buildBRepSceneGraph() override;
    bool buildVisuSceneGraph() override;

private:
    using Build = bool (ZelVizBase::ZELRenderer::*)(NarMetaInfra::ZELProductStructure const*);
    bool read(wchar_t const* path, Progress progress);
    bool build(Build operation);
    std::shared_ptr<NarMetaInfra::ZELReference> findReference(std::wstring const& pid) const;
    /// That a node of the tree stands for.
    bool annotationAt(RenderId const& id, std::shared_ptr<NarMetaPmi::PMIAnnotation>& annotation) const;
    HPS::MatrixKit placingOf(RenderId const& id) const;
    HPS::SimpleCuboid extentOfAnnotations(SavedView const& saved, RenderId id) const;
    void showSavedView(SavedView const& saved, RenderId const& id);

    std::unique_ptr<NarMetaInfra::ZelIO> OwnIO;
    std::unique_ptr<NarMetaInfra::ZELProductStructure> OwnStructure;
    std::unique_ptr<CadRenderer> OwnRenderer;
    std::unique_ptr<CadTree> OwnTree;
    mutable bool Modified = false; ///< saving is const and ends it
    Seconds SceneTime{};
    std::vector<HPS::CuttingSectionKey> Cuts; ///< of the capture that was activated last
    std::wstring AheadPath;                   ///< read, but not opened yet; empty: none
    bool AheadResult = false;
};

} // namespace ZelCad
