// The window over a plug-in that only notes what is asked of it: commands, tabs, loading, settings.

#include "DocumentTab.h"
#include "TreePanel.h"
#include "Window.h"
#include "panels.h"

#include <QAccessible>
#include <QApplication>
#include <QDockWidget>
#include <QDropEvent>
#include <QMenuBar>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <QTreeView>

#include <mora/ACamera.h>

#include <algorithm>
#include <set>

using namespace zelview;
using testing::Contains;
using testing::ElementsAre;

TEST_F(Window, drivesThePlugInInTheOrderThatItExpects)
{
    EXPECT_THAT(calls(), ElementsAre("CreatePlugin", "describe", "load"));
    ASSERT_TRUE(open({write("a.words", "parts 3")}));
    std::vector<std::string> const all = calls();
    ASSERT_GE(all.size(), 4U);
    EXPECT_EQ(all[3], "createInstance ZELView3D");
    EXPECT_EQ(std::ranges::count(all, "AttachDocument"), 1);
    Shown.reset();
    Loaded.reset();
    EXPECT_EQ(calls().back(), "unload");
}

TEST_F(Window, showsTheTreeAndTheCountsOfAFile)
{
    ASSERT_TRUE(open({write("a.words", "parts 3")}));
    EXPECT_EQ(Shown->tabCount(), 1);
    EXPECT_EQ(Shown->currentTab()->treePanel()->model().rowCount(), 3);
    EXPECT_EQ(Shown->windowTitle(), "a.words – zelview");
    EXPECT_THAT(messages(MoraCore::MessageType::Warning), Contains(QString("a.words: one edge is short")));
    EXPECT_EQ(MoraCore::SessionMgr::Instance().CurrentSession().DocumentEvo(),
              &Shown->currentTab()->document());
}

TEST_F(Window, aFileThatFailsLeavesWhatWasOpen)
{
    ASSERT_TRUE(open({write("good.words", "parts 3")}));
    auto const* const document = &Shown->currentTab()->document();
    for (char const* word : {"broken", "unbuildable"}) {
        EXPECT_FALSE(open({write("bad.words", word)}, Placement::CurrentTab));
        EXPECT_EQ(&Shown->currentTab()->document(), document);
        EXPECT_EQ(Shown->currentTab()->treePanel()->model().rowCount(), 3);
    }
    EXPECT_EQ(Shown->tabCount(), 1);
    EXPECT_FALSE(open({write("bad.words", "unbuildable")}, Placement::NewTab));
    EXPECT_EQ(Shown->tabCount(), 1);
    EXPECT_THAT(messages(MoraCore::MessageType::Error),
                ElementsAre(QString("bad.words: it is broken"), QString("bad.words: it cannot be built"),
                            QString("bad.words: it cannot be built")));
}

TEST_F(Window, openingAViewInTheTreeActivatesIt)
{
    ASSERT_TRUE(open({write("a.words", "views 1")}));
    TreePanel* const panel = Shown->currentTab()->treePanel();
    auto const path = [panel](int row) { return panel->model().pathOf(panel->model().index(row, 0)); };
    emit panel->opened(path(1)); // a part is only brought near
    EXPECT_THAT(calls(), testing::Not(Contains(testing::StartsWith("entry"))));
    emit panel->opened(path(0));
    EXPECT_THAT(calls(), Contains("entry 0 of 6"));
}

TEST_F(Window, onePlaneCutsAtATimeAndASecondPressEndsIt)
{
    ASSERT_TRUE(open({write("a.words", "parts 1")}));
    auto const isChecked = [this](Command command) { return Shown->action(command)->isChecked(); };
    press(Command::CutX);
    EXPECT_EQ(calls().back(), "OnOperatorCuttingPlaneX");
    press(Command::CutY);
    EXPECT_EQ(calls().back(), "OnOperatorCuttingPlaneY");
    EXPECT_FALSE(isChecked(Command::CutX));
    EXPECT_TRUE(isChecked(Command::CutY));
    EXPECT_FALSE(Shown->action(Command::CutZ)->isEnabled()) << "this view has no such slot";

    // Each tab has its own.
    ASSERT_TRUE(open({write("b.words", "parts 1")}));
    EXPECT_FALSE(isChecked(Command::CutY));
    press(Command::PreviousTab);
    EXPECT_TRUE(isChecked(Command::CutY));

    auto const styles = [] {
        std::vector<std::string> const all = calls();
        return std::ranges::count_if(all, [](auto const& call) { return call.starts_with("style"); });
    };
    auto const before = styles();
    press(Command::CutY);
    EXPECT_FALSE(isChecked(Command::CutY));
    EXPECT_EQ(styles(), before + 1) << "the operators are set up anew";
}

TEST_F(Window, filesTakeATabOrAPlaceOfTheirOwn)
{
    ASSERT_TRUE(open({write("a.words", "parts 1"), write("b.words", "parts 2")}));
    EXPECT_EQ(Shown->tabCount(), 2);
    EXPECT_EQ(currentText(), "b.words");
    ASSERT_TRUE(open({write("c.words", "parts 4")}, Placement::CurrentTab));
    EXPECT_EQ(Shown->tabCount(), 2);
    EXPECT_EQ(currentText(), "c.words");
    press(Command::NextTab);
    EXPECT_EQ(currentText(), "a.words");
    EXPECT_EQ(Shown->findChild<QTreeView*>() != nullptr, true);
    press(Command::PreviousTab);
    EXPECT_EQ(currentText(), "c.words");
    press(Command::CloseTab);
    press(Command::CloseTab);
    EXPECT_EQ(Shown->tabCount(), 0);
    EXPECT_EQ(Shown->windowTitle(), "zelview");
    EXPECT_FALSE(Shown->action(Command::CloseTab)->isEnabled());
}

TEST_F(Window, aDropOpensHereAndWithControlBeside)
{
    ASSERT_TRUE(open({write("a.words", "parts 1")}));
    struct {
        Qt::KeyboardModifiers held;
        int tabs;
    } const cases[] = {{Qt::NoModifier, 1}, {Qt::ControlModifier, 2}};
    for (auto const& drop : cases) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(write("dropped.words", "parts 2"))});
        QSignalSpy spy(Shown.get(), &MainWindow::loaded);
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, drop.held);
        QApplication::sendEvent(Shown.get(), &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent event({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, drop.held);
        QApplication::sendEvent(Shown.get(), &event);
        ASSERT_TRUE(spy.wait());
        EXPECT_EQ(Shown->tabCount(), drop.tabs);
        EXPECT_EQ(currentText(), "dropped.words");
    }
    QMimeData words;
    words.setText("no file");
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &words, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(Shown.get(), &enter);
    EXPECT_FALSE(enter.isAccepted());
}

TEST_F(Window, keysLookFromTheStandardViews)
{
    ASSERT_TRUE(open({write("a.words", "parts 1")}));
    qApp->setProperty("calls", QStringList());
    QTest::keyClicks(Shown.get(), "0123456");
    EXPECT_THAT(calls(), ElementsAre("Isometric", "Front", "Top", "Right", "Back", "Bottom", "Left"));
    qApp->setProperty("calls", QStringList());
    EXPECT_FALSE(Shown->currentTab()->camera()->IsOrthographic());
    QTest::keyClick(Shown.get(), Qt::Key_O);
    EXPECT_TRUE(Shown->currentTab()->camera()->IsOrthographic());
    QTest::keyClick(Shown.get(), Qt::Key_F);
    EXPECT_EQ(calls().size(), 2U);
    press(Command::ModeWires);
    EXPECT_EQ(calls().back(), "OnModeWires");
    EXPECT_FALSE(Shown->action(Command::CutZ)->isEnabled()) << "this view has no such slot";
}

TEST_F(Window, everyCommandDoesSomethingWithoutADocument)
{
    // None may fall through to an operation that is not there; those that need a document do nothing.
    for (CommandRow const& row : commandTable()) {
        bool const asks = row.command == Command::Open || row.command == Command::Add ||
                          row.command == Command::About || row.command == Command::Quit;
        if (!asks) Shown->run(row.command);
    }
    EXPECT_EQ(Shown->tabCount(), 0);
}

TEST_F(Window, commandsHaveOneKeyAndOneMnemonicEach)
{
    std::set<QString> keys;
    for (CommandRow const& row : commandTable())
        for (QKeySequence const& key : Shown->action(row.command)->shortcuts())
            EXPECT_TRUE(keys.insert(key.toString()).second) << row.text;
}

TEST_F(Window, aSlowFileCanBeCancelledAndTheWindowStaysAlive)
{
    QSignalSpy spy(Shown.get(), &MainWindow::loaded);
    Shown->open({write("slow.words", "slow"), write("next.words", "parts 1")}, Placement::NewTab);
    auto* const bar = Shown->findChild<QProgressBar*>();
    int beats = 0;
    QTimer heart;
    QObject::connect(&heart, &QTimer::timeout, [&] { ++beats; });
    heart.start(5);
    QTest::qWait(200);
    EXPECT_GT(beats, 10);
    EXPECT_TRUE(bar->isVisible());
    EXPECT_GT(bar->value(), 0);
    QToolButton* cancel = nullptr;
    for (QToolButton* const button : Shown->findChildren<QToolButton*>())
        if (button->accessibleName() == "Cancel loading") cancel = button;
    ASSERT_TRUE(cancel && cancel->isVisible());
    QTest::mouseClick(cancel, Qt::LeftButton);
    ASSERT_TRUE(spy.wait());
    EXPECT_FALSE(spy[0][1].toBool());
    EXPECT_FALSE(bar->isVisible());
    EXPECT_FALSE(Shown->isLoading()) << "what waits is forgotten, too";
    EXPECT_EQ(Shown->tabCount(), 0);
}

TEST_F(Window, closingWhileAFileIsReadEndsTheReading)
{
    Shown->open({write("slow.words", "slow")}, Placement::NewTab);
    QTest::qWait(50);
    QElapsedTimer timer;
    timer.start();
    Shown->close();
    Shown.reset();
    EXPECT_LT(timer.elapsed(), 5000);
}

TEST_F(Window, aFileThatChangesIsOfferedReadOrLeft)
{
    QString const path = write("a.words", "parts 1");
    ASSERT_TRUE(open({path}));
    auto const rows = [&] { return Shown->currentTab()->treePanel()->model().rowCount(); };
    auto const reloadButton = [&]() -> QPushButton* {
        for (QPushButton* const button : Shown->currentTab()->findChildren<QPushButton*>())
            if (button->text() == "Reload" && button->isVisible()) return button;
        return nullptr;
    };
    write("a.words", "parts 2");
    EXPECT_TRUE(QTest::qWaitFor([&] { return reloadButton() != nullptr; }));
    EXPECT_EQ(rows(), 1);
    QTest::mouseClick(reloadButton(), Qt::LeftButton);
    EXPECT_TRUE(QTest::qWaitFor([&] { return rows() == 2; }));
    EXPECT_EQ(Shown->tabCount(), 1);

    WindowPreferences().setReloadMode(ReloadMode::Silent);
    // As editors do it: a new file takes the place of the old one.
    QString const other = write("b.words", "parts 3");
    QFile::remove(path);
    ASSERT_TRUE(QFile::rename(other, path));
    EXPECT_TRUE(QTest::qWaitFor([&] { return rows() == 3; }));

    WindowPreferences().setReloadMode(ReloadMode::Never);
    write("a.words", "parts 4");
    QTest::qWait(900);
    EXPECT_EQ(rows(), 3);
    EXPECT_EQ(reloadButton(), nullptr);
}

TEST_F(Window, theChoiceOfTheCommandLineReachesTheView)
{
    ViewChoice choice;
    choice.position = {1, 2, 3};
    choice.mode = ShadingMode::Wires;
    choice.edges = false;
    remake(choice);
    ASSERT_TRUE(open({write("a.words", "parts 1")}));
    EXPECT_TRUE(QTest::qWaitFor([] { return std::ranges::count(calls(), "camera 1 2 3") == 1; }));
    EXPECT_THAT(calls(), Contains("OnModeWires"));
    EXPECT_FALSE(Shown->action(Command::ShowEdges)->isChecked());
    Shown->action(Command::ShowEdges)->trigger();
    EXPECT_TRUE(Shown->currentTab()->view().GetRenderingOptions()->GetDisplayEdges());
}

TEST_F(Window, whatIsChosenInTheTreeIsTold)
{
    ASSERT_TRUE(open({write("a.words", "parts 3")}));
    auto* const view = Shown->currentTab()->treePanel()->findChild<QTreeView*>();
    view->setCurrentIndex(view->model()->index(1, 0));
    auto const* const properties = Shown->findChild<PropertyPanel*>();
    ASSERT_EQ(properties->topLevelItemCount(), 1);
    EXPECT_EQ(properties->topLevelItem(0)->text(1), "2");
}

TEST_F(Window, filesAndDocksAreRemembered)
{
    QString const path = write("a.words", "parts 1");
    ASSERT_TRUE(open({path}));
    auto const dock = [&] { return Shown->findChild<QDockWidget*>("messages"); };
    dock()->hide();
    Shown->close();
    remake();
    EXPECT_TRUE(dock()->isHidden());
    EXPECT_EQ(WindowPreferences().recentFiles(), QStringList({path}));
    EXPECT_EQ(WindowPreferences().folder(), Folder.path());
}

TEST_F(Window, everyControlHasANameAndIsReachedByTab)
{
    ASSERT_TRUE(open({write("a.words", "parts 1")}));
    std::set<QWidget*> reached;
    QWidget* const first = QApplication::focusWidget();
    for (int i = 0; i < 200; ++i) {
        QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : Shown.get(), Qt::Key_Tab);
        reached.insert(QApplication::focusWidget());
        if (QApplication::focusWidget() == first) break;
    }
    for (QWidget* const control : Shown->findChildren<QWidget*>()) {
        if (!control->isVisible() || !control->isEnabled() || !(control->focusPolicy() & Qt::TabFocus))
            continue;
        if (control->focusProxy()) continue;
        QAccessibleInterface* const told = QAccessible::queryAccessibleInterface(control);
        ASSERT_TRUE(told);
        EXPECT_FALSE(told->text(QAccessible::Name).isEmpty())
            << control->metaObject()->className() << ' ' << control->objectName().toStdString();
        EXPECT_TRUE(reached.contains(control))
            << control->metaObject()->className() << ' ' << control->accessibleName().toStdString();
    }
}
