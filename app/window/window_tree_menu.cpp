// What can be done with a node of the tree.

#include "DocumentTab.h"
#include "MainWindow.h"
#include "TreePanel.h"
#include "ViewHand.h"

#include <QApplication>
#include <QClipboard>
#include <QMenu>

namespace zelview
{

using MoraCore::MessageType;
using MoraCore::TreeItemStyles;
using ZELVizCore::RenderId;
using Kind = MoraCore::TreeBuilder::Kind;

void MainWindow::showTreeMenu(DocumentTab& tab, RenderId const& id, QPoint const& position)
{
    QMenu menu;
    addNodeEntries(menu, tab, id);
    menu.addAction(tr("&Zoom to"), this, [&] { tab.document().ZoomTo(id, &tab.view()); });
    menu.addAction(tr("&Copy name"), this, [&] {
        TreeModel& model = tab.treePanel()->model();
        QApplication::clipboard()->setText(model.indexOf(id).data().toString());
    });
    std::vector<MoraCore::ContextMenuItem> const items = Source.factory().createContextMenuItems();
    if (!items.empty()) menu.addSeparator();
    for (MoraCore::ContextMenuItem const& item : items)
        menu.addAction(QString::fromStdWString(item.label), this, [&] { (*item.action)(id); });
    menu.exec(position);
}

// The model decides what a node can do; only what its kind rules out is left out here.
void MainWindow::addNodeEntries(QMenu& menu, DocumentTab& tab, RenderId const& id)
{
    auto const* const node = tab.treePanel()->itemOf(id);
    if (!node) return;
    if (node->kind == Kind::View || node->kind == Kind::Capture) {
        menu.addAction(tr("&Activate"), this,
                       [&, id] { perform(tab, MenuEntry::ActivateViewOrCapture, id); });
    } else if (node->kind == Kind::Part) {
        menu.addAction(tr("&Make it the document"), this,
                       [&, id] { perform(tab, MenuEntry::MakePartFromReference, id); })
            ->setEnabled(tab.document().IsAssembly());
        menu.addAction(tr("&Save as part…"), this, [&, id] { perform(tab, MenuEntry::SaveAsPart, id); });
    } else if (node->style == TreeItemStyles::Body) {
        menu.addAction(tr("&Show or hide body"), this, [&, id] {
            if (!tab.document().ShowHideBody(id, &tab.view()))
                say(tr("This body cannot be shown or hidden by itself"), MessageType::Error);
        });
        menu.addAction(tr("&Remove body"), this, [&, id] { removeBody(tab, id); })
            ->setEnabled(!tab.document().IsAssembly());
    }
    if (!menu.isEmpty()) menu.addSeparator();
}

void MainWindow::perform(DocumentTab& tab, MenuEntry entry, RenderId const& id)
{
    tab.hand().clearSelection(); // what is selected may be gone afterwards
    if (entry == MenuEntry::MakePartFromReference) tab.stopCutting();
    Source.perform(entry, id);
    tabChanged();
}

void MainWindow::removeBody(DocumentTab& tab, RenderId const& id)
{
    tab.hand().clearSelection();
    tab.stopCutting();
    if (!tab.document().RemoveBodyFromPart(id)) say(tr("The body cannot be removed"), MessageType::Error);
    tabChanged();
}

} // namespace zelview
