#include "TreeModel.h"

#include "DrawnIcon.h"
#include "tree_icons.h"

#include <QFont>
#include <QGuiApplication>
#include <QPalette>

namespace zelview
{

using MoraCore::TreeBuilder;

namespace
{

QIcon const& eye(bool open)
{
    static QIcon const shown =
        drawnIcon("M 1 8 L 5 4.5 L 11 4.5 L 15 8 L 11 11.5 L 5 11.5 Z C 8 8 1.8", Ink::Text);
    static QIcon const hidden = drawnIcon(
        "M 1 8 L 5 11.5 L 11 11.5 L 15 8 M 4 11.5 L 3 13.5 M 8 11.5 L 8 14 M 12 11.5 L 13 13.5", Ink::Red);
    return open ? shown : hidden;
}

} // namespace

TreeModel::TreeModel(TreeBuilder const& tree, QObject* parent) : QAbstractItemModel(parent), Tree(tree)
{
    refresh();
}

void TreeModel::refresh()
{
    beginResetModel();
    std::vector<TreeBuilder::Item> const& items = Tree.Items();
    Children.clear();
    Children.reserve(items.size());
    FirstSlot.assign(items.size(), 0);
    Rows.assign(items.size(), 0);
    Marked.clear();
    for (std::size_t node = 0; node < items.size(); ++node) {
        FirstSlot[node] = static_cast<Position>(Children.size());
        int row = 0;
        for (Position child = items[node].firstChild; child != TreeBuilder::NoItem;
             child = items[static_cast<std::size_t>(child)].nextSibling) {
            Rows[static_cast<std::size_t>(child)] = row++;
            Children.push_back(child);
        }
    }
    endResetModel();
}

void TreeModel::refresh(TreeBuilder::RenderId const& path)
{
    QModelIndex const changed = indexOf(path);
    if (changed.isValid()) emit dataChanged(changed, changed.siblingAtColumn(VisibleColumn));
}

void TreeModel::setMarked(std::vector<Position> marked)
{
    Marked.assign(marked.empty() ? 0 : Tree.Items().size(), false);
    for (Position const position : marked) Marked[static_cast<std::size_t>(position)] = true;
    // A row for all: whoever shows the tree draws it again anyway.
    if (int const rows = rowCount(); rows > 0)
        emit dataChanged(index(0, 0), index(rows - 1, ColumnCount - 1), {Qt::FontRole});
}

QString TreeModel::nameOf(Position position) const
{
    std::wstring const& name = Tree.Items()[static_cast<std::size_t>(position)].name;
    return QString::fromWCharArray(name.data(), static_cast<qsizetype>(name.size()));
}

TreeModel::Position TreeModel::rootPosition() const
{
    return Tree.Items().empty() ? TreeBuilder::NoItem : 0;
}

TreeModel::Position TreeModel::positionOf(QModelIndex const& index) const
{
    return index.isValid() ? static_cast<Position>(index.internalId()) : rootPosition();
}

QModelIndex TreeModel::indexOf(Position position) const
{
    if (position <= 0) return {};
    return createIndex(Rows[static_cast<std::size_t>(position)], NameColumn, static_cast<quintptr>(position));
}

TreeBuilder::RenderId TreeModel::pathOf(QModelIndex const& index) const
{
    return Tree.GetPath(positionOf(index));
}

QModelIndex TreeModel::indexOf(TreeBuilder::RenderId const& path) const
{
    return indexOf(Tree.Find(path));
}

// What stands below a node follows it without a gap.
QModelIndex TreeModel::findBelow(QModelIndex const& above, TreeBuilder::Id id) const
{
    std::vector<TreeBuilder::Item> const& items = Tree.Items();
    Position const top = positionOf(above);
    for (auto at = static_cast<std::size_t>(top) + 1; at < items.size() && items[at].parent >= top; ++at)
        if (items[at].id == id) return indexOf(static_cast<Position>(at));
    return {};
}

TreeBuilder::Item const& TreeModel::itemOf(QModelIndex const& index) const
{
    return Tree.Items()[static_cast<std::size_t>(positionOf(index))];
}

QModelIndex TreeModel::index(int row, int column, QModelIndex const& parent) const
{
    if (row < 0 || row >= rowCount(parent) || column < 0 || column >= ColumnCount) return {};
    Position const slot = FirstSlot[static_cast<std::size_t>(positionOf(parent))] + row;
    return createIndex(row, column, static_cast<quintptr>(Children[static_cast<std::size_t>(slot)]));
}

QModelIndex TreeModel::parent(QModelIndex const& index) const
{
    return index.isValid() ? indexOf(itemOf(index).parent) : QModelIndex();
}

int TreeModel::rowCount(QModelIndex const& parent) const
{
    if (Tree.Items().empty() || parent.column() > NameColumn) return 0;
    return itemOf(parent).childCount;
}

int TreeModel::columnCount(QModelIndex const&) const
{
    return ColumnCount;
}

bool TreeModel::hasChildren(QModelIndex const& parent) const
{
    return rowCount(parent) > 0;
}

QVariant TreeModel::data(QModelIndex const& index, int role) const
{
    if (!index.isValid()) return {};
    Position const position = positionOf(index);
    return index.column() == NameColumn ? nameData(position, role) : visibleData(position, role);
}

QVariant TreeModel::nameData(Position position, int role) const
{
    TreeBuilder::Item const& item = Tree.Items()[static_cast<std::size_t>(position)];
    switch (role) {
    case Qt::DisplayRole:
        return nameOf(position);
    case Qt::DecorationRole:
        return treeIcon(item.style);
    case Qt::ToolTipRole: {
        QString const text = Tips ? Tips(Tree.GetPath(position)) : QString();
        return text.isEmpty() ? description(position) : text;
    }
    case Qt::AccessibleTextRole:
        return description(position);
    case Qt::FontRole:
        if (!Marked.empty() && Marked[static_cast<std::size_t>(position)]) {
            QFont font;
            font.setBold(true);
            return font;
        }
        return {};
    case Qt::ForegroundRole:
        return item.visible ? QVariant()
                            : QGuiApplication::palette().brush(QPalette::Disabled, QPalette::Text);
    default:
        return {};
    }
}

QVariant TreeModel::visibleData(Position position, int role) const
{
    bool const visible = Tree.Items()[static_cast<std::size_t>(position)].visible;
    switch (role) {
    case Qt::DecorationRole:
        return eye(visible);
    case Qt::ToolTipRole:
    case Qt::AccessibleTextRole:
        return visible ? tr("Shown") : tr("Hidden");
    default:
        return {};
    }
}

QString TreeModel::description(Position position) const
{
    TreeBuilder::Item const& item = Tree.Items()[static_cast<std::size_t>(position)];
    QString const text = nameOf(position) + QStringLiteral(", ") + treeStyleName(item.style);
    return item.visible ? text : text + QStringLiteral(", ") + tr("hidden");
}

QVariant TreeModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::DisplayRole && section == NameColumn) return tr("Name");
    if ((role == Qt::ToolTipRole || role == Qt::AccessibleTextRole) && section == VisibleColumn)
        return tr("Visible");
    return {};
}

} // namespace zelview
