// Bodies of the model, and parts that become documents of their own.

#include "ZELDocument.h"
#include "ZELObjectMapper.h"
#include "ZELRenderTree.h"
#include "ZELRenderer.h"

#include <algorithm>
#include <filesystem>

namespace ZelVizBase
{

using NarMetaInfra::ZELInstance;
using NarMetaInfra::ZELReference;

namespace
{

constexpr wchar_t const* partExtension = L"XKRM";

/// Puts a condition on a segment, or takes it off; whether it stands there now.
bool toggleCondition(HPS::SegmentKey& segment, HPS::UTF8 const& condition)
{
    HPS::ConditionControl control = segment.GetConditionControl();
    HPS::UTF8Array conditions;
    control.ShowConditions(conditions);
    bool const added = std::erase(conditions, condition) == 0;
    if (added) conditions.push_back(condition);
    control.SetConditions(conditions);
    return added;
}

} // namespace

bool ZELDocument::findInstanceToHideIn(RenderId const& id, std::shared_ptr<ZELInstance>& instance) const
{
    constexpr int levelsBelowInstance = 3; // the body, the number above all bodies, the instance itself
    constexpr int leastIndex = 4;          // an instance in an assembly that may be shared stands deeper
    int index = id.Length() - levelsBelowInstance;
    if (index < 0 || !ProductStructure) return false;
    unsigned long long value = id[index];
    if (!ProductStructure->IsRootInstance(value)) {
        while (ProductStructure->IsInstanceReferencedFromSubAssembly(value)) {
            if (--index < leastIndex) return false;
            value = id[index];
        }
    }
    return ProductStructure->GetInstance(value, instance);
}

bool ZELDocument::ShowHideBody(RenderId const& id, MoraCore::IView3DEvo* view)
{
    EntityId entity;
    if (!view || !Renderer || !ConvertToEntity(id, entity)) return false;
    std::shared_ptr<ZELInstance> instance;
    std::wstring pid;
    HPS::Key key;
    if (!findInstanceToHideIn(id, instance) || !instance->GetPID(pid) ||
        !Renderer->GetObjectMapper()->Get(pid, key))
        return false;
    HPS::SegmentKey segment(key);
    bool const hidden = toggleCondition(segment, HPS::UTF8(("hide_#" + std::to_string(entity.id)).c_str()));
    if (Tree) Tree->Mark(id, !hidden);
    view->Update(MoraCore::UpdateType::Default);
    return true;
}

bool ZELDocument::RemoveBodyFromPart(RenderId const& id)
{
    std::shared_ptr<ZELReference> reference;
    if (id.Length() == 0 || !ProductStructure || ProductStructure->IsAssembly() ||
        ProductStructure->GetUniqueReferencesCount() != 1 ||
        !ProductStructure->GetUniqueReference(0, reference))
        return false;
    if (reference->IsEmpty() || !reference->IsPart() || reference->IsGraphical()) return false;
    return reference->RemoveBodyFromPart(id[id.Length() - 1]);
}

bool ZELDocument::MakePartModelFromReference(unsigned long long id)
{
    std::shared_ptr<ZELReference> reference;
    if (!ProductStructure || !ProductStructure->GetPartReference(id, reference)) return false;
    OpenedModelName.clear();
    if (IO) IO->Reset();
    emptyScene();
    GraphicalMode = false;
    return ProductStructure->MakePartModel(reference) && Render(false);
}

void ZELDocument::MakeFileNameFromReference(unsigned long long id, std::wstring& name)
{
    std::shared_ptr<ZELInstance> instance;
    if (!ProductStructure || !ProductStructure->GetInstance(id, instance) || !instance->GetReference())
        return;
    std::wstring const& stored = instance->GetReference()->GetStorageName();
    if (stored.empty()) return; // the file that the part comes from is not known
    std::filesystem::path path = std::filesystem::absolute(stored).replace_extension(partExtension);
    if (std::filesystem::exists(path)) {
        path.replace_filename(ProductStructure->GetProductName() + L"_" + stored);
        path = std::filesystem::absolute(path).replace_extension(partExtension);
    }
    name = path.wstring();
}

bool ZELDocument::ExportReferenceAsPart(unsigned long long id, wchar_t const* path)
{
    std::shared_ptr<ZELInstance> instance;
    std::wstring pid;
    if (!ProductStructure || !ProductStructure->GetInstance(id, instance) || !instance->GetReference() ||
        !instance->GetReference()->GetPID(pid))
        return false;
    return Export(pid.c_str(), path, nullptr);
}

} // namespace ZelVizBase
