#pragma once

#include <QAbstractItemModel>

#include <mora/TreeBuilder.h>

#include <functional>
#include <vector>

namespace zelview
{

/// The stored tree of a host as an item model: names with icons, and beside them whether the node is shown.
/// Nothing is kept for a node but where its children stand; text, icon and tool tip are made when they are
/// looked at. The host's own root node is the invisible root.
class TreeModel final : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Column { NameColumn, VisibleColumn, ColumnCount };

    using Position = std::int32_t; ///< in TreeBuilder::Items()
    using ToolTips = std::function<QString(MoraCore::TreeBuilder::RenderId const&)>;

    /// @param tree not owned; must outlive the model, which is to be told of every change by `refresh`
    explicit TreeModel(MoraCore::TreeBuilder const& tree, QObject* parent = nullptr);

    void setToolTips(ToolTips toolTips) { Tips = std::move(toolTips); }
    /// The tree was written anew.
    void refresh();
    /// A node was marked as shown or hidden.
    void refresh(MoraCore::TreeBuilder::RenderId const& path);
    /// Nodes found by a search, marked in the list.
    void setMarked(std::vector<Position> marked);

    std::size_t nodeCount() const { return Tree.Items().size(); }
    QString nameOf(Position position) const;
    Position positionOf(QModelIndex const& index) const;
    QModelIndex indexOf(Position position) const;
    MoraCore::TreeBuilder::RenderId pathOf(QModelIndex const& index) const;
    QModelIndex indexOf(MoraCore::TreeBuilder::RenderId const& path) const;
    /// The first node with this id anywhere below another.
    QModelIndex findBelow(QModelIndex const& above, MoraCore::TreeBuilder::Id id) const;
    MoraCore::TreeBuilder::Item const& itemOf(QModelIndex const& index) const;

    QModelIndex index(int row, int column, QModelIndex const& parent = {}) const override;
    QModelIndex parent(QModelIndex const& index) const override;
    int rowCount(QModelIndex const& parent = {}) const override;
    int columnCount(QModelIndex const& parent = {}) const override;
    bool hasChildren(QModelIndex const& parent = {}) const override;
    QVariant data(QModelIndex const& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    Position rootPosition() const;
    QVariant nameData(Position position, int role) const;
    QVariant visibleData(Position position, int role) const;
    QString description(Position position) const;

    MoraCore::TreeBuilder const& Tree;
    ToolTips Tips;
    std::vector<Position> Children;  ///< those of each node in a row, one node's after the other's
    std::vector<Position> FirstSlot; ///< of each node, in Children
    std::vector<int> Rows;           ///< of each node among its siblings
    std::vector<bool> Marked;
};

} // namespace zelview
