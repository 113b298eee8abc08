#include "TreePanel.h"

#include "HostTree.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QTimer>
#include <QTreeView>
#include <QVBoxLayout>

namespace zelview
{

TreePanel::TreePanel(HostTree& tree, QWidget* parent)
    : QWidget(parent),
      Model(tree.GetTreeBuilder()),
      Field(new QLineEdit),
      Count(new QLabel),
      View(new QTreeView)
{
    Field->setPlaceholderText(tr("Search"));
    Field->setAccessibleName(tr("Search in the model tree"));
    Field->setClearButtonEnabled(true);
    Field->installEventFilter(this);
    Count->setAccessibleName(tr("Number of matches"));

    View->setModel(&Model);
    View->setAccessibleName(tr("Model tree"));
    View->setUniformRowHeights(true); // otherwise every row is measured
    View->setContextMenuPolicy(Qt::CustomContextMenu);
    View->setExpandsOnDoubleClick(false);
    View->setSelectionMode(QAbstractItemView::ExtendedSelection);
    View->header()->setStretchLastSection(false);
    View->header()->setSectionResizeMode(TreeModel::NameColumn, QHeaderView::Stretch);
    View->header()->setSectionResizeMode(TreeModel::VisibleColumn, QHeaderView::Fixed);
    View->header()->setMinimumSectionSize(28);
    View->header()->resizeSection(TreeModel::VisibleColumn, 28);
    View->header()->hide();

    auto* const row = new QHBoxLayout;
    row->addWidget(Field);
    row->addWidget(Count);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(4, 4, 4, 4);
    column->addLayout(row);
    column->addWidget(View);
    setTabOrder(Field, View);

    connect(Field, &QLineEdit::textChanged, this, &TreePanel::search);
    connect(View->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](QModelIndex const& index) {
                if (index.isValid()) Current = Model.pathOf(index);
                if (!Silent) emit chosen(index.isValid() ? Current : RenderId());
            });
    connect(View->selectionModel(), &QItemSelectionModel::selectionChanged, this, &TreePanel::tellSelected);
    connect(View, &QTreeView::expanded, this,
            [this](QModelIndex const& index) { Opened.insert(Model.pathOf(index)); });
    connect(View, &QTreeView::collapsed, this,
            [this](QModelIndex const& index) { Opened.erase(Model.pathOf(index)); });
    connect(View, &QTreeView::activated, this, [this](QModelIndex const& index) {
        if (index.isValid()) emit opened(Model.pathOf(index));
    });
    connect(View, &QTreeView::customContextMenuRequested, this, [this](QPoint const& position) {
        QModelIndex const index = View->indexAt(position);
        if (index.isValid()) emit menuWanted(Model.pathOf(index), View->viewport()->mapToGlobal(position));
    });
    connect(&tree, &HostTree::rewritten, this, &TreePanel::refresh);
    connect(&tree, &HostTree::marked, this, [this](RenderId const& id) { Model.refresh(id); });
    connect(&tree, &HostTree::highlighted, this, &TreePanel::mark);
    connect(&tree, &HostTree::highlightCleared, this, [this] {
        QScopedValueRollback const quiet(Silent, true);
        Marks.clear();
        MarksShown = 0;
        View->selectionModel()->clear();
    });
}

void TreePanel::refresh()
{
    QScopedValueRollback const quiet(Silent, true);
    Model.refresh();
    Search.collect(Model);
    View->expandToDepth(0);
    std::set<RenderId> const opened = Opened;
    for (RenderId const& id : opened)
        if (QModelIndex const index = Model.indexOf(id); index.isValid()) View->expand(index);
    if (QModelIndex const index = Model.indexOf(Current);
        index.isValid() && View->isExpanded(index.parent())) {
        View->setCurrentIndex(index);
        View->scrollTo(index);
    }
    search(Field->text());
}

void TreePanel::focusSearch()
{
    Field->setFocus(Qt::ShortcutFocusReason);
    Field->selectAll();
}

void TreePanel::tellSelected()
{
    if (Silent) return;
    std::vector<RenderId> ids;
    for (QModelIndex const& index : View->selectionModel()->selectedRows())
        ids.push_back(Model.pathOf(index));
    emit selected(ids);
}

// The first mark is seen at once. Those that follow are shown together: a view looks at all it has selected
// whenever one more is.
void TreePanel::mark(RenderId const& id)
{
    Marks.push_back(id);
    if (Marks.size() == 1) {
        reveal(id);
        MarksShown = 1;
    } else if (Marks.size() == MarksShown + 1) {
        QTimer::singleShot(0, this, &TreePanel::showMarks);
    }
}

void TreePanel::showMarks()
{
    QScopedValueRollback const quiet(Silent, true);
    QItemSelection selection;
    for (; MarksShown < Marks.size(); ++MarksShown) {
        QModelIndex const index = nearest(Marks[MarksShown]);
        if (!index.isValid()) continue;
        // Neighbours are one range.
        bool const follows = !selection.isEmpty() && selection.back().parent() == index.parent() &&
                             selection.back().bottom() + 1 == index.row();
        if (follows)
            selection.back() = QItemSelectionRange(selection.back().topLeft(), index);
        else
            selection.append(QItemSelectionRange(index));
    }
    View->selectionModel()->select(selection, QItemSelectionModel::Select | QItemSelectionModel::Rows);
    constexpr int fewBranches = 50; // opening more would hide the tree's shape
    if (selection.size() <= fewBranches)
        for (QItemSelectionRange const& range : selection)
            for (QModelIndex above = range.parent(); above.isValid(); above = above.parent())
                View->expand(above);
    if (!selection.isEmpty()) View->scrollTo(selection.back().bottomRight());
}

QModelIndex TreePanel::nearest(RenderId id) const
{
    QModelIndex index = Model.indexOf(id);
    while (!index.isValid() && id.Length() > 0) {
        MoraCore::TreeBuilder::Id const last = id[id.Length() - 1];
        id.SetLength(id.Length() - 1);
        index = Model.indexOf(id);
        // A picture of an annotation knows nothing of the views that list it.
        if (index.isValid() && Model.itemOf(index).kind == MoraCore::TreeBuilder::Kind::Annotations)
            if (QModelIndex const listed = Model.findBelow(index, last); listed.isValid()) return listed;
    }
    return index;
}

QString TreePanel::nameOf(RenderId const& id) const
{
    return nearest(id).data().toString();
}

TreePanel::RenderId TreePanel::nodeOf(RenderId const& id) const
{
    QModelIndex const index = nearest(id);
    return index.isValid() ? Model.pathOf(index) : RenderId();
}

MoraCore::TreeBuilder::Item const* TreePanel::itemOf(RenderId const& id) const
{
    QModelIndex const index = Model.indexOf(id);
    return index.isValid() ? &Model.itemOf(index) : nullptr;
}

void TreePanel::reveal(RenderId const& id)
{
    QModelIndex const index = nearest(id);
    if (!index.isValid()) return;
    QScopedValueRollback const quiet(Silent, true);
    View->setCurrentIndex(index); // which also opens the way to it
    View->scrollTo(index);
}

void TreePanel::search(QString const& text)
{
    Matches = Search.find(text);
    Model.setMarked(Matches);
    View->viewport()->update(); // a view looks only at the rows that it is told of
    Match = -1;
    goToMatch(1);
}

void TreePanel::goToMatch(int step)
{
    int const count = static_cast<int>(Matches.size());
    if (count > 0) {
        Match = Match < 0 && step < 0 ? count - 1 : (Match + step + count) % count;
        QModelIndex const index = Model.indexOf(Matches[static_cast<std::size_t>(Match)]);
        QScopedValueRollback const quiet(Silent, true); // a search must not light up what it passes
        View->setCurrentIndex(index);
        View->scrollTo(index);
    }
    showCount();
}

void TreePanel::showCount()
{
    QString const text = Field->text().isEmpty() ? QString()
                         : Matches.empty()       ? tr("none")
                                                 : tr("%1 of %2").arg(Match + 1).arg(Matches.size());
    Count->setText(text);
}

bool TreePanel::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == Field && event->type() == QEvent::KeyPress) {
        auto const* const key = static_cast<QKeyEvent*>(event);
        switch (key->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            goToMatch(key->modifiers() & Qt::ShiftModifier ? -1 : 1);
            if (QModelIndex const index = View->currentIndex(); index.isValid() && !Matches.empty()) {
                emit chosen(Model.pathOf(index));
                tellSelected();
            }
            return true;
        case Qt::Key_Down:
            View->setFocus(Qt::TabFocusReason);
            return true;
        case Qt::Key_Escape:
            Field->clear();
            return true;
        default:
            break;
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace zelview
