// What the commands of the window do.

#include "DocumentTab.h"
#include "KeySheet.h"
#include "MainWindow.h"
#include "PreferencesDialog.h"
#include "TreePanel.h"
#include "ViewHand.h"
#include "panels.h"

#include <mora/ARendererTree.h>

#include <QDateTime>
#include <QDir>
#include <QDockWidget>
#include <QFileDialog>
#include <QMessageBox>
#include <QStackedWidget>
#include <QStandardPaths>
#include <QStatusBar>
#include <QTabWidget>

#include <algorithm>

namespace zelview
{

using MoraCore::MessageType;
using ZELVizCore::RenderingOptions;
using ZELVizCore::Settings;

namespace
{

/// A command and the switch of the rendering options that it turns.
struct OptionSwitch {
    Command command;
    bool (RenderingOptions::*get)() const;
    void (RenderingOptions::*set)(bool);
};

constexpr OptionSwitch OptionSwitches[] = {
    {Command::ShowFaces, &RenderingOptions::GetDisplayFaces, &RenderingOptions::SetDisplayFaces},
    {Command::ShowEdges, &RenderingOptions::GetDisplayEdges, &RenderingOptions::SetDisplayEdges},
    {Command::ShowVertices, &RenderingOptions::GetDisplayVertices, &RenderingOptions::SetDisplayVertices},
    {Command::ShowTessellation, &RenderingOptions::GetDisplayTessellation,
     &RenderingOptions::SetDisplayTessellation},
    {Command::ShowAnnotations, &RenderingOptions::GetDisplayPMI, &RenderingOptions::SetDisplayPMI},
    {Command::ShowAxes, &RenderingOptions::GetDisplayAxes, &RenderingOptions::SetDisplayAxes},
    {Command::ShowCube, &RenderingOptions::GetDisplayNavigationCube,
     &RenderingOptions::SetDisplayNavigationCube},
};

OptionSwitch const& switchOf(Command command)
{
    return *std::ranges::find(OptionSwitches, command, &OptionSwitch::command);
}

} // namespace

std::span<MainWindow::Operation const> MainWindow::operations()
{
    static constexpr Operation rows[] = {
        {Command::Open, [](MainWindow& window) { window.askFiles(Placement::CurrentTab); }},
        {Command::Add, [](MainWindow& window) { window.askFiles(Placement::NewTab); }},
        {Command::Reload, [](MainWindow& window) { window.reload(*window.currentTab()); }},
        {Command::SavePicture, [](MainWindow& window) { window.savePicture(*window.currentTab()); }},
        {Command::SaveAs, [](MainWindow& window) { window.saveAs(*window.currentTab()); }},
        {Command::CloseTab, [](MainWindow& window) { window.closeTab(window.Tabs->currentIndex()); }},
        {Command::Quit, [](MainWindow& window) { window.close(); }},
        {Command::Find, [](MainWindow& window) { window.findInTree(); }},
        {Command::SelectNone,
         [](MainWindow& window) {
             window.currentTab()->selectNothing();
             window.Properties->clear();
         }},
        {Command::SelectParent, [](MainWindow& window) { window.currentTab()->hand().selectParents(); }},
        {Command::ZoomSelection, [](MainWindow& window) { window.currentTab()->hand().zoomToSelection(); }},
        {Command::Preferences, [](MainWindow& window) { window.showPreferences(); }},
        {Command::Fit, [](MainWindow& window) { window.currentTab()->fit(); }},
        {Command::Projection,
         [](MainWindow& window) {
             window.currentTab()->setParallel(window.action(Command::Projection)->isChecked());
         }},
        {Command::FullScreen,
         [](MainWindow& window) { window.setWindowState(window.windowState() ^ Qt::WindowFullScreen); }},
        {Command::PickRay, [](MainWindow& window) { window.currentTab()->view().TogglePickRayOp(); }},
        {Command::NextTab, [](MainWindow& window) { window.goToTab(1); }},
        {Command::PreviousTab, [](MainWindow& window) { window.goToTab(-1); }},
        {Command::Keys,
         [](MainWindow& window) {
             auto* const sheet = new KeySheet(window.Remembered.mouseStyle(), &window);
             sheet->setAttribute(Qt::WA_DeleteOnClose);
             sheet->show();
         }},
        {Command::About, [](MainWindow& window) { window.about(); }},
    };
    return rows;
}

void MainWindow::run(Command command)
{
    DocumentTab* const tab = currentTab();
    CommandRow const& row = rowOf(command);
    if (row.needsDocument && !(tab && tab->hasDocument())) return;
    if (std::optional<StandardView> const view = standardViewOf(command)) return tab->lookFrom(*view);
    if (row.check == Check::Cut) {
        if (Actions.at(command)->isChecked())
            tab->cut(command);
        else
            tab->stopCutting();
    } else if (*row.viewSlot) {
        tab->callView(row.viewSlot);
    } else if (row.check == Check::Option) {
        if (RenderingOptions* const options = tab->view().GetRenderingOptions())
            (options->*switchOf(command).set)(Actions.at(command)->isChecked());
    } else {
        auto const operation = std::ranges::find(operations(), command, &Operation::command);
        Q_ASSERT_X(operation != operations().end(), "MainWindow::run", row.text);
        operation->perform(*this);
    }
}

bool MainWindow::optionState(Command command) const
{
    RenderingOptions const* const options = currentTab()->view().GetRenderingOptions();
    return options && (options->*switchOf(command).get)();
}

void MainWindow::goToTab(int step)
{
    Tabs->setCurrentIndex((Tabs->currentIndex() + step + Tabs->count()) % Tabs->count());
}

void MainWindow::findInTree()
{
    findChild<QDockWidget*>(QStringLiteral("tree"))->show();
    currentTab()->treePanel()->focusSearch();
}

void MainWindow::savePicture(DocumentTab& tab)
{
    QDir const folder(QStandardPaths::writableLocation(QStandardPaths::PicturesLocation));
    QString const time = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss-zzz"));
    QString const path = folder.filePath(QFileInfo(tab.path()).completeBaseName() + QLatin1Char('-') + time +
                                         QStringLiteral(".png"));
    if (folder.mkpath(QStringLiteral(".")) && tab.picture().save(path)) {
        say(tr("Picture saved as %1").arg(path), MessageType::Information);
        statusBar()->showMessage(tr("Picture saved as %1").arg(path), 10'000);
    } else {
        say(tr("The picture cannot be written to %1").arg(path), MessageType::Error);
    }
}

void MainWindow::saveAs(DocumentTab& tab)
{
    QStringList filters;
    for (auto const& [extension, name] : tab.document().ValidExportExtensions())
        filters << QStringLiteral("%1 (*.%2)")
                       .arg(QString::fromStdWString(name), QString::fromStdWString(extension));
    QString const path = QFileDialog::getSaveFileName(this, tr("Save as"), Remembered.folder(),
                                                      filters.join(QStringLiteral(";;")));
    if (path.isEmpty()) return;
    if (tab.document().Save(path.toStdWString().c_str()))
        say(tr("Saved as %1").arg(path), MessageType::Information);
    else
        say(tr("%1 cannot be written").arg(path), MessageType::Error);
}

void MainWindow::showPreferences()
{
    auto* const dialog = new PreferencesDialog(Remembered, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &PreferencesDialog::settingChanged, this, &MainWindow::applySetting);
    connect(dialog, &PreferencesDialog::themeChanged, &Colours, &Theme::choose);
    connect(dialog, &PreferencesDialog::handChanged, this, &MainWindow::applyHandPreferences);
    dialog->show();
}

void MainWindow::applySetting(Settings::Field const& field)
{
    if (Given.savesSettings) {
        // Only what was changed is saved: the rest may be of this run alone.
        Settings kept;
        (void)kept.Load();
        kept.SetText(field, Settings::Current().GetText(field));
        if (std::wstring const cause = kept.Save(); !cause.empty())
            say(QString::fromStdWString(cause), MessageType::Error);
    }
    for (int i = 0; i < Tabs->count(); ++i) {
        auto* const tab = qobject_cast<DocumentTab*>(Tabs->widget(i));
        tab->applySettings();
        if (!tab->hasDocument()) continue;
        // What is listed in the tree is read from the settings while it is written.
        if (auto* const tree =
                dynamic_cast<MoraCore::ARendererTree*>(tab->document().GetTreeContentRenderer())) {
            tree->ClearAll();
            tree->Render();
        }
    }
}

void MainWindow::about()
{
    MoraCore::APluginFactory const& factory = Source.factory();
    QString products;
    for (std::string const& product : factory.getProducts())
        products += QStringLiteral("\n") + QString::fromStdString(product).trimmed();
    QMessageBox::about(this, tr("About zelview"),
                       tr("zelview %1, a viewer of CAD models.\n\nPlug-in: %2\n%3%4")
                           .arg(QStringLiteral(ZEL_VERSION), QString::fromStdString(factory.getName()),
                                QString::fromStdString(factory.getDescription()), products));
}

} // namespace zelview
