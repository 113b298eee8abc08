#pragma once
#include <mora/EntityId.h>
#include <mora/Ray.h>
#include <mora/RenderId.h>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace HPS
{
class KeyPath;
}

namespace MoraCore
{

class AViewTree;
class IContentRenderer;
class IView3DEvo;

/// A document as the host sees it. Operations report by a bool; the words are the caller's.
class IDocumentEvo
{
public:
    /// Pairs of a file extension without its dot and what to call such files.
    using Extensions = std::set<std::pair<std::wstring, std::wstring>>;
    using EntityId = ZELVizCore::EntityId;
    using RenderId = ZELVizCore::RenderId;

    virtual ~IDocumentEvo() = default;

    virtual void NoteState() = 0;
    virtual void Undo() = 0;
    virtual void Redo() = 0;

    virtual bool MakePartModelFromReference(unsigned long long id) = 0;
    virtual bool ShowHideBody(RenderId const& id, IView3DEvo* view) = 0;
    virtual bool RemoveBodyFromPart(RenderId const& id) = 0;

    virtual bool Open(wchar_t const* path) = 0;
    virtual bool Save(wchar_t const* path) const = 0;
    virtual Extensions const& ValidImportExtensions() const = 0;
    virtual Extensions const& ValidExportExtensions() const = 0;
    /// Proposes a path for the part of an instance; `name` stays when there is none.
    virtual void MakeFileNameFromReference(unsigned long long id, std::wstring& name) = 0;
    virtual bool ExportReferenceAsPart(unsigned long long id, wchar_t const* path) = 0;
    virtual bool ActivateViewOrCapture(RenderId const& id) = 0;

    virtual bool Restore(wchar_t const* path) = 0;
    virtual void Reset() = 0;
    virtual std::wstring GetOpenedModelName() const = 0;
    /// Appends warnings; either argument may be null.
    virtual void GetErrorAndWarnings(std::wstring* error, std::vector<std::wstring>* warnings) const = 0;
    virtual bool Render(bool rebuild) = 0;

    virtual void Highlight(EntityId const& id, IView3DEvo* view) = 0;
    virtual void Highlight(RenderId const& id, IView3DEvo* view) = 0;
    virtual void UnHighlight(IView3DEvo* view) const = 0;
    virtual void Select(EntityId const& id, IView3DEvo* view) = 0;
    virtual void Select(RenderId const& id, IView3DEvo* view) = 0;
    virtual void UnSelect(IView3DEvo* view) const = 0;
    virtual bool ZoomTo(EntityId const& id, IView3DEvo* view) = 0;
    virtual bool ZoomTo(RenderId const& id, IView3DEvo* view) = 0;

    virtual std::wstring GetToolTip(RenderId const& id) const = 0;
    virtual void SetTreeView(AViewTree* view) = 0;
    virtual IContentRenderer* GetTreeContentRenderer() = 0;

    virtual bool IsEmpty() const = 0;
    virtual bool HasEditablePart() const = 0;
    virtual bool IsAssembly() const = 0;
    /// The content differs from the file it was read from.
    virtual bool IsModified() const = 0;

    /// Between the three worlds of ids; on false the output is not to be used.
    virtual bool Convert(RenderId const& id, HPS::KeyPath& path) const = 0;
    virtual bool Convert(EntityId const& id, HPS::KeyPath& path) const = 0;
    virtual bool Convert(HPS::KeyPath const& path, EntityId& id) const = 0;
    virtual bool Convert(HPS::KeyPath const& path, RenderId& id) const = 0;
    virtual bool ConvertToEntity(RenderId const& id, EntityId& entity) = 0;
    virtual bool ConvertToRender(EntityId const& entity, RenderId& id) = 0;

    /// What the host's property list shows of a node, as pairs of a label and a text; false when there is
    /// nothing.
    virtual bool GetProperties(RenderId const& id,
                               std::vector<std::pair<std::wstring, std::wstring>>& out) const = 0;
    /// Nodes whose name contains `text` without regard to case, in the order of the tree; false when there is
    /// none.
    virtual bool FindNodes(std::wstring const& text, std::vector<RenderId>& out) const = 0;
    /// Number of distinct parts and of bodies or meshes in them, for the host's status line.
    virtual void GetContentCounts(unsigned long long& parts, unsigned long long& bodies) const = 0;

    virtual bool RayPick(ZELVizCore::Ray const& ray, EntityId& entity) = 0;
};

} // namespace MoraCore
