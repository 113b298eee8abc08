// The road of files into the window: dialogs, drops, loading, reloading.

#include "DocumentTab.h"
#include "MainWindow.h"
#include "StartPage.h"
#include "Thumbnails.h"
#include "TreePanel.h"
#include "panels.h"

#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMimeData>
#include <QProgressBar>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTabWidget>
#include <QTimer>
#include <QToolButton>

#include <chrono>
#include <map>

namespace zelview
{

using MoraCore::MessageType;

namespace
{

QStringList localFiles(QMimeData const& data)
{
    QStringList paths;
    for (QUrl const& url : data.urls())
        if (url.isLocalFile()) paths << url.toLocalFile();
    return paths;
}

} // namespace

void MainWindow::say(QString const& text, MessageType type) const
{
    MoraCore::SessionMgr::Instance().CurrentSession().PrintMessage(text.toStdWString(), type);
}

QString MainWindow::openFilter() const
{
    MoraCore::AViewTree nowhere;
    std::map<QString, QStringList> patterns; // by the name of the format
    QStringList all;
    auto const document = Source.makeDocument(nowhere); // what it gives lives as long as it does
    for (auto const& [extension, name] : document->ValidImportExtensions()) {
        QString const small = QStringLiteral("*.") + QString::fromStdWString(extension).toLower();
        QStringList const both{small, small.toUpper()};
        patterns[QString::fromStdWString(name)] += both;
        all += both;
    }
    QStringList filters{tr("All supported files (%1)").arg(all.join(QLatin1Char(' ')))};
    for (auto const& [name, list] : patterns)
        filters << QStringLiteral("%1 (%2)").arg(name, list.join(QLatin1Char(' ')));
    filters << tr("All files (*)");
    return filters.join(QStringLiteral(";;"));
}

void MainWindow::askFiles(Placement placement)
{
    open(QFileDialog::getOpenFileNames(this, tr("Open"), Remembered.folder(), openFilter()), placement);
}

void MainWindow::open(QStringList const& paths, Placement placement)
{
    for (QString const& path : paths) {
        Files.load({QFileInfo(path).absoluteFilePath(), placement});
        placement = Placement::NewTab; // of several files only the first can take the place of another
    }
}

void MainWindow::reload(DocumentTab& tab)
{
    Files.load({tab.path(), Placement::SameTab, &tab});
}

void MainWindow::showRecent()
{
    QStringList const files = Remembered.recentFiles();
    RecentMenu->clear();
    for (QString const& path : files) {
        QAction* const entry = RecentMenu->addAction(fileIcon(path), QFileInfo(path).fileName());
        entry->setToolTip(path);
        connect(entry, &QAction::triggered, this, [this, path] { open({path}, Placement::NewTab); });
    }
    RecentMenu->addSeparator();
    connect(RecentMenu->addAction(tr("&Forget these files")), &QAction::triggered, this, [this] {
        Remembered.clearRecentFiles();
        showRecent();
    });
    Welcome->setFiles(files);
}

void MainWindow::started(QString const& path)
{
    Progress->setValue(0);
    Progress->show();
    Cancel->show();
    statusBar()->showMessage(tr("Loading %1").arg(QFileInfo(path).fileName()));
}

DocumentTab* MainWindow::addTab()
{
    auto* const tab = new DocumentTab(Source);
    connect(tab, &DocumentTab::fileChanged, this, [this, tab] { fileChanged(*tab); });
    connect(tab, &DocumentTab::cameraChanged, this, &MainWindow::updateActions);
    connect(tab, &DocumentTab::reloadWanted, this, [this, tab] { reload(*tab); });
    connect(tab, &DocumentTab::treeMenuWanted, this,
            [this, tab](auto const& id, QPoint const& position) { showTreeMenu(*tab, id, position); });
    connect(tab, &DocumentTab::nodeChosen, this,
            [this, tab](auto const& id) { Properties->show(tab->document(), id); });
    followHand(*tab);
    return tab;
}

// Some time after the file is shown: whoever asks for a picture waits for it, and the first one takes
// longest.
void MainWindow::keepThumbnail(DocumentTab& tab)
{
    using namespace std::chrono_literals;
    QTimer::singleShot(1s, &tab, [this, &tab, path = tab.path()] {
        if (tab.path() != path) return;
        Thumbnails::store(path, tab.picture());
        showRecent();
    });
}

void MainWindow::finished(LoadRequest const& request, std::shared_ptr<OpenDocument> document, bool read,
                          bool cancelled)
{
    if (!Files.isWaiting()) {
        Progress->hide();
        Cancel->hide();
    }
    statusBar()->clearMessage();
    QString const name = QFileInfo(request.path).fileName();
    if (cancelled) {
        say(tr("%1: loading cancelled").arg(name), MessageType::Information);
        emit loaded(request.path, false);
        return;
    }
    bool const again = request.placement == Placement::SameTab;
    if (again && Tabs->indexOf(request.tab) < 0) return; // closed meanwhile

    DocumentTab* tab =
        request.placement == Placement::CurrentTab ? currentTab() : qobject_cast<DocumentTab*>(request.tab);
    bool shown = read;
    if (read) {
        bool const isNew = !tab;
        if (isNew) {
            tab = addTab();
            Tabs->addTab(tab, name);
        }
        Tabs->setCurrentWidget(tab);
        Pages->setCurrentWidget(Tabs);
        // A view needs its size before it fits the model into it.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        shown = tab->show(document, again);
        if (shown) {
            tab->view().UpdateBackgroundColors(); // a new view starts with those of the program
            if (!again) tab->apply(Given.view);
            Tabs->setTabText(Tabs->indexOf(tab), name);
            Tabs->setTabToolTip(Tabs->indexOf(tab), request.path);
            Remembered.noteOpened(request.path);
            showRecent();
            keepThumbnail(*tab);
        } else if (isNew) {
            delete tab;
        }
    }
    report(*document, shown);
    tabChanged();
    emit loaded(request.path, shown);
}

void MainWindow::report(OpenDocument const& document, bool shown)
{
    std::wstring error;
    std::vector<std::wstring> warnings;
    document.document->GetErrorAndWarnings(&error, &warnings);
    QString const name = QFileInfo(document.path).fileName();
    auto const named = [&](std::wstring const& text) {
        QString const words = QString::fromStdWString(text);
        return words.contains(name) ? words : name + QStringLiteral(": ") + words;
    };
    if (!shown) say(named(error.empty() ? L"the file cannot be read" : error), MessageType::Error);
    constexpr std::size_t Most = 100;
    for (std::size_t i = 0; i < std::min(warnings.size(), Most); ++i)
        say(named(warnings[i]), MessageType::Warning);
    if (warnings.size() > Most)
        say(tr("%1: and %2 more warnings").arg(name).arg(warnings.size() - Most), MessageType::Warning);
}

void MainWindow::closeTab(int index)
{
    delete Tabs->widget(index);
    tabChanged();
}

void MainWindow::fileChanged(DocumentTab& tab)
{
    switch (Remembered.reloadMode()) {
    case ReloadMode::Ask:
        return tab.offerReload();
    case ReloadMode::Silent:
        return reload(tab);
    case ReloadMode::Never:
        return;
    }
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (localFiles(*event->mimeData()).isEmpty()) return;
    event->acceptProposedAction();
}

void MainWindow::dragMoveEvent(QDragMoveEvent* event)
{
    bool const adds = event->modifiers() & Qt::ControlModifier;
    statusBar()->showMessage(adds ? tr("Drop to open in a new tab")
                                  : tr("Drop to open here; with Ctrl in a new tab"));
    event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    statusBar()->clearMessage();
    bool const adds = event->modifiers() & Qt::ControlModifier;
    open(localFiles(*event->mimeData()), adds ? Placement::NewTab : Placement::CurrentTab);
    event->acceptProposedAction();
}

} // namespace zelview
