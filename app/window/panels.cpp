#include "panels.h"

#include "MessageModel.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>

namespace zelview
{

MessagePanel::MessagePanel(MessageModel& model, QWidget* parent) : QTableView(parent)
{
    setModel(&model);
    setAccessibleName(tr("Messages"));
    setSelectionBehavior(SelectRows);
    setShowGrid(false);
    setTabKeyNavigation(false); // Tab leaves the list
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setHighlightSections(false);
    setColumnWidth(MessageModel::TimeColumn,
                   fontMetrics().horizontalAdvance(QStringLiteral("00:00:00")) + 16);
    setColumnWidth(MessageModel::KindColumn, fontMetrics().horizontalAdvance(tr("Information")) + 44);
    connect(&model, &QAbstractItemModel::rowsInserted, this, &QTableView::scrollToBottom);

    setContextMenuPolicy(Qt::ActionsContextMenu);
    auto* const copying = new QAction(tr("Copy"), this);
    auto* const clearing = new QAction(tr("Clear"), this);
    addActions({copying, clearing});
    connect(copying, &QAction::triggered, this, &MessagePanel::copy);
    connect(clearing, &QAction::triggered, &model, &MessageModel::clear);
}

void MessagePanel::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy)) return copy();
    QTableView::keyPressEvent(event);
}

void MessagePanel::copy()
{
    QModelIndexList rows = selectionModel()->selectedRows(MessageModel::TextColumn);
    std::ranges::sort(rows, {}, &QModelIndex::row);
    QStringList lines;
    for (QModelIndex const& row : rows) {
        auto const text = [&](int column) { return row.siblingAtColumn(column).data().toString(); };
        lines << text(MessageModel::TimeColumn) + QLatin1Char('\t') + text(MessageModel::KindColumn) +
                     QLatin1Char('\t') + row.data(Qt::AccessibleTextRole).toString();
    }
    QGuiApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
}

PropertyPanel::PropertyPanel(QWidget* parent) : QTreeWidget(parent)
{
    setAccessibleName(tr("Properties of the selected node"));
    setHeaderLabels({tr("Property"), tr("Value")});
    setRootIsDecorated(false);
    setUniformRowHeights(true);
}

void PropertyPanel::show(MoraCore::IDocumentEvo const& document, ZELVizCore::RenderId const& id)
{
    clear();
    std::vector<std::pair<std::wstring, std::wstring>> properties;
    if (id.Length() == 0 || !document.GetProperties(id, properties)) return;
    QList<QTreeWidgetItem*> items;
    for (auto const& [label, text] : properties)
        items << new QTreeWidgetItem({QString::fromStdWString(label), QString::fromStdWString(text)});
    addTopLevelItems(items);
    resizeColumnToContents(0);
}

} // namespace zelview
