#pragma once
#include <cstdint>
#include <mora/RenderId.h>
#include <mora/TreeItemStyles.h>
#include <string>
#include <vector>

namespace MoraCore
{

/// Writes a tree, depth first: a Begin opens a node, the following nodes are its children until the End of
/// the same kind. This class keeps the tree in one flat list that a host reads afterwards; a host with a
/// storage of its own overrides the operations.
///
/// An End that doesn't match the open node, or a Begin outside BeginTree and EndTree, is the caller's fault:
/// an assertion names it, and a build without assertions ignores the End and treats the Begin as a tree's
/// start.
class TreeBuilder
{
public:
    using Id = unsigned long long;
    using Name = std::wstring;
    using RenderId = ZELVizCore::RenderId;

    /// Which Begin made a node.
    enum class Kind : std::uint8_t {
        Root,
        Assembly,
        Part,
        Annotations,
        PmiGroup,
        Views,
        View,
        Captures,
        Capture,
        Geometry,
        DrawingSheets,
        Mesh,
        Wire,
        PointSet,
        Item,
    };

    static constexpr std::int32_t NoItem = -1;
    /// Links are positions in Items().
    struct Item {
        Id id = 0;
        Name name;
        std::int32_t parent = NoItem;
        std::int32_t firstChild = NoItem;
        std::int32_t nextSibling = NoItem;
        std::int32_t childCount = 0;
        Kind kind = Kind::Item;
        bool visible = true;
        TreeItemStyles style = TreeItemStyles::None;
    };

    virtual ~TreeBuilder() = default;

    /// Starts a new tree in place of the one that is there.
    virtual void BeginTree();
    virtual void EndTree();
    virtual void BeginRoot(Id const& id, Name const& name);
    virtual void EndRoot();
    virtual void BeginAssembly(Id const& id, Name const& name);
    virtual void EndAssembly();
    virtual void BeginPart(Id const& id, Name const& name);
    virtual void EndPart();
    virtual void BeginAnnotations(Id const& id, Name const& name);
    virtual void EndAnnotations();
    virtual void BeginPmiGroup(Id const& id, Name const& name);
    virtual void EndPmiGroup();
    virtual void BeginViews(Id const& id, Name const& name);
    virtual void EndViews();
    virtual void BeginView(Id const& id, Name const& name);
    virtual void EndView();
    virtual void BeginCaptures(Id const& id, Name const& name);
    virtual void EndCaptures();
    virtual void BeginCapture(Id const& id, Name const& name);
    virtual void EndCapture();
    virtual void BeginGeometry(Id const& id, Name const& name);
    virtual void EndGeometry();
    virtual void BeginDrawingSheets(Id const& id, Name const& name);
    virtual void EndDrawingSheets();
    virtual void BeginMesh(Id const& id, Name const& name);
    virtual void EndMesh();
    virtual void BeginWire(Id const& id, Name const& name);
    virtual void EndWire();
    virtual void BeginPointSet(Id const& id, Name const& name);
    virtual void EndPointSet();
    virtual void BeginItem(Id const& id, Name const& name, TreeItemStyles const& style);
    virtual void EndItem();
    /// Marks the open node; nodes are visible unless marked. Nothing without an open node.
    virtual void SetItemVisible(bool const& visible);
    /// Marks a node of a tree that is written already; nothing for none.
    void MarkItem(std::int32_t index, bool visible);
    /// Path of the open node, root first; false if there is none.
    virtual bool GetCurrentId(RenderId& id) const;

    /// Drops the tree.
    void Clear();
    /// All nodes, each before its children; the first is the root.
    std::vector<Item> const& Items() const { return items_; }
    /// Path of the node at a position. Sets of annotations only group: what stands below one has its path
    /// from the node above the set on.
    RenderId GetPath(std::int32_t index) const;
    /// Position of the node with that path, NoItem when there is none.
    std::int32_t Find(RenderId const& id) const;

private:
    void open(Kind kind, Id id, Name const& name);
    void close(Kind kind);
    /// Among siblings from `first` on and what is below them, by the values of a path from `level` on.
    std::int32_t find(std::int32_t first, RenderId const& id, int level) const;

    std::vector<Item> items_;
    std::vector<std::int32_t>
        lastSibling_; ///< one per level: the last node at the top, then the last child of each open node
    std::int32_t open_ = NoItem;
    bool building_ = false;
};

} // namespace MoraCore
