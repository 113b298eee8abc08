#include "ZELDocument.h"

#include "ZELRenderTree.h"
#include "document_model.h"

namespace ZelVizBase
{

HPS::Model documentModel(ZELDocument const& document)
{
    return document.GetModel();
}

ZELDocument::ZELDocument()
{
    ZELDocument::initialize();
}

ZELDocument::~ZELDocument()
{
    Model.Delete();
}

bool ZELDocument::initialize()
{
    Model = HPS::Factory::CreateModel("");
    if (ZELVizCore::Settings::Default().ClassicalOrientation)
        SetClassicalOrientation();
    else
        SetStandardOrientation();
    initializeImportExportExtensions();
    return true;
}

void ZELDocument::initializeImportExportExtensions() {}

void ZELDocument::SetStandardOrientation()
{
    Model.SetOrientation(HPS::Vector(0, 0, 1), HPS::Vector(1, 0, 0));
}

void ZELDocument::SetClassicalOrientation()
{
    Model.SetOrientation(HPS::Vector(0, 1, 0), HPS::Vector(0, 0, 1));
}

MoraCore::ASession& ZELDocument::Session()
{
    return MoraCore::SessionMgr::Instance().CurrentSession();
}

void ZELDocument::NoteState() {}

void ZELDocument::Undo() {}

void ZELDocument::Redo() {}

bool ZELDocument::IsEmpty() const
{
    return !ProductStructure || ProductStructure->GetRootInstancesCount() == 0;
}

bool ZELDocument::IsAssembly() const
{
    return ProductStructure && ProductStructure->IsAssembly();
}

bool ZELDocument::HasEditablePart() const
{
    if (IsEmpty() || IsAssembly()) return false;
    std::shared_ptr<NarMetaInfra::ZELInstance> instance;
    if (!ProductStructure->GetRootInstance(0, instance)) return false;
    std::shared_ptr<NarMetaInfra::ZELReference> const reference = instance->GetReference();
    if (!reference || !reference->IsPart() || reference->IsGraphical()) return false;
    auto const pmi = reference->GetPmi();
    return !pmi || !pmi->HasPMI();
}

ZELDocument::Extensions const& ZELDocument::ValidImportExtensions() const
{
    return ImportExtensions;
}

ZELDocument::Extensions const& ZELDocument::ValidExportExtensions() const
{
    return ExportExtensions;
}

std::wstring ZELDocument::GetOpenedModelName() const
{
    return OpenedModelName;
}

void ZELDocument::GetErrorAndWarnings(std::wstring* error, std::vector<std::wstring>* warnings) const
{
    if (!IO) return;
    if (error) *error = IO->GetErrorMessage() + ProductStructure->GetErrorMessage();
    if (!warnings) return;
    for (auto const& found : {IO->GetWarningMessages(), ProductStructure->GetWarningMessages()})
        warnings->insert(warnings->end(), found.begin(), found.end());
}

void ZELDocument::GetDocInfoAsString(std::wstring& out) const
{
    if (!ProductStructure) return;
    auto const information = ProductStructure->GetDocumentInformation();
    if (!information) return;
    out += L"Product Name\t\t   :" + ProductStructure->GetProductName() + L"\n";
    information->GetAsString(out);
}

void ZELDocument::SetTreeView(MoraCore::AViewTree* view)
{
    if (Tree) Tree->SetView(view);
}

MoraCore::IContentRenderer* ZELDocument::GetTreeContentRenderer()
{
    return Tree;
}

void ZELDocument::DefineRenderIds(std::vector<unsigned long long>& ids)
{
    if (Tree) Tree->ReverseHighlight(ids);
}

void ZELDocument::UnHighlight()
{
    if (Tree) Tree->UnHighlight();
}

bool ZELDocument::RayPick(Ray const&, EntityId&)
{
    return false;
}

} // namespace ZelVizBase
