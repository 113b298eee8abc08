#include "MainWindow.h"

#include "DocumentTab.h"
#include "DrawnIcon.h"
#include "StartPage.h"
#include "TreePanel.h"
#include "panels.h"

#include <mora/ACamera.h>

#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QProgressBar>
#include <QScreen>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTabWidget>
#include <QToolBar>
#include <QToolButton>

namespace zelview
{

MainWindow::MainWindow(Plugin& plugin, Start start)
    : Source(plugin),
      Given(std::move(start)),
      Session(*this),
      Colours(Remembered.theme()),
      Files(plugin, Given.guard),
      Pages(new QStackedWidget),
      Welcome(new StartPage),
      Tabs(new QTabWidget),
      Trees(new QStackedWidget),
      Properties(new PropertyPanel)
{
    setWindowTitle(QStringLiteral("zelview"));
    setWindowIcon(QIcon::fromTheme(QStringLiteral("zelview")));
    setAcceptDrops(true);
    setDockOptions(AnimatedDocks | AllowTabbedDocks | AllowNestedDocks);

    Tabs->setDocumentMode(true);
    Tabs->setTabsClosable(true);
    Tabs->setMovable(true);
    Tabs->setAccessibleName(tr("Documents"));
    Pages->addWidget(Welcome);
    Pages->addWidget(Tabs);
    setCentralWidget(Pages);
    connect(Tabs, &QTabWidget::currentChanged, this, &MainWindow::tabChanged);
    connect(Tabs, &QTabWidget::tabCloseRequested, this, &MainWindow::closeTab);
    connect(Welcome, &StartPage::openWanted, this, [this] { run(Command::Open); });
    connect(Welcome, &StartPage::chosen, this,
            [this](QString const& path) { open({path}, Placement::NewTab); });

    connect(&Files, &Loader::started, this, &MainWindow::started);
    connect(&Files, &Loader::progressed, this,
            [this](double done) { Progress->setValue(qRound(done * Progress->maximum())); });
    connect(&Files, &Loader::finished, this, &MainWindow::finished);

    makeActions();
    makeDocks();
    makeMenus();
    makeStatusBar();
    showRecent();
    restoreLayout();
    tabChanged();
}

MainWindow::~MainWindow()
{
    Tabs->disconnect(this);
    while (Tabs->count() > 0) delete Tabs->widget(0);
}

QAction* MainWindow::makeAction(CommandRow const& row)
{
    auto* const made = new QAction(QString::fromUtf8(row.text), this);
    QList<QKeySequence> keys;
    for (QString const& key : QString::fromLatin1(row.keys).split(QLatin1Char(' '), Qt::SkipEmptyParts))
        keys << QKeySequence(key);
    made->setShortcuts(keys);
    if (*row.drawing) made->setIcon(drawnIcon(std::string(row.drawing) + ' ' + row.side));
    made->setCheckable(row.check != Check::None);
    if (!keys.isEmpty())
        made->setToolTip(made->text().remove(QLatin1Char('&')) + QStringLiteral(" (") +
                         keys.front().toString(QKeySequence::NativeText) + QLatin1Char(')'));
    connect(made, &QAction::triggered, this, [this, command = row.command] { run(command); });
    addAction(made); // keys work also while the menu bar is hidden
    return made;
}

void MainWindow::makeActions()
{
    auto* const modes = new QActionGroup(this);
    auto* const cuts = new QActionGroup(this);
    cuts->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    for (CommandRow const& row : commandTable()) {
        QAction* const made = makeAction(row);
        if (row.check == Check::Mode) modes->addAction(made);
        if (row.check == Check::Cut) cuts->addAction(made);
        Actions[row.command] = made;
    }
    Actions[Command::ModeGouraud]->setChecked(true);
}

void MainWindow::makeMenus()
{
    auto* const bar = addToolBar(tr("Tool bar"));
    bar->setObjectName(QStringLiteral("tools"));
    bar->setAccessibleName(tr("Tool bar"));
    std::map<Menu, QMenu*> menus;
    for (CommandRow const& row : commandTable()) {
        QMenu*& menu = menus[row.menu];
        if (!menu) menu = menuBar()->addMenu(QString::fromUtf8(titleOf(row.menu)));
        if (row.separated) menu->addSeparator();
        menu->addAction(Actions[row.command]);
        if (row.command == Command::Add) RecentMenu = menu->addMenu(tr("Open &recent"));
        if (!row.onToolBar) continue;
        if (row.separated) bar->addSeparator();
        bar->addAction(Actions[row.command]);
    }
    for (QObject* const child : bar->children())
        if (auto* const button = qobject_cast<QToolButton*>(child)) button->setFocusPolicy(Qt::TabFocus);
    RecentMenu->setToolTipsVisible(true);
    WindowMenu = menus[Menu::Window];
    WindowMenu->addSeparator();
    for (QDockWidget* const dock : findChildren<QDockWidget*>())
        WindowMenu->addAction(dock->toggleViewAction());
    WindowMenu->addAction(bar->toggleViewAction());
}

void MainWindow::makeDocks()
{
    struct DockRow {
        QString title;
        char const* name;
        QWidget* content;
        Qt::DockWidgetArea area;
    };
    DockRow const rows[] = {
        {tr("Model tree"), "tree", Trees, Qt::LeftDockWidgetArea},
        {tr("Properties"), "properties", Properties, Qt::LeftDockWidgetArea},
        {tr("Messages"), "messages", new MessagePanel(Messages), Qt::BottomDockWidgetArea},
    };
    for (DockRow const& row : rows) {
        auto* const dock = new QDockWidget(row.title);
        dock->setObjectName(QString::fromLatin1(row.name));
        dock->setWidget(row.content);
        addDockWidget(row.area, dock);
    }
    resizeDocks({findChild<QDockWidget*>(QStringLiteral("tree")),
                 findChild<QDockWidget*>(QStringLiteral("properties"))},
                {500, 160}, Qt::Vertical);
    resizeDocks({findChild<QDockWidget*>(QStringLiteral("tree"))}, {300}, Qt::Horizontal);
    resizeDocks({findChild<QDockWidget*>(QStringLiteral("messages"))}, {110}, Qt::Vertical);
    connect(&Messages, &MessageModel::added, this, [this](MoraCore::MessageType type, QString const& text) {
        if (type != MoraCore::MessageType::Information) statusBar()->showMessage(text, 10'000);
    });
}

void MainWindow::makeStatusBar()
{
    Progress = new QProgressBar;
    Progress->setRange(0, 1000);
    Progress->setMaximumWidth(220);
    Progress->setAccessibleName(tr("Progress of loading"));
    Cancel = new QToolButton;
    Cancel->setText(tr("Cancel"));
    Cancel->setAccessibleName(tr("Cancel loading"));
    Cancel->setFocusPolicy(Qt::StrongFocus);
    connect(Cancel, &QToolButton::clicked, &Files, &Loader::cancel);
    Counts = new QLabel;
    Counts->setAccessibleName(tr("Content of the document"));
    statusBar()->addPermanentWidget(Progress);
    statusBar()->addPermanentWidget(Cancel);
    statusBar()->addPermanentWidget(Counts);
    makeHandLabels();
    Progress->hide();
    Cancel->hide();
}

void MainWindow::restoreLayout()
{
    resize(QSize(1200, 800).boundedTo(screen()->availableSize() * 0.9));
    restoreGeometry(Remembered.geometry());
    restoreState(Remembered.docks());
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    Remembered.setLayout(saveGeometry(), saveState());
    Files.cancel();
    event->accept();
}

void MainWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange && Actions.contains(Command::FullScreen))
        Actions[Command::FullScreen]->setChecked(isFullScreen());
}

int MainWindow::tabCount() const
{
    return Tabs->count();
}

DocumentTab* MainWindow::currentTab() const
{
    return qobject_cast<DocumentTab*>(Tabs->currentWidget());
}

void MainWindow::tabChanged()
{
    DocumentTab* const tab = currentTab();
    Pages->setCurrentWidget(tab ? static_cast<QWidget*>(Tabs) : Welcome);
    bool const shown = tab && tab->hasDocument();
    MoraCore::ASession& session = Session.CurrentSession();
    session.SetDocumentEvo(shown ? &tab->document() : nullptr);
    session.SetView3DEvo(tab ? &tab->view() : nullptr);
    Properties->clear();
    if (shown) {
        if (Trees->indexOf(tab->treePanel()) < 0) Trees->addWidget(tab->treePanel());
        Trees->setCurrentWidget(tab->treePanel());
        unsigned long long parts = 0, bodies = 0;
        tab->document().GetContentCounts(parts, bodies);
        Counts->setText(QStringLiteral("%1 %2, %3 %4")
                            .arg(parts)
                            .arg(parts == 1 ? tr("part") : tr("parts"))
                            .arg(bodies)
                            .arg(bodies == 1 ? tr("body") : tr("bodies")));
        setWindowTitle(QFileInfo(tab->path()).fileName() + QStringLiteral(" – zelview"));
        setWindowFilePath(tab->path());
    } else {
        Counts->clear();
        setWindowFilePath({});
        setWindowTitle(QStringLiteral("zelview"));
    }
    updateActions();
}

void MainWindow::updateActions()
{
    DocumentTab* const tab = currentTab();
    bool const shown = tab && tab->hasDocument();
    for (CommandRow const& row : commandTable()) {
        QAction* const action = Actions[row.command];
        bool const known = !*row.viewSlot || (shown && tab->viewHas(row.viewSlot));
        action->setEnabled((!row.needsDocument || shown) && known);
        if (row.check == Check::Option) action->setChecked(shown && optionState(row.command));
        if (row.check == Check::Cut) action->setChecked(shown && tab->cutting() == row.command);
    }
    Actions[Command::Projection]->setChecked(shown && tab->camera() && tab->camera()->IsOrthographic());
}

} // namespace zelview
