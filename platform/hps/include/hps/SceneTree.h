// The scene as a tree of items for a browser: one level at a time, as its user opens it.
#pragma once
#include <hps/Canvas.h>
#include <hps/HighlightOptionsKit.h>
#include <hps/KeyPath.h>
#include <hps/WindowKey.h>
#include <memory>

namespace HPS
{

class SceneTreeItem;

// The items' common ground: what they show is taken from one canvas.
class SceneTree
{
public:
    // What an item stands for. The upper bits name families; the lower ones number their members: geometry in
    // the order of the groups of geometry, attributes and definitions each in an order of their own.
    enum class ItemType : std::uint32_t {
        None = 0,
        Segment = 1,
        Include = 2,         // of an include key: what it includes stands below it
        StyleSource = 3,     // of no item that is made: a style's source is shown as the segment it is
        StaticModel = 4,     // of no item that is made: a static model has no segment of its own
        AttributeFilter = 5, // of a style or an include

        Geometry = 0x10000, // the family; 0x10001 to 0x10016
        Reference = 0x10014,

        Attribute = 0x20000, // the family
        Portfolio = 0x20001, // one that is pushed on a segment
        Style = 0x20002,     // a style with a source of its own
        NamedStyle = 0x20003,
        MaterialPalette = 0x20004,
        Priority = 0x20005,
        ModellingMatrix = 0x20008,
        UserData = 0x20009,
        TextureMatrix = 0x2000A,
        Conditions = 0x20024,

        Definition = 0x40000, // the family; 0x40001 to 0x40009

        Group = 0x80000, // the family
        GeometryGroup = 0x80200,
        AttributeGroup = 0x80300,
        IncludeGroup = 0x80400,
        StyleGroup = 0x80500,
        PortfolioGroup = 0x80600,
        DefinitionTypeGroup = 0x180000, // the family, with the number of a definition
        GeometryTypeGroup = 0x280000,   // the family, with the number of a geometry
    };

    explicit SceneTree(Canvas const& canvas) : canvas_(canvas) {}
    virtual ~SceneTree() = default;
    SceneTree(SceneTree const&) = delete;
    SceneTree& operator=(SceneTree const&) = delete;

    // Flushes the tree, and opens the new root. Null leaves it empty.
    void SetRoot(std::shared_ptr<SceneTreeItem> const& root);
    std::shared_ptr<SceneTreeItem> GetRoot() const { return root_; }
    // Lets go of all items. What is highlighted on the canvas stays so.
    virtual void Flush();
    Canvas GetCanvas() const { return canvas_; }

private:
    friend class SceneTreeItem;
    Canvas canvas_;
    std::shared_ptr<SceneTreeItem> root_;
};

// One row. It knows its place in the scene, and makes its children when it is opened; closing it lets go of
// them. What it shows is read from the scene each time.
class SceneTreeItem
{
public:
    using ItemType = SceneTree::ItemType;

    // The roots: each has one child, the object's segment. They have no type of item and no key.
    SceneTreeItem(std::shared_ptr<SceneTree> const& tree, Model const& model)
        : SceneTreeItem(tree, "Model", model.GetSegmentKey())
    {
    }
    SceneTreeItem(std::shared_ptr<SceneTree> const& tree, View const& view)
        : SceneTreeItem(tree, "View", view.GetSegmentKey())
    {
    }
    SceneTreeItem(std::shared_ptr<SceneTree> const& tree, Layout const& layout)
        : SceneTreeItem(tree, "Layout", layout.GetSegmentKey())
    {
    }
    SceneTreeItem(std::shared_ptr<SceneTree> const& tree, Canvas const& canvas)
        : SceneTreeItem(tree, "Canvas", canvas.GetWindowKey())
    {
    }
    SceneTreeItem(std::shared_ptr<SceneTree> const& tree, Key const& key, ItemType type, UTF8 const& title);
    virtual ~SceneTreeItem() = default;
    SceneTreeItem(SceneTreeItem const&) = delete;
    SceneTreeItem& operator=(SceneTreeItem const&) = delete;

    std::shared_ptr<SceneTree> GetTree() const { return tree_.lock(); }
    UTF8 GetTitle() const { return title_; }
    ItemType GetItemType() const { return type_; }
    // True for the type itself, and for the family it belongs to.
    bool HasItemType(ItemType family) const;
    // What the item stands for, or belongs to: the segment of an attribute or a group, the portfolio of a
    // definition.
    Key GetKey() const { return key_; }
    // From the item's key up to the root's segment, each key once.
    KeyPath GetKeyPath() const { return path_; }
    // Whether opening would give children. None is made for the answer.
    bool HasChildren() const;
    bool IsExpanded() const { return expanded_; }
    std::vector<std::shared_ptr<SceneTreeItem>> const& GetChildren() const { return children_; }

    // Called by Expand once for each child, in order; makes the item for it. A derived class makes its own.
    virtual std::shared_ptr<SceneTreeItem> AddChild(Key const& key, ItemType type, UTF8 const& title);
    // Does nothing on an open item.
    virtual void Expand();
    virtual void Collapse();
    // Reads the children of an open item anew.
    void ReExpand();

    // Called when the item becomes highlighted or is so no more, and for a child that is when it is made.
    virtual void Select() {}
    virtual void Unselect() {}

    // Highlighting is that of the canvas's window: it outlives the item, all items of one place share it, and
    // a place highlighted by other means is highlighted here. It is for segments and geometry. Without
    // options: the library's own look to highlight, and every highlight of the place to take away.
    bool IsHighlighted() const;
    void Highlight(HighlightOptionsKit const* options = nullptr);
    void Unhighlight(HighlightOptionsKit const* options = nullptr);

private:
    SceneTreeItem(std::shared_ptr<SceneTree> const& tree, UTF8 const& title, SegmentKey const& top);
    bool mayBeHighlighted() const;
    KeyPath pathFromWindow() const;

    std::weak_ptr<SceneTree> tree_;
    Key key_;
    ItemType type_ = ItemType::None;
    UTF8 title_;
    KeyPath path_;
    Key top_; // of a root
    std::vector<std::shared_ptr<SceneTreeItem>> children_;
    bool expanded_ = false;
};

} // namespace HPS
