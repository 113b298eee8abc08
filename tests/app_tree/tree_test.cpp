// The tree as the user sees it: the item model over the host's tree, the search in it, and the panel.

#include "HostTree.h"
#include "TreePanel.h"
#include "TreeSearch.h"
#include "tree_icons.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

using namespace zelview;
using MoraCore::TreeBuilder;
using MoraCore::TreeItemStyles;
using RenderId = TreeBuilder::RenderId;

namespace
{

/// The one application of this program, on no screen.
void needApplication()
{
    static bool const prepared = qputenv("QT_QPA_PLATFORM", "offscreen");
    static int count = 1;
    static char name[] = "test_app_tree";
    static char* words[] = {name, nullptr};
    // Stays: at exit Qt's own libraries may be gone before it.
    [[maybe_unused]] static auto const* const application = new QApplication(count, words);
    (void)prepared;
}

RenderId path(std::vector<unsigned long long> const& values)
{
    return {values, RenderId::OriginEnum::Visualisation};
}

/// ROOT > Machine > { Gear > { Wheel, wheel nut (hidden) }, Straße }
void writeMachine(TreeBuilder& tree)
{
    tree.BeginTree();
    tree.BeginRoot(1, L"ROOT");
    tree.BeginAssembly(10, L"Machine");
    tree.BeginAssembly(20, L"Gear");
    tree.BeginPart(30, L"Wheel");
    tree.EndPart();
    tree.BeginPart(31, L"wheel nut");
    tree.SetItemVisible(false);
    tree.EndPart();
    tree.EndAssembly();
    tree.BeginItem(21, L"Straße", TreeItemStyles::MissingPart);
    tree.EndItem();
    tree.EndAssembly();
    tree.EndRoot();
    tree.EndTree();
}

/// `count` parts in assemblies of a hundred.
void writeLarge(TreeBuilder& tree, int count)
{
    tree.BeginTree();
    tree.BeginRoot(1, L"ROOT");
    for (int i = 0; i < count; ++i) {
        if (i % 100 == 0)
            tree.BeginAssembly(static_cast<unsigned>(1'000'000 + i), L"Group " + std::to_wstring(i / 100));
        tree.BeginPart(static_cast<unsigned>(2 + i), L"Part number " + std::to_wstring(i));
        tree.EndPart();
        if (i % 100 == 99) tree.EndAssembly();
    }
    tree.EndRoot();
    tree.EndTree();
}

class Tree : public testing::Test
{
protected:
    Tree() { needApplication(); }

    HostTree Host;
};

} // namespace

TEST_F(Tree, theModelHoldsWhatTheTreeHolds)
{
    TreeModel model(Host.GetTreeBuilder());
    QAbstractItemModelTester const tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    EXPECT_EQ(model.rowCount(), 0);
    writeMachine(Host.GetTreeBuilder());
    model.refresh();

    ASSERT_EQ(model.rowCount(), 1);
    QModelIndex const machine = model.index(0, 0);
    EXPECT_EQ(machine.data(), "Machine");
    ASSERT_EQ(model.rowCount(machine), 2);
    QModelIndex const gear = model.index(0, 0, machine);
    QModelIndex const nut = model.index(1, 0, gear);
    EXPECT_EQ(nut.data(), "wheel nut");
    EXPECT_EQ(nut.parent(), gear);
    EXPECT_EQ(gear.parent(), machine);
    EXPECT_FALSE(machine.parent().isValid());
    EXPECT_EQ(model.pathOf(nut), path({1, 10, 20, 31}));
    EXPECT_EQ(model.indexOf(path({1, 10, 20, 31})), nut);
    EXPECT_FALSE(model.indexOf(path({1, 10, 99})).isValid());
}

TEST_F(Tree, aNodeTellsWhatItIsAndWhetherItIsSeen)
{
    writeMachine(Host.GetTreeBuilder());
    TreeModel model(Host.GetTreeBuilder());
    model.setToolTips(
        [](RenderId const& id) { return id.Length() == 2 ? QString("the product") : QString(); });
    QModelIndex const machine = model.index(0, 0);
    QModelIndex const nut = model.indexOf(path({1, 10, 20, 31}));
    QModelIndex const missing = model.indexOf(path({1, 10, 21}));
    EXPECT_EQ(machine.data(Qt::ToolTipRole), "the product");
    EXPECT_EQ(nut.data(Qt::AccessibleTextRole), "wheel nut, Part, hidden");
    EXPECT_EQ(missing.data(Qt::AccessibleTextRole), "Straße, Missing part");
    EXPECT_EQ(nut.siblingAtColumn(TreeModel::VisibleColumn).data(Qt::AccessibleTextRole), "Hidden");
    EXPECT_EQ(machine.siblingAtColumn(TreeModel::VisibleColumn).data(Qt::AccessibleTextRole), "Shown");
    EXPECT_TRUE(nut.data(Qt::ForegroundRole).isValid());
    EXPECT_FALSE(machine.data(Qt::ForegroundRole).isValid());
}

TEST_F(Tree, everyStyleHasAnIconOfItsOwn)
{
    using enum TreeItemStyles;
    std::set<QByteArray> pictures;
    std::set<QString> names;
    TreeItemStyles const styles[] = {Root,
                                     Assembly,
                                     TreeItemStyles::Part,
                                     Annotations,
                                     PmiGroup,
                                     Views,
                                     View,
                                     Captures,
                                     Capture,
                                     Geometry,
                                     DrawingSheets,
                                     Mesh,
                                     Wire,
                                     PointSet,
                                     AnnotationSet,
                                     Note,
                                     Dimension,
                                     AngularDimension,
                                     DiameterDimension,
                                     RadiusDimension,
                                     Roughness,
                                     Datum,
                                     NoTolerance,
                                     Tolerance,
                                     Parallelism,
                                     Circularity,
                                     CircularRunout,
                                     Concentricity,
                                     Cylindricity,
                                     Flatness,
                                     Angularity,
                                     Perpendicularity,
                                     Position,
                                     LineProfile,
                                     SurfaceProfile,
                                     Straightness,
                                     Symmetry,
                                     TotalRunout,
                                     Body,
                                     Face,
                                     Edge,
                                     Vertex,
                                     Feature,
                                     MissingPart,
                                     DrawingSheet};
    for (TreeItemStyles const style : styles) {
        QImage const image = treeIcon(style).pixmap(32, 32).toImage();
        pictures.insert(QByteArray(reinterpret_cast<char const*>(image.constBits()), image.sizeInBytes()));
        names.insert(treeStyleName(style));
    }
    EXPECT_EQ(pictures.size(), std::size(styles));
    EXPECT_EQ(names.size(), std::size(styles));
}

TEST_F(Tree, aSearchKnowsNoCaseAndFindsEachNodeOnce)
{
    writeMachine(Host.GetTreeBuilder());
    TreeModel const model(Host.GetTreeBuilder());
    TreeSearch search;
    search.collect(model);
    auto const found = [&](char const* text) {
        QStringList names;
        for (TreeModel::Position const position : search.find(QString::fromUtf8(text)))
            names << model.nameOf(position);
        return names;
    };
    EXPECT_EQ(found("WHEEL"), QStringList({"Wheel", "wheel nut"}));
    EXPECT_EQ(found("e"), QStringList({"Machine", "Gear", "Wheel", "wheel nut", "Straße"}));
    EXPECT_EQ(found("STRAß"), QStringList({"Straße"}));
    EXPECT_EQ(found("root"), QStringList());
    EXPECT_EQ(found(""), QStringList());
    EXPECT_EQ(found("l\nw"), QStringList());
}

TEST_F(Tree, theSearchFindsTheSameAsASlowOneInALargeTree)
{
    writeLarge(Host.GetTreeBuilder(), 5000);
    TreeModel const model(Host.GetTreeBuilder());
    TreeSearch search;
    search.collect(model);
    for (char const* text : {"7", "part number 49", "Group", "99", "x"}) {
        std::vector<TreeModel::Position> expected;
        for (std::size_t i = 1; i < model.nodeCount(); ++i)
            if (model.nameOf(static_cast<TreeModel::Position>(i)).contains(text, Qt::CaseInsensitive))
                expected.push_back(static_cast<TreeModel::Position>(i));
        EXPECT_EQ(search.find(text), expected) << text;
    }
}

TEST_F(Tree, typingGoesFromMatchToMatchAndReturnChooses)
{
    TreePanel panel(Host);
    writeMachine(Host.GetTreeBuilder());
    auto* const field = panel.findChild<QLineEdit*>();
    auto* const view = panel.findChild<QTreeView*>();
    auto* const count = panel.findChild<QLabel*>();
    QSignalSpy const chosen(&panel, &TreePanel::chosen);
    panel.show();
    panel.focusSearch();
    QTest::keyClicks(field, "wheel");
    EXPECT_EQ(view->currentIndex().data(), "Wheel");
    EXPECT_TRUE(view->isExpanded(view->currentIndex().parent()));
    EXPECT_EQ(count->text(), "1 of 2");
    EXPECT_EQ(chosen.count(), 0) << "a search lights nothing up by itself";
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(view->currentIndex().data(), "wheel nut");
    ASSERT_EQ(chosen.count(), 1);
    EXPECT_EQ(chosen[0][0].value<RenderId>(), path({1, 10, 20, 31}));
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(view->currentIndex().data(), "Wheel");
    QTest::keyClick(field, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(view->currentIndex().data(), "wheel nut");
    QTest::keyClicks(field, "xx");
    EXPECT_EQ(count->text(), "none");
    QTest::keyClick(field, Qt::Key_Escape);
    EXPECT_TRUE(field->text().isEmpty());
    EXPECT_TRUE(count->text().isEmpty());
}

TEST_F(Tree, aMarkFromTheViewOpensTheWayToItsNodeAndIsNotSentBack)
{
    TreePanel panel(Host);
    writeMachine(Host.GetTreeBuilder());
    auto* const view = panel.findChild<QTreeView*>();
    QSignalSpy const chosen(&panel, &TreePanel::chosen);
    Host.HighlightItem(path({1, 10, 20, 30}));
    EXPECT_EQ(view->currentIndex().data(), "Wheel");
    EXPECT_TRUE(view->isExpanded(panel.model().indexOf(path({1, 10, 20}))));
    Host.ClearHighlight();
    EXPECT_FALSE(view->currentIndex().isValid());
    Host.HighlightItem(path({1, 77}));
    EXPECT_EQ(chosen.count(), 0);
    Host.ClearItems();
    EXPECT_EQ(panel.model().rowCount(), 0);
}

TEST_F(Tree, whatIsOpenStaysSoWhenTheTreeIsWrittenAnew)
{
    HostTree tree;
    TreePanel panel(tree);
    writeMachine(tree.GetTreeBuilder());
    auto* const view = panel.findChild<QTreeView*>();
    QModelIndex const gear = panel.model().indexOf(path({1, 10, 20}));
    ASSERT_FALSE(view->isExpanded(gear));
    view->expand(gear);
    view->setCurrentIndex(panel.model().indexOf(path({1, 10, 20, 31})));
    QSignalSpy told(&panel, &TreePanel::chosen);
    tree.ClearItems();
    writeMachine(tree.GetTreeBuilder());
    EXPECT_TRUE(view->isExpanded(panel.model().indexOf(path({1, 10, 20}))));
    EXPECT_EQ(panel.model().pathOf(view->currentIndex()), path({1, 10, 20, 31}));
    EXPECT_EQ(told.count(), 0);

    view->collapse(panel.model().indexOf(path({1, 10, 20})));
    writeMachine(tree.GetTreeBuilder());
    EXPECT_FALSE(view->isExpanded(panel.model().indexOf(path({1, 10, 20}))));
}

TEST_F(Tree, anAnnotationIsFoundInTheViewsThatListIt)
{
    HostTree tree;
    TreePanel panel(tree);
    TreeBuilder& builder = tree.GetTreeBuilder();
    builder.BeginTree();
    builder.BeginRoot(1, L"");
    builder.BeginPart(10, L"Lid");
    builder.BeginAnnotations(5, L"Annotations");
    builder.BeginView(6, L"Front");
    builder.BeginItem(7, L"Depth", TreeItemStyles::Dimension);
    builder.EndItem();
    builder.EndView();
    builder.EndAnnotations();
    builder.EndPart();
    builder.BeginPart(8, L"Base");
    builder.EndPart();
    builder.EndRoot();
    builder.EndTree();
    EXPECT_EQ(panel.nodeOf(path({1, 10, 5, 7})), path({1, 10, 5, 6, 7}));
    EXPECT_EQ(panel.nameOf(path({1, 10, 5, 8})), "Annotations") << "what stands elsewhere is none";
    EXPECT_EQ(panel.nameOf(path({1, 10, 7})), "Lid");
}

TEST_F(Tree, aNodeThatIsHiddenLaterClosesItsEye)
{
    HostTree tree;
    TreePanel panel(tree);
    writeMachine(tree.GetTreeBuilder());
    QModelIndex const eye =
        panel.model().indexOf(path({1, 10, 20})).siblingAtColumn(TreeModel::VisibleColumn);
    QSignalSpy changed(&panel.model(), &QAbstractItemModel::dataChanged);
    tree.MarkItem(path({1, 10, 20}), false);
    EXPECT_EQ(eye.data(Qt::ToolTipRole), "Hidden");
    EXPECT_EQ(changed.count(), 1);
    tree.MarkItem(path({1, 10, 77}), false); // there is no such node
    EXPECT_EQ(changed.count(), 1);
    tree.MarkItem(path({1, 10, 20}), true);
    EXPECT_EQ(eye.data(Qt::ToolTipRole), "Shown");
}

TEST_F(Tree, aChoiceInTheTreeIsTold)
{
    TreePanel panel(Host);
    writeMachine(Host.GetTreeBuilder());
    auto* const view = panel.findChild<QTreeView*>();
    QSignalSpy const chosen(&panel, &TreePanel::chosen);
    QSignalSpy const opened(&panel, &TreePanel::opened);
    panel.show();
    view->setFocus();
    QTest::keyClick(view, Qt::Key_Down);
    QTest::keyClick(view, Qt::Key_Down);
    ASSERT_GE(chosen.count(), 1);
    QTest::keyClick(view, Qt::Key_Return);
    ASSERT_EQ(opened.count(), 1);
    EXPECT_EQ(opened[0][0].value<RenderId>(), chosen.last()[0].value<RenderId>());
}
