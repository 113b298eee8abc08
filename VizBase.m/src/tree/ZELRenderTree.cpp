#include "ZELRenderTree.h"

#include "instance_flags.h"

#include <algorithm>

namespace ZelVizBase
{

using MoraCore::TreeBuilder;
using ZELVizCore::ToWord;

ZELRenderTree::ZELRenderTree(ZELProductStructure* structure, AViewTree* view)
    : ARendererTree(nullptr, view, nullptr), ProductStructure(structure)
{
}

ZELRenderTree::~ZELRenderTree() = default;

bool ZELRenderTree::preRender()
{
    return GetView() != nullptr;
}

void ZELRenderTree::postRender() {}

bool ZELRenderTree::Render()
{
    if (!preRender()) return false;
    if (RootId == 0) RootId = ZELVizCore::ARenderer::getSignedId(reinterpret_cast<u64>(ProductStructure));
    nodes_ = 0;
    warned_ = 0;
    openAssemblies_.clear();
    TreeBuilder& builder = getTreeBuilder();
    builder.BeginTree();
    builder.BeginRoot(ZELVizCore::Node::GetRootNodeId(), L"ROOT");
    renderRootInstances();
    builder.EndRoot();
    builder.EndTree();
    postRender();
    setRendered(true);
    return true;
}

void ZELRenderTree::renderRootInstances()
{
    if (!ProductStructure || ProductStructure->GetRootInstancesCount() == 0) return;
    std::wstring name = ProductStructure->GetProductName();
    if (name.empty()) makeNameFromTag(RootId, name);
    if (name == L"ZELKNarPSProductDummyReference") name = L"ProductStructure";
    std::wstring productPid;
    ProductStructure->GetPID(productPid);

    TreeBuilder& builder = getTreeBuilder();
    builder.BeginAssembly(RootId, name);
    if (RenderId path; builder.GetCurrentId(path)) {
        ItemPids[RootId] = productPid;
        EntityId entity;
        if (addToLinkMap(nullptr, 0, RootId, path, entity))
            addToTooltipMap(entity, L"Product \"" + name + L"\"");
    }
    ++Depth;
    for (std::size_t i = 0; i < ProductStructure->GetRootInstancesCount(); ++i) {
        InstancePtr instance;
        if (!ProductStructure->GetRootInstance(i, instance) || !instance) continue;
        if (isSuppressed(*instance)) SuppressedBranch = true;
        if (std::wstring pid; instance->GetPID(pid)) ItemPids[instance->GetHashedID()] = pid;
        dispatch(instance);
        SuppressedBranch = false;
    }
    if (auto const& pmi = ProductStructure->GetPMI(); pmi && pmi->HasPMI() && !productPid.empty())
        renderPmi(productPid, pmi.get());
    if (auto const& visu = ProductStructure->GetSG(); visu && visu->HasData() && !productPid.empty())
        renderVisu(nullptr, RootId, productPid, visu);
    builder.EndAssembly();
    --Depth;
}

bool ZELRenderTree::dispatch(InstancePtr const& instance)
{
    auto const& reference = instance->GetReference();
    if (!reference) return false;
    if (++nodes_ > MaxNodes) {
        warnOnce(Limit::Nodes,
                 L"The model tree is cut off after " + std::to_wstring(MaxNodes) + L" instances.");
        return false;
    }
    std::wstring referenceName, instanceName;
    makeReferenceAndInstanceName(instance, referenceName, instanceName);
    u64 const id = instance->GetHashedID();
    u64 const referenceId = reference->GetUniqueID();
    if (reference->IsEmpty()) {
        renderMissingPartInstance(instance, id, reference->GetStorageName(), instanceName, referenceName);
    } else if (reference->IsPart()) {
        renderPartInstance(instance, id, referenceId, instanceName, referenceName);
    } else if (reference->GetInstancesCount() > 0) {
        renderAssemblyInstance(instance, id, referenceId, instanceName, referenceName);
        return true;
    }
    return false;
}

void ZELRenderTree::renderInstance(InstancePtr const& instance, bool suppressed)
{
    if (!instance || !instance->GetReference()) return;
    ZELReference const& reference = *instance->GetReference();
    if (!mayDescend(reference)) return;
    ++Depth;
    openAssemblies_.push_back(&reference);
    bool const branch = SuppressedBranch;
    for (std::size_t i = 0; i < reference.GetInstancesCount(); ++i) {
        InstancePtr child;
        if (!reference.GetInstance(i, child) || !child) continue;
        if (!suppressed && isSuppressed(*child)) SuppressedBranch = true;
        if (dispatch(child)) {
            std::wstring pid;
            if (auto const& pmi = reference.GetPmi(); pmi && pmi->HasPMI() && reference.GetPID(pid))
                renderPmi(pid, pmi.get());
            if (auto const& visu = reference.GetSG();
                visu && visu->HasData() && ProductStructure->GetPID(pid))
                renderVisu(child, child->GetReference()->GetUniqueID(), pid, visu);
        }
        SuppressedBranch = branch;
    }
    openAssemblies_.pop_back();
    --Depth;
}

void ZELRenderTree::renderAssemblyInstance(InstancePtr const& instance, u64 const& id, u64 const& referenceId,
                                           std::wstring const& instanceName,
                                           std::wstring const& referenceName)
{
    if (!instance) return;
    TreeBuilder& builder = getTreeBuilder();
    builder.BeginAssembly(id, instanceName);
    enterInstance(instance, id, referenceId, L"Instance of Assembly Reference \"" + referenceName + L"\"");
    renderInstance(instance, isSuppressed(*instance));
    builder.EndAssembly();
}

void ZELRenderTree::renderPartInstance(InstancePtr const& instance, u64 const& id, u64 const& referenceId,
                                       std::wstring const& instanceName, std::wstring const& referenceName)
{
    if (!instance) return;
    TreeBuilder& builder = getTreeBuilder();
    builder.BeginPart(id, instanceName);
    enterInstance(instance, id, referenceId, L"Instance of Part Reference \"" + referenceName + L"\"");
    auto const& reference = instance->GetReference();
    std::wstring pid;
    if (reference->IsGraphical()) {
        if (auto const& visu = reference->GetSG(); visu && visu->HasData()) {
            reference->GetPID(pid);
            renderVisu(instance, referenceId, pid, visu);
        }
    } else {
        RenderId path;
        renderPartContent(reference, path);
        if (auto const& pmi = reference->GetPmi(); pmi && pmi->HasPMI() && reference->GetPID(pid))
            renderPmi(pid, pmi.get());
    }
    builder.EndPart();
}

void ZELRenderTree::renderMissingPartInstance(InstancePtr const& instance, u64 const& id,
                                              std::wstring storageName, std::wstring const& instanceName,
                                              std::wstring const& referenceName)
{
    TreeBuilder& builder = getTreeBuilder();
    builder.BeginItem(id, instanceName, TreeItemStyles::MissingPart);
    RenderId path;
    EntityId entity;
    if (builder.GetCurrentId(path) && addToLinkMap(instance, 0, id, path, entity))
        addToTooltipMap(entity, L"Instance of Assembly Reference \"" + referenceName + L"\"" +
                                    (storageName.empty() ? L" external file missing"
                                                         : L" is Missing File \"" + storageName + L"\""));
    builder.EndItem();
}

void ZELRenderTree::enterInstance(InstancePtr const& instance, u64 const& id, u64 const& referenceId,
                                  std::wstring const& toolTip)
{
    TreeBuilder& builder = getTreeBuilder();
    RenderId path;
    if (!builder.GetCurrentId(path)) return;
    if (EntityId entity; addToLinkMap(instance, referenceId, id, path, entity))
        addToTooltipMap(entity, toolTip + L" RefID : " + std::to_wstring(referenceId));
    if (SuppressedBranch) {
        builder.SetItemVisible(false);
    } else {
        builder.SetItemVisible(isShown(*instance));
        if (isSuppressed(*instance)) SuppressedBranch = true;
    }
}

bool ZELRenderTree::mayDescend(ZELReference const& reference)
{
    if (std::ranges::find(openAssemblies_, &reference) != openAssemblies_.end()) {
        warnOnce(Limit::Cycle, L"The assembly \"" + reference.GetReferenceName() +
                                   L"\" contains itself: the model tree stops where it comes again.");
        return false;
    }
    if (Depth >= MaxDepth) {
        warnOnce(Limit::Depth, L"The model tree is cut off below " + std::to_wstring(MaxDepth) + L" levels.");
        return false;
    }
    return true;
}

void ZELRenderTree::warnOnce(Limit limit, std::wstring const& text)
{
    unsigned const bit = 1u << static_cast<unsigned>(limit);
    if (warned_ & bit) return;
    warned_ |= bit;
    MoraCore::SessionMgr::Instance().CurrentSession().PrintMessage(text, MoraCore::MessageType::Warning);
}

void ZELRenderTree::makeNameFromTag(u64 const& tag, std::wstring& name) const
{
    name = std::to_wstring(tag);
}

void ZELRenderTree::makeNameFromHidden(InstancePtr const& instance, std::wstring& name) const
{
    if (!instance || !isShown(*instance)) name += L" (hidden)";
}

void ZELRenderTree::makeReferenceAndInstanceName(InstancePtr const& instance, std::wstring& referenceName,
                                                 std::wstring& instanceName) const
{
    if (!instance || !instance->GetReference()) return;
    referenceName = instance->GetReference()->GetReferenceName();
    if (referenceName.empty()) makeNameFromTag(instance->GetReference()->GetUniqueID(), referenceName);
    instanceName = instance->GetInstanceName();
    // Readers give these names to instances that have none in their file.
    if (instanceName.empty() || instanceName == L"ZELKNarPSPartDummyInstance" ||
        instanceName == L"KRMPartDummyInstance")
        instanceName = referenceName;
    if (isHidden(*instance)) instanceName += L" (hidden)";
    if (isSuppressed(*instance)) instanceName += L" (suppressed)";
}

bool ZELRenderTree::addToLinkMap(InstancePtr const& instance, u64 const& referenceId, u64 const& id,
                                 RenderId const& path, EntityId& entity)
{
    return addEntity(EntityType::Instance, instance, referenceId, id, path, entity);
}

bool ZELRenderTree::addToPartMap(InstancePtr const& instance, u64 const& referenceId, u64 const& id,
                                 RenderId const& path, EntityId& entity)
{
    return addEntity(EntityType::PartEntry, instance, referenceId, id, path, entity);
}

bool ZELRenderTree::addEntity(EntityType type, InstancePtr const& instance, u64 const& referenceId,
                              u64 const& id, RenderId const& path, EntityId& entity)
{
    if (path.Length() < 2) return false;
    entity = EntityId(path[path.Length() - 2], type, id);
    bool const known = instance && instance->GetReference();
    EntityReferenceIds.emplace(entity, known ? instance->GetReference()->GetUniqueID() : referenceId);
    EntityRenderIds.emplace(entity, path);
    return true;
}

bool ZELRenderTree::addToTooltipMap(EntityId const& entity, std::wstring toolTip)
{
    ToolTips[entity] = std::move(toolTip);
    return true;
}

std::wstring ZELRenderTree::GetToolTip(RenderId const& id)
{
    std::wstring text;
    EntityId entity;
    if (!Convert(id, entity)) return text;
    if (entity.type == EntityType::Vertex || entity.type == EntityType::Edge ||
        entity.type == EntityType::Face)
        text = std::wstring(ToWord(entity.type)) + L" with ID: " + std::to_wstring(entity.id) +
               L"\nParent Body ID: " + std::to_wstring(entity.parentId);
    if (auto const entry = ToolTips.find(entity); entry != ToolTips.end()) {
        if (!text.empty()) text += L"\n";
        text += entry->second;
    }
    return text;
}

} // namespace ZelVizBase
