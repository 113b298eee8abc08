// What a host's property list shows of a tree node.

#include "CadDocument.h"
#include "CadTree.h"

namespace ZelCad
{

using NarMetaInfra::BrepCounts;
using NarMetaInfra::ZELInstance;
using NarMetaInfra::ZELReference;
using Properties = std::vector<std::pair<std::wstring, std::wstring>>;

namespace
{

void addCounts(Properties& out, BrepCounts const& counts)
{
    std::pair<wchar_t const*, std::size_t> const rows[] = {
        {L"Bodies", counts.bodies}, {L"Faces", counts.faces},         {L"Edges", counts.edges},
        {L"Points", counts.points}, {L"Triangles", counts.triangles},
    };
    for (auto const& [label, count] : rows) out.emplace_back(label, std::to_wstring(count));
}

void addReference(Properties& out, ZELReference const& reference)
{
    out.emplace_back(L"Reference", reference.GetReferenceName());
    if (!reference.GetStorageName().empty()) out.emplace_back(L"File", reference.GetStorageName());
    if (reference.IsPart() && !reference.IsGraphical()) addCounts(out, reference.GetCounts());
    if (!reference.IsPart()) out.emplace_back(L"Instances", std::to_wstring(reference.GetInstancesCount()));
}

std::wstring colourText(ZELInstance const& instance)
{
    unsigned short red = 0, green = 0, blue = 0;
    if (!instance.GetRGBColor(red, green, blue)) return {};
    return std::to_wstring(red) + L", " + std::to_wstring(green) + L", " + std::to_wstring(blue);
}

void addInstance(Properties& out, ZELInstance const& instance)
{
    bool flag = false;
    if (instance.GetHidden(flag)) out.emplace_back(L"Hidden", flag ? L"yes" : L"no");
    if (instance.GetSuppressed(flag)) out.emplace_back(L"Suppressed", flag ? L"yes" : L"no");
    if (std::wstring const colour = colourText(instance); !colour.empty())
        out.emplace_back(L"Colour", colour);
    if (instance.GetReference()) addReference(out, *instance.GetReference());
}

void addAnnotation(Properties& out, NarMetaPmi::PMIAnnotation const& annotation)
{
    if (!annotation.GetText().empty()) out.emplace_back(L"Text", annotation.GetText());
    out.emplace_back(L"Linked entities", std::to_wstring(annotation.GetLinkedEntities().size()));
    if (annotation.IsHidden()) out.emplace_back(L"Hidden", L"yes");
    for (NarMeta::Property const& own : annotation.GetUserProperties()) out.emplace_back(own.name, own.value);
}

} // namespace

bool CadDocument::GetProperties(RenderId const& id, Properties& out) const
{
    MoraCore::TreeBuilder::Item const* node = OwnTree->FindNode(id);
    if (!node) return false;
    out.emplace_back(L"Name", node->name);
    std::shared_ptr<ZELInstance> instance;
    if (id.Length() == 2) {
        if (auto const& information = ProductStructure->GetDocumentInformation())
            out.insert(out.end(), information->GetLines().begin(), information->GetLines().end());
        addCounts(out, ProductStructure->GetCounts());
    } else if (id.Length() > 2 && ProductStructure->GetInstance(id[id.Length() - 1], instance)) {
        addInstance(out, *instance);
    } else if (std::shared_ptr<NarMetaPmi::PMIAnnotation> annotation; annotationAt(id, annotation)) {
        addAnnotation(out, *annotation);
    }
    return true;
}

bool CadDocument::annotationAt(RenderId const& id,
                               std::shared_ptr<NarMetaPmi::PMIAnnotation>& annotation) const
{
    constexpr auto any = NarMetaPmi::PMIAnnotationType::Any;
    std::shared_ptr<ZELInstance> instance;
    NarMeta::Id const last = id[id.Length() - 1];
    for (int i = 2; i < id.Length(); ++i) {
        if (id[i] == ToValue(ZELVizCore::EntityType::Annotations))
            return instance ? instance->GetReference()->GetPMIAnnotation(last, annotation, any)
                            : ProductStructure->GetPMIAnnotation(last, annotation, any);
        if (!ProductStructure->GetInstance(id[i], instance)) return false;
    }
    return false;
}

} // namespace ZelCad
