// Looks that hold in one use of an assembly only.
#include "open_cascade_model.h"

#include <algorithm>
#include <set>

#include <TDF_AttributeSequence.hxx>
#include <TDF_LabelSequence.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_GraphNode.hxx>
#include <XCAFDoc_LayerTool.hxx>

namespace NarMetaInfra
{
namespace
{
// What stands for the assembly as such is shared; both have it under their own names.
void copyAnnotations(ZELReference const& from, ZELReference& to)
{
    std::wstring fromPid, toPid;
    from.GetPID(fromPid);
    to.GetPID(toPid);
    if (from.GetPmi()) {
        auto annotations = std::make_shared<PMIContainer>(*from.GetPmi());
        annotations->RenameOwner(fromPid, toPid);
        to.SetPmi(std::move(annotations));
    }
    std::vector<std::shared_ptr<NarMetaVisu::Node>> roots;
    if (!from.GetSG() || !from.GetSG()->GetRootNodes(fromPid, roots)) return;
    auto pictures = std::make_shared<SGContainer>();
    for (auto& root : roots) pictures->AddRootNode(toPid, std::move(root));
    to.SetSG(std::move(pictures));
}
} // namespace

void ModelBuilder::addMaterials(NarMetaVisu::MaterialContainer& container)
{
    Materials.addTo(container);
    if (auto& others = Document.otherFiles)
        others->insert(others->end(), Materials.files().begin(), Materials.files().end());
    Document.warnings.insert(Document.warnings.end(), Materials.warnings().begin(),
                             Materials.warnings().end());
}

// Of the product itself and of what is told apart in it.
void ModelBuilder::readLayers()
{
    auto const tool = XCAFDoc_DocumentTool::LayerTool(Document.document->Main());
    for (LabelMap<ReferencePointer>::Iterator entry(References); entry.More(); entry.Next()) {
        TDF_LabelSequence labels;
        XCAFDoc_ShapeTool::GetSubShapes(entry.Key(), labels);
        labels.Append(entry.Key());
        std::set<std::wstring> names;
        for (auto const& label : labels) {
            TDF_LabelSequence layers;
            tool->GetLayers(label, layers);
            for (auto const& layer : layers)
                if (auto name = Document.nameOf(layer); !name.empty()) names.insert(std::move(name));
        }
        if (names.empty()) continue;
        auto properties = entry.Value()->GetUserProperties();
        for (auto const& name : names) properties.push_back({L"Layer", name});
        entry.Value()->SetUserProperties(std::move(properties));
    }
}

void ModelBuilder::applyOverrides()
{
    for (LabelMap<InstancePointer>::Iterator entry(Instances); entry.More(); entry.Next()) {
        TDF_AttributeSequence usages;
        if (!XCAFDoc_ShapeTool::GetAllComponentSHUO(entry.Key(), usages)) continue;
        for (auto const& usage : usages) {
            // Only a usage that nothing stands above starts a chain.
            TDF_LabelSequence uppers, nexts;
            auto const label = usage->Label();
            if (XCAFDoc_ShapeTool::GetSHUOUpperUsage(label, uppers) && !uppers.IsEmpty()) continue;
            if (!XCAFDoc_ShapeTool::GetSHUONextUsage(label, nexts)) continue;
            auto const style = labelStyle(Document, label);
            for (auto const& next : nexts) applyOverride(next, entry.Value(), entry.Key(), style);
        }
    }
    hideUses();
}

void ModelBuilder::hideUses()
{
    for (auto const& source : Document.stepSources) {
        for (auto const& way : source.hiddenUses) {
            InstancePointer instance;
            for (int const use : way) {
                auto const component = source.uses.find(use);
                auto const* const shared =
                    component == source.uses.end() ? nullptr : Instances.Seek(component->second);
                instance = !shared ? nullptr : use == way.front() ? *shared : ownInstance(instance, *shared);
                if (!instance) break;
            }
            if (instance) instance->SetHidden(true);
        }
    }
}

// A usage's label stands below the component that it speaks of; the first one of a chain has the look of the
// last component.
void ModelBuilder::applyOverride(TDF_Label const& next, InstancePointer const& upper,
                                 TDF_Label const& upperComponent, ShapeStyle const& style)
{
    auto component = next;
    while (!component.IsNull() && !component.IsRoot() && !Instances.IsBound(component))
        component = component.Father();
    auto const* const shared = Instances.Seek(component);
    if (!shared || component.IsEqual(upperComponent)) return;
    auto const own = ownInstance(upper, *shared);
    if (!own) return;
    TDF_LabelSequence further;
    if (XCAFDoc_ShapeTool::GetSHUONextUsage(next, further) && !further.IsEmpty()) {
        for (auto const& label : further) applyOverride(label, own, component, style);
        return;
    }
    if (style.colour) own->SetColour(style.colour);
    if (style.alpha) own->SetAlphaColor(style.alpha);
    if (style.hidden) own->SetHidden(true);
}

// The instance inside this use of its assembly: an assembly that stands elsewhere too is copied for it.
ModelBuilder::InstancePointer ModelBuilder::ownInstance(InstancePointer const& upper,
                                                        InstancePointer const& shared)
{
    auto const assembly = upper->GetReference();
    auto const& instances = assembly->GetInstances();
    std::wstring sharedPid;
    shared->GetPID(sharedPid);
    auto const found = std::ranges::find_if(instances, [&](InstancePointer const& instance) {
        std::wstring pid;
        return instance->GetPID(pid) && (pid == sharedPid || pid.starts_with(sharedPid + L"@"));
    });
    if (found == instances.end()) return nullptr;
    auto const position = static_cast<std::size_t>(found - instances.begin());
    if (Model.GetOccurrencesCount(*assembly) <= 1) return *found;

    std::wstring upperPid, assemblyPid;
    upper->GetPID(upperPid);
    assembly->GetPID(assemblyPid);
    auto const copy = Model.AddReference(ZELReference::Kind::Assembly, unique(assemblyPid + L"@" + upperPid),
                                         assembly->GetReferenceName());
    copy->SetStorageName(assembly->GetStorageName());
    copy->SetUserProperties(assembly->GetUserProperties());
    copyAnnotations(*assembly, *copy);
    for (auto const& instance : instances) {
        std::wstring pid;
        instance->GetPID(pid);
        auto const made = std::make_shared<ZELInstance>(
            instance->GetReference(), unique(pid + L"@" + upperPid), instance->GetInstanceName());
        made->SetTransform(instance->GetMatrix());
        made->SetColour(instance->GetColours().GetColour());
        made->SetAlphaColor(instance->GetColours().GetAlpha());
        bool hidden = false;
        if (instance->GetHidden(hidden)) made->SetHidden(hidden);
        copy->AddInstance(made);
    }
    upper->SetReference(copy);
    Model.NoteNewPids();
    return copy->GetInstances()[position];
}
} // namespace NarMetaInfra
