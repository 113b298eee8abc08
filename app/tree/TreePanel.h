#pragma once

#include "TreeModel.h"
#include "TreeSearch.h"

#include <QWidget>

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

    /// The tree was written anew.
    void refresh();
    void focusSearch();
    TreeModel& model() { return Model; }
    /// Opens the way to a node, shows and selects it without telling so.
    void reveal(RenderId const& id);

signals:
    /// The user chose a node; an empty path: none.
    void chosen(ZELVizCore::RenderId const& id);
    /// The user opened a node by a double click or by Return.
    void opened(ZELVizCore::RenderId const& id);
    void menuWanted(ZELVizCore::RenderId const& id, QPoint const& globalPosition);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void search(QString const& text);
    void goToMatch(int step);
    void showCount();

    TreeModel Model;
    TreeSearch Search;
    QLineEdit* Field;
    QLabel* Count;
    QTreeView* View;
    std::vector<TreeModel::Position> Matches;
    int Match = -1; ///< the one in sight, in Matches
    bool Silent = false;
};

} // namespace zelview
