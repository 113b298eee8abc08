#pragma once

#include "Loader.h" // which brings Qt first, as its meta-object compiler wants it

#include "HostSession.h"
#include "MessageModel.h"
#include "Theme.h"
#include "ViewChoice.h"
#include "WindowPreferences.h"
#include "commands.h"

#include <QMainWindow>

#include <mora/IViewInteraction.h>
#include <mora/Settings.h>

#include <map>

class QLabel;
class QProgressBar;
class QStackedWidget;
class QTabWidget;
class QToolButton;

namespace zelview
{

class DocumentTab;
class PropertyPanel;
class StartPage;
class TreePanel;

/// The window of the program: documents in tabs, beside them the tree, the properties and the messages.
class MainWindow final : public QMainWindow
{
    Q_OBJECT

public:
    struct Start {
        ViewChoice view;           ///< for every file that is opened
        bool savesSettings = true; ///< false: the settings in force are another file's
        ReadGuard guard = {};      ///< of every file that is read
    };

    MainWindow(Plugin& plugin, Start start);
    ~MainWindow() override;

    /// Reads files one after the other and shows each when it is there.
    void open(QStringList const& paths, Placement placement);
    bool isLoading() const { return Files.isBusy(); }
    int tabCount() const;
    DocumentTab* currentTab() const;
    QAction* action(Command command) const { return Actions.at(command); }
    MessageModel& messages() { return Messages; }

    /// What a command's action does.
    void run(Command command);

signals:
    /// A file was read and is shown, or was not; nothing is left to do for it.
    void loaded(QString const& path, bool shown);

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    // Building (MainWindow.cpp)
    void makeActions();
    void makeMenus();
    void makeDocks();
    void makeStatusBar();
    void restoreLayout();
    QAction* makeAction(CommandRow const& row);
    void updateActions();
    void tabChanged();

    // Commands (window_commands.cpp)
    struct Operation {
        Command command;
        void (*perform)(MainWindow&);
    };
    /// For each command that is neither a standard view, nor a slot of the view, nor a switch of its options.
    static std::span<Operation const> operations();
    bool optionState(Command command) const;
    void goToTab(int step);
    void findInTree();
    void savePicture(DocumentTab& tab);
    void keepThumbnail(DocumentTab& tab);
    void saveAs(DocumentTab& tab);
    void showPreferences();
    // The mouse in the views (window_hand.cpp)
    void makeHandLabels();
    void followHand(DocumentTab& tab);
    void applyHandPreferences();
    void showViewMenu(DocumentTab& tab, QPoint const& position);
    static QString pointedText(TreePanel const* tree, MoraCore::PointedAt const& at);

    // The menu of a node in the tree (window_tree_menu.cpp)
    void showTreeMenu(DocumentTab& tab, ZELVizCore::RenderId const& id, QPoint const& position);
    void addNodeEntries(QMenu& menu, DocumentTab& tab, ZELVizCore::RenderId const& id);
    void perform(DocumentTab& tab, MenuEntry entry, ZELVizCore::RenderId const& id);
    void removeBody(DocumentTab& tab, ZELVizCore::RenderId const& id);
    void applySetting(ZELVizCore::Settings::Field const& field);
    void about();

    // Files (window_files.cpp)
    QString openFilter() const;
    void askFiles(Placement placement);
    void showRecent();
    void started(QString const& path);
    void finished(LoadRequest const& request, std::shared_ptr<OpenDocument> document, bool read,
                  bool cancelled);
    void report(OpenDocument const& document, bool shown);
    DocumentTab* addTab();
    void closeTab(int index);
    void reload(DocumentTab& tab);
    void fileChanged(DocumentTab& tab);
    void say(QString const& text, MoraCore::MessageType type) const;

    Plugin& Source;
    Start Given;
    HostSession Session;
    WindowPreferences Remembered;
    Theme Colours;
    MessageModel Messages;
    Loader Files;
    std::map<Command, QAction*> Actions;
    QStackedWidget* Pages;
    StartPage* Welcome;
    QTabWidget* Tabs;
    QStackedWidget* Trees;
    PropertyPanel* Properties;
    QMenu* RecentMenu = nullptr;
    QMenu* WindowMenu = nullptr;
    QProgressBar* Progress = nullptr;
    QToolButton* Cancel = nullptr;
    QLabel* Counts = nullptr;
    QLabel* Pointed = nullptr;   ///< name and place of what lies under the mouse
    QLabel* StyleName = nullptr; ///< of the mouse
};

} // namespace zelview
