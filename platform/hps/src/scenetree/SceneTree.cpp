#include "tree_children.h"
#include <algorithm>

namespace HPS
{

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

bool SceneTreeItem::IsHighlighted() const
{
    auto const tree = GetTree();
    bool const mayBe = type_ == ItemType::Segment || HasItemType(ItemType::Geometry);
    return tree && mayBe &&
           std::find(tree->highlighted_.begin(), tree->highlighted_.end(), path_) != tree->highlighted_.end();
}

void SceneTreeItem::Highlight(HighlightOptionsKit const*)
{
    auto const tree = GetTree();
    if (!tree || IsHighlighted() || (type_ != ItemType::Segment && !HasItemType(ItemType::Geometry))) return;
    tree->highlighted_.push_back(path_);
    Select();
}

void SceneTreeItem::Unhighlight(HighlightOptionsKit const*)
{
    if (!IsHighlighted()) return;
    std::erase(GetTree()->highlighted_, path_);
    Unselect();
}

} // namespace HPS
