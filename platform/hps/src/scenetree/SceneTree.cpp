#include "highlights.h"
#include "tree_children.h"
#include <hps/SprocketPath.h>

namespace HPS
{
namespace
{

// What stands above a root's segment where the canvas shows it, that segment left out. Empty if it does not.
KeyPath wayTo(Canvas const& canvas, Key const& top)
{
    auto const layout = canvas.GetAttachedLayout();
    for (auto layer = layout.GetLayerCount() + 1; layer-- > 0;) {
        // Layers from the front to the back, and then the layout without a view.
        auto const view = layer > 0 ? layout.GetAttachedView(layer - 1) : View();
        for (auto const& model : {view.GetAttachedModel(), Model()}) {
            auto path = SprocketPath(canvas, layout, view, model).GetKeyPath();
            if (!path.Empty() && path.Front() == top) return path.PopFront();
        }
    }
    return {};
}

} // namespace

void SceneTree::SetRoot(std::shared_ptr<SceneTreeItem> const& root)
{
    Flush();
    root_ = root;
    if (root_) root_->Expand();
}

void SceneTree::Flush()
{
    root_.reset();
}

SceneTreeItem::SceneTreeItem(std::shared_ptr<SceneTree> const& tree, Key const& key, ItemType type,
                             UTF8 const& title)
    : tree_(tree), key_(key), type_(type), title_(title), path_(KeyArray{key})
{
}

SceneTreeItem::SceneTreeItem(std::shared_ptr<SceneTree> const& tree, UTF8 const& title, SegmentKey const& top)
    : tree_(tree), title_(title), top_(top)
{
}

bool SceneTreeItem::HasItemType(ItemType family) const
{
    auto const mine = static_cast<std::uint32_t>(type_), wanted = static_cast<std::uint32_t>(family);
    return mine == wanted || (wanted > 0xFFFF && (wanted & 0xFFFF) == 0 && (mine & wanted) == wanted);
}

bool SceneTreeItem::HasChildren() const
{
    if (type_ == ItemType::None) return !top_.Empty();
    bool any = false;
    scene::listChildren(key_, type_, [&](Key const&, ItemType, UTF8 const&) { return !(any = true); });
    return any;
}

std::shared_ptr<SceneTreeItem> SceneTreeItem::AddChild(Key const& key, ItemType type, UTF8 const& title)
{
    return std::make_shared<SceneTreeItem>(GetTree(), key, type, title);
}

void SceneTreeItem::Expand()
{
    if (std::exchange(expanded_, true)) return;
    struct Child {
        Key key;
        ItemType type;
        UTF8 title;
    };
    // Listed first: what AddChild does may change the scene.
    std::vector<Child> found;
    if (type_ != ItemType::None)
        scene::listChildren(key_, type_, [&](Key const& key, ItemType type, UTF8 const& title) {
            found.push_back({key, type, title});
            return true;
        });
    else if (!top_.Empty())
        found.push_back({top_, ItemType::Segment, top_.Name().Empty() ? title_ : top_.Name()});

    for (auto const& [key, type, title] : found) {
        auto const child = AddChild(key, type, title);
        if (!child) continue;
        child->path_ = path_;
        if (path_.Empty() || !(path_.Front() == key)) child->path_.PushFront(key);
        children_.push_back(child);
        if (child->IsHighlighted()) child->Select();
    }
}

void SceneTreeItem::Collapse()
{
    children_.clear();
    expanded_ = false;
}

void SceneTreeItem::ReExpand()
{
    if (!expanded_) return;
    Collapse();
    Expand();
}

bool SceneTreeItem::mayBeHighlighted() const
{
    return GetTree() && (type_ == ItemType::Segment || HasItemType(ItemType::Geometry));
}

KeyPath SceneTreeItem::pathFromWindow() const
{
    auto path = path_;
    if (auto const top = path_.Back(); !top.Empty()) path.Append(wayTo(GetTree()->GetCanvas(), top));
    return path;
}

bool SceneTreeItem::IsHighlighted() const
{
    if (!mayBeHighlighted()) return false;
    auto const window = GetTree()->GetCanvas().GetWindowKey().Index();
    // Mostly nothing is, and then the way up is of no matter.
    return !scene::highlightsOf(window).empty() && scene::isHighlighted(window, pathFromWindow().Keys());
}

void SceneTreeItem::Highlight(HighlightOptionsKit const* options)
{
    if (!mayBeHighlighted()) return;
    bool const before = IsHighlighted();
    GetTree()->GetCanvas().GetWindowKey().GetHighlightControl().Highlight(
        pathFromWindow(), options ? *options : HighlightOptionsKit::GetDefault(), false);
    if (!before && IsHighlighted()) Select();
}

void SceneTreeItem::Unhighlight(HighlightOptionsKit const* options)
{
    if (!IsHighlighted()) return;
    GetTree()->GetCanvas().GetWindowKey().GetHighlightControl().Unhighlight(
        pathFromWindow(), options ? *options : HighlightOptionsKit());
    if (!IsHighlighted()) Unselect();
}

} // namespace HPS
