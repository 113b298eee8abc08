#include "caller_fault.h"
#include <algorithm>
#include <mora/TreeBuilder.h>

namespace MoraCore
{

namespace
{

struct KindRow {
    char const* name;
    TreeItemStyles style;
};

/// By TreeBuilder::Kind.
constexpr KindRow kinds[] = {
    {"Root", TreeItemStyles::Root},
    {"Assembly", TreeItemStyles::Assembly},
    {"Part", TreeItemStyles::Part},
    {"Annotations", TreeItemStyles::Annotations},
    {"PmiGroup", TreeItemStyles::PmiGroup},
    {"Views", TreeItemStyles::Views},
    {"View", TreeItemStyles::View},
    {"Captures", TreeItemStyles::Captures},
    {"Capture", TreeItemStyles::Capture},
    {"Geometry", TreeItemStyles::Geometry},
    {"DrawingSheets", TreeItemStyles::DrawingSheets},
    {"Mesh", TreeItemStyles::Mesh},
    {"Wire", TreeItemStyles::Wire},
    {"PointSet", TreeItemStyles::PointSet},
    {"Item", TreeItemStyles::None},
};
static_assert(std::size(kinds) == static_cast<std::size_t>(TreeBuilder::Kind::Item) + 1);

/// Whether the paths of a node's children go through its id.
bool namesItsChildren(TreeBuilder::Item const& item)
{
    return item.style != TreeItemStyles::AnnotationSet;
}

KindRow const& row(TreeBuilder::Kind kind)
{
    return kinds[static_cast<std::size_t>(kind)];
}

} // namespace

void TreeBuilder::BeginTree()
{
    Clear();
    building_ = true;
}

void TreeBuilder::EndTree()
{
    if (!building_)
        callerFault("TreeBuilder::EndTree", "no tree was begun");
    else if (open_ != NoItem)
        callerFault("TreeBuilder::EndTree",
                    std::string("open node is of kind ") + row(items_[open_].kind).name);
    open_ = NoItem;
    lastSibling_.clear();
    building_ = false;
}

void TreeBuilder::BeginRoot(Id const& id, Name const& name)
{
    open(Kind::Root, id, name);
}
void TreeBuilder::EndRoot()
{
    close(Kind::Root);
}
void TreeBuilder::BeginAssembly(Id const& id, Name const& name)
{
    open(Kind::Assembly, id, name);
}
void TreeBuilder::EndAssembly()
{
    close(Kind::Assembly);
}
void TreeBuilder::BeginPart(Id const& id, Name const& name)
{
    open(Kind::Part, id, name);
}
void TreeBuilder::EndPart()
{
    close(Kind::Part);
}
void TreeBuilder::BeginAnnotations(Id const& id, Name const& name)
{
    open(Kind::Annotations, id, name);
}
void TreeBuilder::EndAnnotations()
{
    close(Kind::Annotations);
}
void TreeBuilder::BeginPmiGroup(Id const& id, Name const& name)
{
    open(Kind::PmiGroup, id, name);
}
void TreeBuilder::EndPmiGroup()
{
    close(Kind::PmiGroup);
}
void TreeBuilder::BeginViews(Id const& id, Name const& name)
{
    open(Kind::Views, id, name);
}
void TreeBuilder::EndViews()
{
    close(Kind::Views);
}
void TreeBuilder::BeginView(Id const& id, Name const& name)
{
    open(Kind::View, id, name);
}
void TreeBuilder::EndView()
{
    close(Kind::View);
}
void TreeBuilder::BeginCaptures(Id const& id, Name const& name)
{
    open(Kind::Captures, id, name);
}
void TreeBuilder::EndCaptures()
{
    close(Kind::Captures);
}
void TreeBuilder::BeginCapture(Id const& id, Name const& name)
{
    open(Kind::Capture, id, name);
}
void TreeBuilder::EndCapture()
{
    close(Kind::Capture);
}
void TreeBuilder::BeginGeometry(Id const& id, Name const& name)
{
    open(Kind::Geometry, id, name);
}
void TreeBuilder::EndGeometry()
{
    close(Kind::Geometry);
}
void TreeBuilder::BeginDrawingSheets(Id const& id, Name const& name)
{
    open(Kind::DrawingSheets, id, name);
}
void TreeBuilder::EndDrawingSheets()
{
    close(Kind::DrawingSheets);
}
void TreeBuilder::BeginMesh(Id const& id, Name const& name)
{
    open(Kind::Mesh, id, name);
}
void TreeBuilder::EndMesh()
{
    close(Kind::Mesh);
}
void TreeBuilder::BeginWire(Id const& id, Name const& name)
{
    open(Kind::Wire, id, name);
}
void TreeBuilder::EndWire()
{
    close(Kind::Wire);
}
void TreeBuilder::BeginPointSet(Id const& id, Name const& name)
{
    open(Kind::PointSet, id, name);
}
void TreeBuilder::EndPointSet()
{
    close(Kind::PointSet);
}

void TreeBuilder::BeginItem(Id const& id, Name const& name, TreeItemStyles const& style)
{
    open(Kind::Item, id, name);
    items_[open_].style = style;
}

void TreeBuilder::EndItem()
{
    close(Kind::Item);
}

void TreeBuilder::SetItemVisible(bool const& visible)
{
    if (open_ != NoItem) items_[open_].visible = visible;
}

void TreeBuilder::MarkItem(std::int32_t index, bool visible)
{
    if (index != NoItem) items_[index].visible = visible;
}

bool TreeBuilder::GetCurrentId(RenderId& id) const
{
    if (open_ == NoItem) return false;
    id = GetPath(open_);
    return true;
}

void TreeBuilder::Clear()
{
    items_.clear();
    lastSibling_.clear();
    open_ = NoItem;
    building_ = false;
}

TreeBuilder::RenderId TreeBuilder::GetPath(std::int32_t index) const
{
    std::vector<Id> values;
    for (std::int32_t at = index; at != NoItem; at = items_[at].parent)
        if (at == index || namesItsChildren(items_[at])) values.push_back(items_[at].id);
    std::ranges::reverse(values);
    return {values, RenderId::OriginEnum::Visualisation};
}

std::int32_t TreeBuilder::Find(RenderId const& id) const
{
    if (id.Length() == 0 || id.Origin != RenderId::OriginEnum::Visualisation || items_.empty()) return NoItem;
    return find(0, id, 0);
}

std::int32_t TreeBuilder::find(std::int32_t first, RenderId const& id, int level) const
{
    for (std::int32_t at = first; at != NoItem; at = items_[at].nextSibling) {
        Item const& item = items_[at];
        bool const matches = item.id == id[level];
        if (matches && level + 1 == id.Length()) return at;
        if (!matches && namesItsChildren(item)) continue;
        std::int32_t const below = find(item.firstChild, id, namesItsChildren(item) ? level + 1 : level);
        if (below != NoItem) return below;
    }
    return NoItem;
}

void TreeBuilder::open(Kind kind, Id id, Name const& name)
{
    if (!building_) {
        callerFault("TreeBuilder::Begin" + std::string(row(kind).name),
                    "called outside BeginTree and EndTree");
        BeginTree();
    }
    auto const index = static_cast<std::int32_t>(items_.size());
    if (lastSibling_.empty()) lastSibling_.push_back(NoItem);
    std::int32_t& last = lastSibling_.back();
    if (last != NoItem)
        items_[last].nextSibling = index;
    else if (open_ != NoItem)
        items_[open_].firstChild = index;
    if (open_ != NoItem) ++items_[open_].childCount;
    last = index;
    items_.push_back({.id = id, .name = name, .parent = open_, .kind = kind, .style = row(kind).style});
    lastSibling_.push_back(NoItem);
    open_ = index;
}

void TreeBuilder::close(Kind kind)
{
    if (open_ == NoItem || items_[open_].kind != kind)
        return callerFault("TreeBuilder::End" + std::string(row(kind).name),
                           open_ == NoItem
                               ? std::string("no node is open")
                               : std::string("open node is of kind ") + row(items_[open_].kind).name);
    lastSibling_.pop_back();
    open_ = items_[open_].parent;
}

} // namespace MoraCore
