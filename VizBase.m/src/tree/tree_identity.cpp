#include "ZELRenderTree.h"

namespace ZelVizBase
{

using MoraCore::AContent;
using ZELVizCore::EntityId;
using ZELVizCore::EntityType;
using ZELVizCore::RenderId;
using ZELVizCore::ToValue;

namespace
{

RenderId makeId(std::vector<unsigned long long> const& values)
{
    return {values, RenderId::OriginEnum::Visualisation};
}

bool contains(RenderId const& id, EntityType marker)
{
    for (int i = 0; i < id.Length(); ++i)
        if (id[i] == ToValue(marker)) return true;
    return false;
}

/// What the first annotations group of a path, at `index`, says of the last node; false if that is not
/// settled by it.
bool convertFirstGroup(RenderId const& id, int index, EntityId& entity)
{
    constexpr auto group = ToValue(EntityType::Annotations);
    int const length = id.Length();
    if (index + 1 == length) {
        entity = EntityId(group, EntityType::Group, group);
        return true;
    }
    if (index + 2 < length) {
        entity = EntityId(id[index + 1], EntityId::GetTypeFromInt(id[index + 1]), id[index + 2]);
        return true;
    }
    return false;
}

} // namespace

bool ZELRenderTree::Convert(EntityId const& entity, RenderId& id)
{
    id = RenderId();
    auto const copyFrom = [&id](EntityMap const& map, EntityId const& key) {
        auto const entry = map.find(key);
        if (entry == map.end()) return false;
        id = entry->second;
        return true;
    };
    if (ProductStructure && ProductStructure->IsAssembly())
        return (entity.type == EntityType::Instance || entity.type == EntityType::PartEntry) &&
               copyFrom(EntityRenderIds, entity);

    static EntityMap const none;
    EntityMap const& bodies = BodyRenderIds.empty() ? none : BodyRenderIds.begin()->second;
    auto const root = ZELVizCore::Node::GetRootNodeId();
    if (entity.type == EntityType::Vertex || entity.type == EntityType::Edge ||
        entity.type == EntityType::Face) {
        EntityId body = entity;
        body.id = entity.parentId;
        body.type = EntityType::Body;
        if (copyFrom(bodies, body))
            id.AddValue(entity.id);
        else
            id = makeId({root, RootId, 1, entity.id});
        return true;
    }
    if (entity.type == EntityType::Body) {
        if (!copyFrom(bodies, entity)) id = makeId({root, RootId, 1, entity.id});
        return true;
    }
    if (entity.type == EntityType::Visualisation) {
        id = makeId({root, RootId, 1000, ToValue(EntityType::Visualisation), entity.id});
        return true;
    }
    return false;
}

bool ZELRenderTree::Convert(RenderId const& id, EntityId& entity)
{
    CurrentPid.clear();
    entity = EntityId();
    int const length = id.Length();
    if (length < 2) return false;
    u64 above = 0;
    for (int i = 0; i < length; ++i) {
        u64 const value = id[i];
        if (value == ToValue(EntityType::Annotations)) {
            if (convertPmi(id, entity)) return true;
            break;
        }
        if (value == ToValue(EntityType::Visualisation)) {
            entity.type = EntityType::Visualisation;
            break;
        }
        if (value == ToValue(EntityType::Brep)) {
            entity.type = i + 2 == length ? EntityType::Body : EntityType::Brep;
            break;
        }
        above = value;
    }
    if (above > 1) CurrentPid = itemPid(above);
    if (entity.type == EntityType::Undefined) entity.type = EntityType::Instance;
    entity.id = id[length - 1];
    entity.parentId = id[length - 2];
    return true;
}

bool ZELRenderTree::convertPmi(RenderId const& id, EntityId& entity) const
{
    int const length = id.Length();
    for (int i = 1; i < length; ++i) {
        if (id[i] != ToValue(EntityType::Annotations)) continue;
        if (convertFirstGroup(id, i, entity)) return true;
        break;
    }
    for (int i = 0; i < length; ++i) {
        u64 const value = id[i];
        if (value == ToValue(EntityType::Views) || value == ToValue(EntityType::Captures)) {
            // A path that ends at the group names the group itself.
            entity = EntityId(value, EntityId::GetTypeFromInt(value), i + 1 < length ? id[i + 1] : value);
            return true;
        }
        if (value == ToValue(EntityType::Annotations)) {
            if (convertFirstGroup(id, i, entity)) return true;
            entity = EntityId(id[i + 1], EntityId::GetTypeFromInt(id[i + 1]), id[i + 1]);
            return true;
        }
    }
    return false;
}

bool ZELRenderTree::IsInPmiTree(RenderId const& id)
{
    CurrentPid.clear();
    u64 above = 0;
    for (int i = 0; i < id.Length(); ++i) {
        if (id[i] == ToValue(EntityType::Annotations)) {
            if (above >= 2) CurrentPid = itemPid(above);
            return true;
        }
        above = id[i];
    }
    return false;
}

bool ZELRenderTree::IsInFeatureTree(RenderId const& id) const
{
    return contains(id, EntityType::FeatureTree);
}

bool ZELRenderTree::IsInTopologyTree(RenderId const& id) const
{
    return contains(id, EntityType::TopologyTree);
}

bool ZELRenderTree::IsBrepDisplayedInTree() const
{
    return ZELVizCore::Settings::Current().DisplayBrepInTree;
}

bool ZELRenderTree::IsFeaturesDisplayedInTree() const
{
    return ZELVizCore::Settings::Current().DisplayFeaturesInTree;
}

void ZELRenderTree::Highlight(RenderId const& id)
{
    if (!GetView() || IsBrepDisplayedInTree() || IsFeaturesDisplayedInTree()) return;
    RenderId above = id;
    above.SetLength(id.Length() - 1);
    GetView()->HighlightItem(above);
}

void ZELRenderTree::UnHighlight()
{
    if (GetView()) GetView()->ClearHighlight();
}

void ZELRenderTree::Mark(RenderId const& id, bool visible)
{
    if (GetView()) GetView()->MarkItem(id, visible);
}

void ZELRenderTree::ReverseHighlight(std::vector<u64>& values)
{
    values.insert(values.begin(), {ZELVizCore::Node::GetRootNodeId(), RootId});
    if (GetView()) GetView()->HighlightItem(makeId(values));
}

void ZELRenderTree::ClearAllImpl()
{
    RootId = 0;
    EntityRenderIds.clear();
    EntityReferenceIds.clear();
    BodyMap.clear();
    BodyRenderIds.clear();
    ToolTips.clear();
    FeatureNames.clear();
    FeatureIds.clear();
    TopoIds.clear();
    BodyNames.clear();
    PartRenderIds.clear();
    ItemPids.clear();
    CurrentPid.clear();
    Depth = 0;
    if (GetView()) GetView()->ClearItems();
}

bool ZELRenderTree::Activate(RenderId& id)
{
    return id.Length() < 4;
}

bool ZELRenderTree::ConvertToHighlight(RenderId const&, std::vector<RenderId>&)
{
    return false;
}

bool ZELRenderTree::CanRenderType(AContent*)
{
    return false;
}

bool ZELRenderTree::GetBodyList(std::vector<EntityId>&)
{
    return false;
}

void ZELRenderTree::GetFeatureIds(RenderId const&, std::vector<u64>&) {}

void ZELRenderTree::GetTopoIds(RenderId const&, std::vector<u64>&) {}

std::wstring ZELRenderTree::itemPid(u64 id) const
{
    auto const entry = ItemPids.find(id);
    return entry == ItemPids.end() ? std::wstring() : entry->second;
}

} // namespace ZelVizBase
