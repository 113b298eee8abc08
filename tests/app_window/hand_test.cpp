// The mouse in a view, as the window passes it on: selection and tree, what it points at, its menu, its
// styles.

#include "DocumentTab.h"
#include "KeySheet.h"
#include "PreferencesDialog.h"
#include "StandInHand.h"
#include "TreePanel.h"
#include "ViewHand.h"
#include "Window.h"
#include "mouse_texts.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QTimer>
#include <QTreeView>
#include <QTreeWidget>

#include <set>
#include <stdexcept>

using namespace zelview;
using testing::Contains;
using ZELVizCore::RenderId;

namespace
{

class HandInWindow : public Window
{
protected:
    StandInHand& hand() { return *static_cast<StandInHand*>(Shown->currentTab()->view().GetInteraction()); }
    QLabel& label(char const* name)
    {
        for (QLabel* const found : Shown->findChildren<QLabel*>())
            if (found->accessibleName() == name) return *found;
        throw std::runtime_error(name);
    }
    QTreeView& treeView() { return *Shown->currentTab()->treePanel()->findChild<QTreeView*>(); }
    RenderId part(unsigned long long number) const
    {
        return RenderId({1, 10 + number}, RenderId::OriginEnum::Visualisation);
    }
    void remakeDialog()
    {
        press(Command::Preferences);
        Dialog = Shown->findChild<PreferencesDialog*>();
    }
    PreferencesDialog* Dialog = nullptr;
};

} // namespace

TEST_F(HandInWindow, whatIsSelectedInTheTreeIsSelectedInTheView)
{
    ASSERT_TRUE(open({write("a.words", "parts 4")}));
    QItemSelectionModel& rows = *treeView().selectionModel();
    using Flag = QItemSelectionModel::SelectionFlag;
    rows.setCurrentIndex(treeView().model()->index(1, 0), Flag::ClearAndSelect | Flag::Rows);
    EXPECT_EQ(hand().Selection.size(), 1U);
    rows.select(treeView().model()->index(3, 0), Flag::Select | Flag::Rows);
    EXPECT_EQ(hand().Selection.size(), 2U);
    press(Command::SelectNone);
    EXPECT_TRUE(hand().Selection.empty());
    press(Command::SelectParent);
    press(Command::ZoomSelection);
    EXPECT_THAT(calls(), Contains("SelectParents"));
    EXPECT_THAT(calls(), Contains("ZoomToSelection"));
}

TEST_F(HandInWindow, marksOfTheDocumentAddUpInTheTree)
{
    ASSERT_TRUE(open({write("a.words", "parts 200")}));
    // The stand-in marks what it is to light up.
    MoraCore::IDocumentEvo& document = Shown->currentTab()->document();
    qApp->setProperty("calls", QStringList());
    for (unsigned long long const number : {3, 4, 5, 150, 20}) document.Highlight(part(number), nullptr);
    RenderId below = part(60);
    below.AddValue(80000);
    below.AddValue(7);
    document.Highlight(below, nullptr);
    QTest::qWait(10);
    std::set<int> marked;
    for (QModelIndex const& index : treeView().selectionModel()->selectedRows()) marked.insert(index.row());
    EXPECT_EQ(marked, (std::set<int>{3, 4, 5, 20, 60, 150}))
        << "what the tree does not list by what holds it";
    EXPECT_TRUE(
        treeView().viewport()->rect().intersects(treeView().visualRect(treeView().model()->index(60, 0))))
        << "the last one is in sight";
    EXPECT_THAT(calls(), testing::Not(Contains(testing::StartsWith("Select"))))
        << "the view is not told of it again";
    document.UnHighlight(nullptr);
    EXPECT_FALSE(treeView().selectionModel()->hasSelection());
}

TEST_F(HandInWindow, whatLiesUnderTheMouseStandsInTheStatusBar)
{
    ASSERT_TRUE(open({write("a.words", "parts 4")}));
    MoraCore::PointedAt at;
    at.id = part(2);
    at.place[0] = 1.5F;
    at.place[1] = -20.25F;
    hand().Listener->OnPointed(at);
    EXPECT_EQ(label("Under the mouse").text(), "Part 2    1.5  -20.25  0");
    hand().Listener->OnPointed({});
    EXPECT_EQ(label("Under the mouse").text(), "");
}

TEST_F(HandInWindow, theMenuOfTheView)
{
    ASSERT_TRUE(open({write("a.words", "parts 4")}));
    RenderId body = part(2);
    body.AddValue(80000);
    body.AddValue(7);
    hand().Select({part(1), body});
    auto const choose = [&](QString const& text) {
        bool found = false;
        QTimer::singleShot(0, [&] {
            auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_TRUE(menu);
            for (QAction* const action : menu->actions())
                if (action->text().remove('&') == text && action->isEnabled()) {
                    found = true;
                    action->trigger();
                }
            menu->close();
        });
        hand().Listener->OnMenuWanted(10, 10);
        return found;
    };
    EXPECT_TRUE(choose("Copy name"));
    EXPECT_EQ(QApplication::clipboard()->text(), "Part 1\nPart 2");
    EXPECT_FALSE(choose("Show hidden bodies")) << "there are none";
    EXPECT_TRUE(choose("Hide bodies"));
    EXPECT_THAT(calls(), Contains("HideBody 7"));
    EXPECT_FALSE(choose("Hide bodies")) << "nothing is selected any more";
    EXPECT_TRUE(choose("Show hidden bodies"));
    EXPECT_THAT(calls(), Contains("UnhideBody 7"));
    EXPECT_TRUE(choose("Fit all"));
    EXPECT_FALSE(choose("Copy name"));
}

TEST_F(HandInWindow, theMousePreferencesHoldAtOnceAndForNewTabs)
{
    ASSERT_TRUE(open({write("a.words", "parts 1")}));
    EXPECT_THAT(calls(), Contains("style left-orbits"));
    EXPECT_THAT(calls(), Contains("hovering on"));
    EXPECT_EQ(label("Mouse style").text(), "Left button orbits");
    remakeDialog();
    ASSERT_TRUE(Dialog);
    auto* const styles = Dialog->findChild<QComboBox*>("mouse style");
    ASSERT_EQ(styles->count(), int(MoraCore::MouseStyles.size()));
    for (int i = 0; i < styles->count(); ++i) {
        styles->setCurrentIndex(i);
        EXPECT_EQ(calls().size() > 0 ? label("Mouse style").text() : "", styles->itemText(i));
        EXPECT_THAT(calls(), Contains(std::string("style ") + MoraCore::MouseStyles[std::size_t(i)].word));
    }
    Dialog->findChild<QCheckBox*>("hovering")->setChecked(false);
    EXPECT_EQ(calls().back(), "hovering off");

    qApp->setProperty("calls", QStringList());
    remake();
    EXPECT_EQ(label("Mouse style").text(), "Right button orbits") << "remembered";
    ASSERT_TRUE(open({write("a.words", "parts 1")}));
    EXPECT_THAT(calls(), Contains("style right-orbits"));
    EXPECT_THAT(calls(), Contains("hovering off"));
}

TEST_F(HandInWindow, theKeySheetShowsWhatTheMouseDoes)
{
    MoraCore::MouseStyle const& style = MoraCore::MouseStyles[1];
    KeySheet sheet(style);
    auto* const list = sheet.findChild<QTreeWidget*>();
    auto const groups = list->findItems(style.name, Qt::MatchStartsWith);
    ASSERT_EQ(groups.size(), 1);
    EXPECT_TRUE(groups[0]->text(0).contains("in use"));
    EXPECT_EQ(groups[0]->childCount(), 3);
    EXPECT_EQ(groups[0]->child(1)->text(1), "Ctrl+middle drag");
    EXPECT_EQ(list->findItems("in use", Qt::MatchContains).size(), 1);
}
