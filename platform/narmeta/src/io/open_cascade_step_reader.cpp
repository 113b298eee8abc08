#include "open_cascade_step_reader.h"

#include "open_cascade_guard.h"
#include "place_count.h"
#include "step_text.h"

#include <algorithm>

#include <Message_ProgressScope.hxx>
#include <STEPCAFControl_ExternFile.hxx>
#include <STEPConstruct_ExternRefs.hxx>
#include <StepBasic_ProductDefinition.hxx>
#include <StepData_StepModel.hxx>
#include <StepRepr_NextAssemblyUsageOccurrence.hxx>
#include <TColStd_MapOfTransient.hxx>
#include <TDF_LabelSequence.hxx>

namespace NarMetaInfra
{
namespace
{
// Products that consist of no others but stand in an assembly.
std::vector<Handle(StepBasic_ProductDefinition)> leafProducts(Interface_InterfaceModel const& model)
{
    std::vector<Handle(StepBasic_ProductDefinition)> leaves;
    TColStd_MapOfTransient assemblies, seen;
    std::vector<Handle(StepRepr_NextAssemblyUsageOccurrence)> uses;
    for (Standard_Integer i = 1; i <= model.NbEntities(); ++i) {
        auto const use = Handle(StepRepr_NextAssemblyUsageOccurrence)::DownCast(model.Value(i));
        if (use.IsNull()) continue;
        uses.push_back(use);
        assemblies.Add(use->RelatingProductDefinition());
    }
    for (auto const& use : uses) {
        auto const product = use->RelatedProductDefinition();
        if (!product.IsNull() && !assemblies.Contains(product) && seen.Add(product))
            leaves.push_back(product);
    }
    return leaves;
}
} // namespace

StepReader::StepReader()
{
    SetNameMode(true);
    SetColorMode(true);
    SetLayerMode(true);
    SetSHUOMode(true);
    // These fail as a whole on files whose shapes are good.
    SetGDTMode(false);
    SetViewMode(false);
    SetMatMode(false);
    SetPropsMode(false);
}

// The kernel remembers how reading a file of this name went, and does not try again.
void StepReader::refuseFiles(KernelDocument& document, std::filesystem::path const& folder)
{
    STEPConstruct_ExternRefs references(ChangeReader().WS());
    references.LoadExternRefs();
    for (Standard_Integer i = 1; i <= references.NbExternRefs(); ++i) {
        auto const* const name = references.FileName(i);
        if (!name || !*name) continue;
        std::string text;
        auto const path = folder / name;
        std::error_code error;
        if (!std::filesystem::exists(path, error)) continue;
        bool const isFile = std::filesystem::is_regular_file(path, error);
        if (!isFile || checkStepFile(path, text).refusal) ReadExternFile(name, "", document.document, {});
    }
}

// What fails here fails again with the whole, which reports it.
void StepReader::translateAhead(KernelDocument& document, PartMesher& mesher,
                                std::filesystem::path const& folder, Message_ProgressRange const& range)
{
    if (mesher.threads() < 2) return;
    auto& reader = ChangeReader();
    auto const parts = leafProducts(*reader.Model());
    STEPConstruct_ExternRefs references(reader.WS());
    references.LoadExternRefs();
    auto const fileCount = references.NbExternRefs();
    Message_ProgressScope scope(range, "parts", static_cast<double>(parts.size()) + fileCount);
    for (auto const& part : parts) {
        auto const share = scope.Next();
        if (parts.size() < 2 || !scope.More()) break;
        bool isDone = false;
        static_cast<void>(guarded([&] { isDone = reader.TransferEntity(part, share); }));
        if (isDone) mesher.add(reader.Shape(reader.NbShapes()));
    }
    for (Standard_Integer i = 1; i <= fileCount && scope.More(); ++i) {
        auto const* const name = references.FileName(i);
        auto const share = scope.Next();
        if (name && *name && !references.ProdDef(i).IsNull())
            static_cast<void>(guarded([&] { readExternal(name, document, mesher, folder, share); }));
    }
}

std::string StepReader::refusal()
{
    auto const model = ChangeReader().Model();
    UseGraph uses(static_cast<std::size_t>(model->NbEntities()) + 1);
    std::vector<bool> isUsed(uses.size());
    std::vector<std::size_t> users;
    for (Standard_Integer i = 1; i <= model->NbEntities(); ++i) {
        auto const use = Handle(StepRepr_NextAssemblyUsageOccurrence)::DownCast(model->Value(i));
        if (use.IsNull()) continue;
        auto const whole = model->Number(use->RelatingProductDefinition());
        auto const part = model->Number(use->RelatedProductDefinition());
        if (whole <= 0 || part <= 0) continue;
        users.push_back(static_cast<std::size_t>(whole));
        uses[users.back()].push_back(static_cast<std::size_t>(part));
        isUsed[static_cast<std::size_t>(part)] = true;
    }
    std::vector<std::size_t> roots;
    for (auto const user : users)
        if (!isUsed[user]) roots.push_back(user);
    std::ranges::sort(roots);
    roots.erase(std::ranges::unique(roots).begin(), roots.end());
    // Rings have no beginning; whatever stands in one leads to it.
    return refusalOfPlaces(uses, roots.empty() ? users : roots);
}

std::vector<std::filesystem::path> StepReader::partFiles(std::filesystem::path const& folder)
{
    std::vector<std::filesystem::path> files;
    for (auto entry = ExternFiles().cbegin(); entry != ExternFiles().cend(); ++entry) {
        auto const& file = *entry;
        bool const isRead = !file.IsNull() && !file->GetWS().IsNull();
        auto const* const name = isRead ? file->GetWS()->LoadedFile() : nullptr;
        if (name && *name)
            files.push_back(folder / name);
        else if (!file.IsNull() && !file->GetName().IsNull())
            files.push_back(folder / file->GetName()->ToCString());
    }
    return files;
}

void StepReader::readExternal(std::string const& name, KernelDocument& document, PartMesher& mesher,
                              std::filesystem::path const& folder, Message_ProgressRange const& range)
{
    auto const path = folder / name;
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) return;
    ReadExternFile(name.c_str(), path.c_str(), document.document, range);
    TDF_LabelSequence labels;
    document.shapes()->GetShapes(labels);
    for (auto const& label : labels)
        if (XCAFDoc_ShapeTool::IsSimpleShape(label)) mesher.add(XCAFDoc_ShapeTool::GetShape(label));
}
} // namespace NarMetaInfra
