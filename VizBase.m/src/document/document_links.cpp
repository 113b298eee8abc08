// What else lights up with a node: the entities that an annotation speaks of, or that make a feature.

#include "ZELDocument.h"
#include "ZELObjectMapper.h"
#include "ZELRenderTree.h"
#include "ZELRenderer.h"
#include "ZELView3D.h"
#include "owner_chain.h"

namespace ZelVizBase
{

using NarMetaInfra::ZELInstance;
using NarMetaInfra::ZELReference;
using NarMetaPmi::LinkedEntity;
using NarMetaPmi::PMIAnnotation;
using ZELVizCore::EntityType;

HPS::KeyPathArray ZELDocument::entityPaths(RenderId const& id, HPS::KeyPath path) const
{
    bool const isFeature = Tree->IsInFeatureTree(id);
    std::shared_ptr<ZELObjectMapper> mapper;
    if (!buildKeyPath(id, path, mapper, isFeature ? EntityType::FeatureTree : EntityType::TopologyTree) ||
        !mapper)
        return {};
    std::vector<unsigned long long> entities;
    isFeature ? Tree->GetFeatureIds(id, entities) : Tree->GetTopoIds(id, entities);
    HPS::KeyPathArray paths;
    for (unsigned long long const entity : entities) {
        HPS::Key key;
        if (!mapper->Get(entity, key)) continue;
        HPS::KeyPath whole = path;
        pushWithOwners(whole, key);
        paths.push_back(whole);
    }
    return paths;
}

bool ZELDocument::findAnnotation(Target const& target, HPS::KeyPath const& path,
                                 std::shared_ptr<PMIAnnotation>& annotation) const
{
    if (!target.reference) return ProductStructure->GetPMIAnnotation(target.pmiId, annotation, target.type);
    return IsAssembly() ? target.reference->GetPMIAnnotation(path, target.pmiId, annotation, target.type)
                        : target.reference->GetPMIAnnotation(target.pmiId, annotation, target.type);
}

bool ZELDocument::pushLinkedEntity(LinkedEntity const& entity,
                                   std::vector<std::shared_ptr<ZELInstance>> const& instances,
                                   ZELReference const& holder, HPS::KeyPath& path) const
{
    for (std::shared_ptr<ZELInstance> const& step : instances) {
        std::shared_ptr<ZELInstance> instance;
        if (!pushInstance(step->GetHashedID(), path, instance) || !pushReference(*instance, path))
            return false;
    }
    HPS::Key key;
    if (!holder.GetLinkedEntityKey(entity, key)) return false;
    pushWithOwners(path, key);
    return true;
}

HPS::KeyPathArray ZELDocument::linkedPaths(PMIAnnotation const& annotation, HPS::KeyPath const& start) const
{
    HPS::KeyPathArray paths;
    for (LinkedEntity const& entity : annotation.GetLinkedEntities()) {
        std::vector<std::shared_ptr<ZELInstance>> instances;
        std::shared_ptr<ZELReference> holder;
        if (!ProductStructure->GetReference(entity, instances, holder)) continue;
        HPS::KeyPath path = start;
        path.PushFront(Renderer->GetRootKey());
        if (pushLinkedEntity(entity, instances, *holder, path)) paths.push_back(path);
    }
    return paths;
}

HPS::KeyPathArray ZELDocument::linkedPaths(PMIAnnotation const& annotation,
                                           std::shared_ptr<ZELReference> const& reference,
                                           HPS::KeyPath const& start) const
{
    constexpr std::size_t shortestName = 2;
    HPS::KeyPathArray paths;
    for (LinkedEntity const& entity : annotation.GetLinkedEntities()) {
        if (entity.second.size() < shortestName) continue;
        std::vector<std::shared_ptr<ZELInstance>> instances;
        std::shared_ptr<ZELReference> holder = reference;
        if (!entity.first.empty() && !ProductStructure->GetReference(reference, entity, instances, holder))
            continue;
        HPS::KeyPath path = start;
        if (pushLinkedEntity(entity, instances, *holder, path)) paths.push_back(path);
    }
    return paths;
}

void ZELDocument::highlightLinkedEntities(std::shared_ptr<PMIAnnotation> const& annotation, ZELView3D* view)
{
    if (!annotation || !view) return;
    for (HPS::KeyPath const& path : linkedPaths(*annotation, view->GetModelKeyPath()))
        view->Highlight(path, false);
}

void ZELDocument::highlightLinkedEntities(HPS::KeyPath const& path,
                                          std::shared_ptr<ZELReference> const& reference,
                                          std::shared_ptr<PMIAnnotation> const& annotation, ZELView3D* view)
{
    if (!annotation || !view) return;
    for (HPS::KeyPath const& linked : linkedPaths(*annotation, reference, path))
        view->Highlight(linked, false);
}

HPS::KeyPathArray ZELDocument::GetCompanions(RenderId const& id, HPS::KeyPath const& start) const
{
    if (!Tree || !Renderer) return {};
    if (Tree->IsInFeatureTree(id) || Tree->IsInTopologyTree(id)) return entityPaths(id, start);
    bool isAnnotation = false; // thousands of other nodes may be asked for at once
    for (int i = 2; i < id.Length(); ++i) isAnnotation |= id[i] == ToValue(EntityType::Annotations);
    if (!isAnnotation) return {};
    HPS::KeyPath path = start;
    Target target;
    std::shared_ptr<PMIAnnotation> annotation;
    if (!findTarget(id, path, target) || !target.isPmi || target.pmiId == 0 ||
        !findAnnotation(target, path, annotation))
        return {};
    return target.reference ? linkedPaths(*annotation, target.reference, path)
                            : linkedPaths(*annotation, start);
}

} // namespace ZelVizBase
