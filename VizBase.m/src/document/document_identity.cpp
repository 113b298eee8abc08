// Between tree ids, entity ids and key paths.

#include "ZELDocument.h"
#include "ZELObjectMapper.h"
#include "ZELRenderTree.h"
#include "ZELRenderer.h"
#include "ZELView3D.h"
#include "owner_chain.h"
#include "tagged_segments.h"

#include <algorithm>
#include <array>

namespace ZelVizBase
{

using NarMetaInfra::ZELInstance;
using NarMetaPmi::PMIAnnotationType;
using ZELVizCore::EntityType;
using ZELVizCore::RenderId;
using ZELVizCore::ToValue;

namespace
{

struct PmiGroup {
    EntityType number;
    PMIAnnotationType type;
};
/// The numbers at which an id of annotations may end, behind the annotation's own.
constexpr std::array PmiGroups{
    PmiGroup{EntityType::Views, PMIAnnotationType::Any},
    PmiGroup{EntityType::Note, PMIAnnotationType::Note},
    PmiGroup{EntityType::Datum, PMIAnnotationType::Datum},
    PmiGroup{EntityType::Dimension, PMIAnnotationType::Dimension},
    PmiGroup{EntityType::GeometricTolerance, PMIAnnotationType::GeometricTolerance},
    PmiGroup{EntityType::Roughness, PMIAnnotationType::Roughness}};

/// Of an id whose last value but one is there too.
unsigned long long annotationOf(RenderId const& id, PMIAnnotationType& type)
{
    unsigned long long const last = id[id.Length() - 1];
    auto const group =
        std::ranges::find(PmiGroups, last, [](PmiGroup const& g) { return ToValue(g.number); });
    if (group == PmiGroups.end()) return last;
    if (group->type != PMIAnnotationType::Any) type = group->type;
    return id[id.Length() - 2];
}

/// The first include of an instance, if it shows this segment.
bool findInclude(HPS::SegmentKey const& instance, HPS::Key const& reference, HPS::Key& include)
{
    HPS::SearchResults found;
    instance.Find(HPS::Search::Type::Includes, HPS::Search::Space::SegmentOnly, found);
    include = found.GetIterator().GetItem();
    return found.GetCount() > 0 && HPS::IncludeKey(include).GetTarget() == HPS::SegmentKey(reference);
}

} // namespace

unsigned long long ZELDocument::modelId() const
{
    return ZELVizCore::ARenderer::getSignedId(reinterpret_cast<unsigned long long>(ProductStructure));
}

bool ZELDocument::Convert(HPS::KeyPath const& path, RenderId& id) const
{
    if (!Tree || !Renderer) return false;
    std::vector<unsigned long long> values = treeIdsOf(path);
    values.insert(values.begin(), {ZELVizCore::Node::GetRootNodeId(), modelId()});
    id = RenderId(values, RenderId::OriginEnum::Visualisation);
    return true;
}

bool ZELDocument::Convert(HPS::KeyPath const& path, EntityId& entity) const
{
    RenderId id;
    return Convert(path, id) && Tree->Convert(id, entity);
}

bool ZELDocument::Convert(EntityId const& entity, HPS::KeyPath& path) const
{
    RenderId id;
    return Tree && Renderer && Tree->Convert(entity, id) && Convert(id, path);
}

bool ZELDocument::Convert(RenderId const& id, HPS::KeyPath& path) const
{
    MoraCore::IView3DEvo const* const evo = Session().View3DEvo();
    auto const* const view = evo ? static_cast<ZELView3D const*>(evo->GetViewImpl()) : nullptr;
    if (!Tree || !Renderer || !view) return false;
    path = view->GetModelKeyPath();
    Target target;
    if (!findTarget(id, path, target)) return false;
    target.reference = nullptr; // annotations of references have no place of their own here
    if (HPS::Key key; target.isPmi && showAnnotationKey(target, key)) pushWithOwners(path, key);
    return true;
}

bool ZELDocument::findTarget(RenderId const& id, HPS::KeyPath& path, Target& target) const
{
    return buildKeyPath(id, path, target.isPmi, target.pmiId, target.instance, target.reference, target.type);
}

bool ZELDocument::showAnnotationKey(Target const& target, HPS::Key& key) const
{
    if (target.pmiId == 0) return false;
    if (GraphicalMode) return Renderer->GetObjectMapper()->Get(target.pmiId, key);
    std::shared_ptr<NarMetaPmi::PMIAnnotation> annotation;
    if (target.reference) return target.reference->GetPMIKey(target.pmiId, annotation, key, target.type);
    return ProductStructure->GetPMIKey(target.pmiId, key, target.type);
}

std::wstring ZELDocument::GetToolTip(RenderId const& id) const
{
    if (!Tree) return {};
    std::wstring text = Tree->GetToolTip(id);
    if (!text.empty()) return text;
    HPS::KeyPath path;
    Target target;
    if (!findTarget(id, path, target) || !target.isPmi || target.pmiId == 0) return text;
    if (target.reference)
        target.reference->GetPMIToolTip(target.pmiId, text);
    else
        ProductStructure->GetPMIToolTip(target.pmiId, text);
    return text;
}

bool ZELDocument::buildKeyPath(RenderId const& id, HPS::KeyPath& path, bool& isPmi, unsigned long long& pmiId,
                               std::shared_ptr<NarMetaInfra::ZELInstance>& instance,
                               std::shared_ptr<NarMetaInfra::ZELReference>& reference,
                               PMIAnnotationType& type) const
{
    isPmi = false;
    pmiId = 0;
    type = PMIAnnotationType::Any;
    if (id.Length() < 2 || !Renderer || !ProductStructure) return false;
    path.PushFront(Renderer->GetRootKey());
    ZELObjectMapper const& scene = *Renderer->GetObjectMapper();
    int const last = id.Length() - 1;
    for (int i = 2; i <= last; ++i) {
        HPS::Key key;
        if (id[i] == ToValue(EntityType::Annotations)) {
            isPmi = true;
            if (i != last) pmiId = annotationOf(id, type);
            return true;
        }
        if (id[i] == ToValue(EntityType::Brep) || id[i] == ToValue(EntityType::Visualisation)) {
            if (i == last) return true;
            bool const brep = id[i] == ToValue(EntityType::Brep);
            if (brep && (!reference || !reference->GetObjectMapper())) return false;
            if (!(brep ? *reference->GetObjectMapper() : scene).Get(id[last], key)) return false;
            pushWithOwners(path, key);
            return true;
        }
        if (!pushInstance(id[i], path, instance)) return false;
        reference = instance->GetReference();
        if (!pushReference(*instance, path)) return false;
    }
    return true;
}

bool ZELDocument::pushInstance(unsigned long long id, HPS::KeyPath& path,
                               std::shared_ptr<ZELInstance>& instance) const
{
    std::wstring pid;
    HPS::Key key;
    if (!ProductStructure->GetInstance(id, instance) || !instance->GetPID(pid) ||
        !Renderer->GetObjectMapper()->Get(pid, key))
        return false;
    path.PushFront(key);
    return true;
}

bool ZELDocument::pushReference(ZELInstance const& instance, HPS::KeyPath& path) const
{
    std::wstring pid;
    HPS::Key segment, include;
    if (!instance.GetReference() || !instance.GetReference()->GetPID(pid) ||
        !Renderer->GetObjectMapper()->Get(pid, segment) ||
        !findInclude(HPS::SegmentKey(path.Front()), segment, include))
        return false;
    path.PushFront(include).PushFront(segment);
    return true;
}

bool ZELDocument::buildKeyPath(RenderId const& id, HPS::KeyPath& path,
                               std::shared_ptr<ZELObjectMapper>& mapper, EntityType const& stopType) const
{
    if (id.Length() < 2 || !Renderer || !ProductStructure) return false;
    path.PushFront(Renderer->GetRootKey());
    int const last = id.Length() - 1;
    for (int i = 2; i <= last; ++i) {
        if (id[i] == ToValue(EntityType::Brep)) {
            HPS::Key body;
            if (i == last || !mapper || !mapper->Get(id[i + 1], body)) return false;
            pushWithOwners(path, body);
            if (i + 2 <= last && id[i + 2] == ToValue(stopType)) return true;
            continue;
        }
        std::shared_ptr<ZELInstance> instance;
        if (!pushInstance(id[i], path, instance)) return false;
        mapper = instance->GetReference() ? instance->GetReference()->GetObjectMapper() : nullptr;
        // At the end the path stays at the instance; what stands below it is for the caller.
        if (i != last) pushReference(*instance, path);
    }
    return true;
}

} // namespace ZelVizBase
