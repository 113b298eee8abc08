// The mouse in the views: how it works, what it points at, and its menu.

#include "DocumentTab.h"
#include "MainWindow.h"
#include "TreePanel.h"
#include "ViewHand.h"
#include "mouse_texts.h"
#include "panels.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QMenu>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTabWidget>

namespace zelview
{

void MainWindow::makeHandLabels()
{
    Pointed = new QLabel;
    Pointed->setAccessibleName(tr("Under the mouse"));
    Pointed->setTextFormat(Qt::PlainText);
    StyleName = new QLabel;
    StyleName->setAccessibleName(tr("Mouse style"));
    statusBar()->addWidget(Pointed, 1);
    statusBar()->addPermanentWidget(StyleName);
    applyHandPreferences();
}

void MainWindow::followHand(DocumentTab& tab)
{
    ViewHand& hand = tab.hand();
    tab.setMouseStyle(Remembered.mouseStyle());
    hand.setHovering(Remembered.hovering());
    connect(&hand, &ViewHand::pointed, this, [this, &tab](MoraCore::PointedAt const& at) {
        Pointed->setText(at.id.Length() > 0 ? pointedText(tab.treePanel(), at) : QString());
    });
    connect(&hand, &ViewHand::menuWanted, this,
            [this, &tab](QPoint const& at) { showViewMenu(tab, tab.view().GetWidget()->mapToGlobal(at)); });
}

void MainWindow::applyHandPreferences()
{
    MoraCore::MouseStyle const& style = Remembered.mouseStyle();
    StyleName->setText(tr(style.name));
    StyleName->setToolTip(mouseTexts(style).join(QLatin1Char('\n')));
    Pointed->clear();
    for (int i = 0; i < Tabs->count(); ++i) {
        auto* const tab = qobject_cast<DocumentTab*>(Tabs->widget(i));
        tab->setMouseStyle(style);
        tab->hand().setHovering(Remembered.hovering());
    }
    updateActions();
}

void MainWindow::showViewMenu(DocumentTab& tab, QPoint const& position)
{
    if (!tab.hasDocument()) return;
    ViewHand& hand = tab.hand();
    ViewHand::RenderIds const selected = hand.selection();
    QMenu menu;
    menu.addAction(action(Command::Fit));
    menu.addAction(action(Command::ZoomSelection));
    QMenu* const views = menu.addMenu(tr("&Look from"));
    for (CommandRow const& row : commandTable())
        if (standardViewOf(row.command)) views->addAction(action(row.command));
    menu.addSeparator();
    menu.addAction(action(Command::SelectParent));
    menu.addAction(action(Command::SelectNone));
    QAction* const copy = menu.addAction(tr("&Copy name"), this, [&tab, &selected] {
        QStringList names;
        for (ZELVizCore::RenderId const& id : selected) names << tab.treePanel()->nameOf(id);
        QApplication::clipboard()->setText(names.join(QLatin1Char('\n')));
    });
    menu.addSeparator();
    QAction* const hide = menu.addAction(tr("&Hide bodies"), &hand, &ViewHand::hideSelectedBodies);
    QAction* const show = menu.addAction(tr("Show hidden &bodies"), &hand, &ViewHand::showHiddenBodies);
    copy->setEnabled(!selected.empty());
    hide->setEnabled(!hand.selectedBodies().empty());
    show->setEnabled(hand.hasHiddenBodies());
    menu.exec(position);
}

QString MainWindow::pointedText(TreePanel const* tree, MoraCore::PointedAt const& at)
{
    constexpr int digits = 6; // what single precision holds
    QStringList numbers;
    for (float const coordinate : at.place)
        numbers << QString::number(static_cast<double>(coordinate), 'g', digits);
    QString const place = numbers.join(QStringLiteral("  "));
    QString const name = tree ? tree->nameOf(at.id) : QString();
    return name.isEmpty() ? place : name + QStringLiteral("    ") + place;
}

} // namespace zelview
