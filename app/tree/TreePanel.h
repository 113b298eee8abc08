#pragma once

#include "TreeModel.h"
#include "TreeSearch.h"

#include <QWidget>

#include <set>

class QLabel;
class QLineEdit;
class QTreeView;

namespace zelview
{

class HostTree;

/// The tree of one document with a field to search in it: what matches is marked as the user types, Return
/// and Shift+Return go from one match to the next.
class TreePanel final : public QWidget
{
    Q_OBJECT

public:
    using RenderId = MoraCore::TreeBuilder::RenderId;

    /// @param tree not owned; must outlive the panel
    explicit TreePanel(HostTree& tree, QWidget* parent = nullptr);

    /// The tree was written anew. What was open stays so, as far as it is still there.
    void refresh();
    void focusSearch();
    TreeModel& model() { return Model; }
    /// Opens the way to a node, or to the nearest one above that the tree has, shows and selects it without
    /// telling so.
    void reveal(RenderId const& id);
    // Of a node, or of the nearest one above that the tree has; empty for none.
    QString nameOf(RenderId const& id) const;
    RenderId nodeOf(RenderId const& id) const;
    MoraCore::TreeBuilder::Item const* itemOf(RenderId const& id) const; ///< null: no such node

signals:
    /// The user chose a node; an empty path: none.
    void chosen(ZELVizCore::RenderId const& id);
    /// The user changed which nodes are selected.
    void selected(std::vector<ZELVizCore::RenderId> const& ids);
    /// The user opened a node by a double click or by Return.
    void opened(ZELVizCore::RenderId const& id);
    void menuWanted(ZELVizCore::RenderId const& id, QPoint const& globalPosition);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QModelIndex nearest(RenderId id) const;
    void tellSelected();
    void mark(RenderId const& id);
    void showMarks();
    void search(QString const& text);
    void goToMatch(int step);
    void showCount();

    TreeModel Model;
    TreeSearch Search;
    QLineEdit* Field;
    QLabel* Count;
    QTreeView* View;
    std::vector<TreeModel::Position> Matches;
    int Match = -1;              ///< the one in sight, in Matches
    std::vector<RenderId> Marks; ///< by the document, since the last clearing; shown but for those that wait
    std::size_t MarksShown = 0;
    std::set<RenderId> Opened; ///< by the user
    RenderId Current;          ///< that has the keys
    bool Silent = false;
};

} // namespace zelview
