#pragma once

#include "ViewDocument.h"
#include "host_api.h"
#include "hps_api.h"
#include "model_api.h"

#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace ZelVizBase
{

class ZELObjectMapper;
class ZELRenderTree;
class ZELRenderer;
class ZELView3D;

/// The document of a view: ties the model and its reader, the scene graph, the model tree and the views
/// together.
///
/// A concrete document supplies the hooks and sets IO, ProductStructure, Renderer and Tree before the first
/// Open; it owns all four. During construction virtual calls end here, so it fills its extension lists by
/// itself. States: empty; read, after doImport; shown, when HasScenegraph(). Reset() goes back to empty and
/// leaves the scene model in place, without contents.
class ZELDocument : public MoraCore::IDocumentEvo, public ViewDocument
{
public:
    /// Called by the reader with a part from 0 to 1; setting the flag cancels.
    using Progress = void (*)(double part, bool& cancel);
    using Ray = ZELVizCore::Ray;

    ZELDocument();
    ~ZELDocument() override;

    /// The document keeps no undo history: these do nothing.
    void NoteState() override;
    void Undo() override;
    void Redo() override;

    /// Leaves nothing of the model but one part: that of an instance, or with the unique id itself. A false
    /// may come when the scene is gone already.
    bool MakePartModelFromReference(unsigned long long id) override;
    /// Takes a body of an instance out of sight, or brings it back.
    bool ShowHideBody(RenderId const& id, MoraCore::IView3DEvo* view) override;
    /// Of a model that is one part with bodies. The scene and the tree stay as they are.
    bool RemoveBodyFromPart(RenderId const& id) override;

    /// Reset, read, build, fill the tree, fit and update the views. The cause of a false stands in
    /// GetErrorAndWarnings.
    bool Open(wchar_t const* path) override;
    /// By the extension: ".zel_xml" through doSaveXml, anything else through the model's writer.
    bool Save(wchar_t const* path) const override;
    Extensions const& ValidImportExtensions() const override;
    Extensions const& ValidExportExtensions() const override;
    /// Proposes a file for the part of an instance, beside the one that it comes from; `name` stays if that
    /// is not known.
    void MakeFileNameFromReference(unsigned long long id, std::wstring& name) override;
    bool ExportReferenceAsPart(unsigned long long id, wchar_t const* path) override;
    /// Makes it the active one of its kind, writes the tree anew and fits the views. The scene stays.
    bool ActivateViewOrCapture(RenderId const& id) override;

    bool Restore(wchar_t const* path) override;
    void Reset() override;
    /// The path as given to the last Import that read; empty after Reset.
    std::wstring GetOpenedModelName() const override;
    /// Warnings are appended. Either may be null. Nothing happens without a reader.
    void GetErrorAndWarnings(std::wstring* error, std::vector<std::wstring>* warnings) const override;
    /// A shown document is only drawn again, unless `rebuild` takes it down first.
    bool Render(bool rebuild) override;

    void Highlight(EntityId const& id, MoraCore::IView3DEvo* view) override;
    void Highlight(RenderId const& id, MoraCore::IView3DEvo* view) override;
    void UnHighlight(MoraCore::IView3DEvo* view) const override;
    void Select(EntityId const& id, MoraCore::IView3DEvo* view) override;
    void Select(RenderId const& id, MoraCore::IView3DEvo* view) override;
    void UnSelect(MoraCore::IView3DEvo* view) const override;
    bool ZoomTo(EntityId const& id, MoraCore::IView3DEvo* view) override;
    bool ZoomTo(RenderId const& id, MoraCore::IView3DEvo* view) override;

    std::wstring GetToolTip(RenderId const& id) const override;
    void SetTreeView(MoraCore::AViewTree* view) override;
    MoraCore::IContentRenderer* GetTreeContentRenderer() override;

    bool IsEmpty() const override;
    /// One part with bodies and without PMI.
    bool HasEditablePart() const override;
    bool IsAssembly() const override;
    bool IsModified() const override = 0;

    /// Without a tree or a renderer: false. On false the output is not to be used.
    bool Convert(RenderId const& id, HPS::KeyPath& path) const override;
    bool Convert(EntityId const& id, HPS::KeyPath& path) const override;
    bool Convert(HPS::KeyPath const& path, EntityId& id) const override;
    bool Convert(HPS::KeyPath const& path, RenderId& id) const override;
    bool ConvertToEntity(RenderId const& id, EntityId& entity) override = 0;
    bool ConvertToRender(EntityId const& entity, RenderId& id) override = 0;
    bool GetProperties(RenderId const& id,
                       std::vector<std::pair<std::wstring, std::wstring>>& out) const override = 0;
    bool FindNodes(std::wstring const& text, std::vector<RenderId>& out) const override = 0;
    void GetContentCounts(unsigned long long& parts, unsigned long long& bodies) const override = 0;
    bool RayPick(Ray const& ray, EntityId& entity) override;

    bool Open2(wchar_t const* path, Progress progress);
    /// Reads with the options of the current settings, builds, and prints the report of the times, on failure
    /// too.
    bool Import(wchar_t const* path, Progress progress);
    /// There is no graphical import of its own: Import asks the reader for graphical mode by the settings.
    bool ImportGraphical(wchar_t const* path, Progress progress);
    bool Export(wchar_t const* path, Progress progress);
    bool Export(wchar_t const* path, wchar_t const* other, Progress progress);
    /// Writes the scene beside the opened model, with the extension ".hsf" added to its name.
    bool ExportHSF();
    /// Appends the product's name and the document's information; nothing for a model without information.
    void GetDocInfoAsString(std::wstring& out) const;
    /// Draws the document's view, or, if none was set, each view that shows its model.
    void UpdateViews(bool fit);

    void SetStandardOrientation();  ///< Z up, X to the front
    void SetClassicalOrientation(); ///< Y up, Z to the front

    static MoraCore::ASession& Session();
    HPS::Model GetModel() const override { return Model; }
    NarMetaInfra::ZELProductStructure* GetProductStructure() const { return ProductStructure; }
    ZELRenderer* GetRenderer() const { return Renderer; }
    ZELRenderTree* GetTreeRenderer() const { return Tree; }
    HPS::Canvas GetCanvas() const { return Canvas; }
    void SetCanvas(HPS::Canvas const& canvas) override { Canvas = canvas; }
    HPS::View GetView() const { return View; }
    void SetView(HPS::View const& view) override { View = view; }
    HPS::HighlightOptionsKit GetHighlightOptionsKit() const { return HighlightOptions; }
    void SetHighlightOptionsKit(HPS::HighlightOptionsKit const& kit) override { HighlightOptions = kit; }
    bool HasScenegraph() const { return HasScene; }

    /// The ids of the tagged segments on the path of a pick, for the tree to mark its node.
    void DefineRenderIds(std::vector<unsigned long long>& ids) override;
    /// Takes the mark off the tree.
    void UnHighlight() override;
    bool ShowSceneRoot(HPS::SegmentKey& root) const override;
    HPS::KeyPathArray GetCompanions(RenderId const& id, HPS::KeyPath const& start) const override;

protected:
    virtual bool initialize();
    virtual void initializeImportExportExtensions();

    /// Hands the current settings to the reader.
    void configureReader();

    virtual bool doImport(wchar_t const* path, Progress progress) = 0;
    virtual bool doExportAs(wchar_t const* path, wchar_t const* other, Progress progress) = 0;
    virtual bool doExport(wchar_t const* path, Progress progress) = 0;
    virtual bool doSaveXml(wchar_t const* path) const = 0;
    virtual bool doRestore(wchar_t const* path) = 0;

    virtual bool buildBRepSceneGraph();
    virtual bool buildVisuSceneGraph();

    using Entity =
        std::pair<std::vector<std::wstring>, std::wstring>; ///< instance PIDs and the entity's name

    bool buildKeyPath(RenderId const& id, HPS::KeyPath& path, bool& isPmi, unsigned long long& pmiId,
                      std::shared_ptr<NarMetaInfra::ZELInstance>& instance,
                      std::shared_ptr<NarMetaInfra::ZELReference>& reference,
                      NarMetaPmi::PMIAnnotationType& type) const;
    /// For nodes below a body of the tree of features or of topology. `mapper` becomes that of the reference.
    bool buildKeyPath(RenderId const& id, HPS::KeyPath& path, std::shared_ptr<ZELObjectMapper>& mapper,
                      ZELVizCore::EntityType const& stopType) const;

    void highlightLinkedEntities(std::shared_ptr<NarMetaPmi::PMIAnnotation> const& annotation,
                                 ZELView3D* view);
    void highlightLinkedEntities(HPS::KeyPath const& path,
                                 std::shared_ptr<NarMetaInfra::ZELReference> const& reference,
                                 std::shared_ptr<NarMetaPmi::PMIAnnotation> const& annotation,
                                 ZELView3D* view);

    bool getViewOrCapture(RenderId const& id, std::shared_ptr<NarMetaInfra::ZELReference>& reference,
                          std::shared_ptr<NarMetaPmi::PMIAnnotationView>& view,
                          std::shared_ptr<NarMetaPmi::PMICapture>& capture) const;
    bool getActiveView(std::shared_ptr<NarMetaInfra::ZELReference>& reference,
                       std::shared_ptr<NarMetaPmi::PMIAnnotationView>& view) const;
    bool getActiveCapture(std::shared_ptr<NarMetaInfra::ZELReference>& reference,
                          std::shared_ptr<NarMetaPmi::PMICapture>& capture) const;

    Extensions ImportExtensions;
    Extensions ExportExtensions;

private:
    bool HasScene = false;
    HPS::Model Model; ///< owned: made in the constructor, deleted in the destructor
    bool GraphicalMode = false;

protected:
    NarMetaInfra::ZelIO* IO = nullptr;                             ///< not owned here
    NarMetaInfra::ZELProductStructure* ProductStructure = nullptr; ///< not owned here
    ZELRenderer* Renderer = nullptr;                               ///< not owned here
    ZELRenderTree* Tree = nullptr;                                 ///< not owned here

private:
    /// The part of Reset that leaves the model.
    void emptyScene();
    /// The nearest instance above a body whose segment no other use of an assembly shares.
    bool findInstanceToHideIn(RenderId const& id, std::shared_ptr<NarMetaInfra::ZELInstance>& instance) const;
    /// Second value of every id of this model's tree.
    unsigned long long modelId() const;
    /// What an id leads to beside a path.
    struct Target {
        bool isPmi = false;
        unsigned long long pmiId = 0; ///< 0: the group of annotations itself
        std::shared_ptr<NarMetaInfra::ZELInstance> instance;
        std::shared_ptr<NarMetaInfra::ZELReference> reference; ///< the last one on the way; null: the product
        NarMetaPmi::PMIAnnotationType type = NarMetaPmi::PMIAnnotationType::Any;
    };
    bool findTarget(RenderId const& id, HPS::KeyPath& path, Target& target) const;
    bool findAnnotation(Target const& target, HPS::KeyPath const& path,
                        std::shared_ptr<NarMetaPmi::PMIAnnotation>& annotation) const;
    /// The segment of an instance.
    bool pushInstance(unsigned long long id, HPS::KeyPath& path,
                      std::shared_ptr<NarMetaInfra::ZELInstance>& instance) const;
    /// What the instance in front of the path shows: the include and the reference's segment.
    bool pushReference(NarMetaInfra::ZELInstance const& instance, HPS::KeyPath& path) const;
    bool pushLinkedEntity(NarMetaPmi::LinkedEntity const& entity,
                          std::vector<std::shared_ptr<NarMetaInfra::ZELInstance>> const& instances,
                          NarMetaInfra::ZELReference const& holder, HPS::KeyPath& path) const;
    /// Of an annotation of the product, or of a reference at whose segment `start` stands.
    HPS::KeyPathArray linkedPaths(NarMetaPmi::PMIAnnotation const& annotation,
                                  HPS::KeyPath const& start) const;
    HPS::KeyPathArray linkedPaths(NarMetaPmi::PMIAnnotation const& annotation,
                                  std::shared_ptr<NarMetaInfra::ZELReference> const& reference,
                                  HPS::KeyPath const& start) const;
    /// What a node of the tree of features or of topology stands for; without what has no key.
    HPS::KeyPathArray entityPaths(RenderId const& id, HPS::KeyPath path) const;
    bool showAnnotationKey(Target const& target, HPS::Key& key) const;

    ZELDocument(ZELDocument const&) = delete;
    ZELDocument& operator=(ZELDocument const&) = delete;

    HPS::Canvas Canvas;
    HPS::View View;
    HPS::HighlightOptionsKit HighlightOptions;
    std::wstring OpenedModelName;
};

} // namespace ZelVizBase
