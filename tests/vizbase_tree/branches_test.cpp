#include "TestTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace NarMetaInfra;
using namespace NarMetaPmi;
using namespace NarMetaVisu;
using Kind = ZELReference::Kind;
using MoraCore::TreeItemStyles;
using testing::HasSubstr;
using ZELVizCore::EntityType;

namespace
{

template <class Object> std::shared_ptr<Object> made(NarMeta::Id id, wchar_t const* name, bool hidden = false)
{
    auto object = std::make_shared<Object>(id, name);
    object->SetHidden(hidden);
    return object;
}

void fill(MeshRep& mesh)
{
    mesh.AddEdge(std::make_shared<EdgeRep>());
}
void fill(WireRep& wire)
{
    wire.AddEdge(std::make_shared<EdgeRep>());
}
void fill(PmiRep& pmi)
{
    pmi.AddEdge(std::make_shared<EdgeRep>());
}
void fill(PointSetRep& points)
{
    points.AddPoints(std::make_shared<PointsRep>());
}

template <class Rep>
std::shared_ptr<Node> leaf(NarMeta::Id id, wchar_t const* name, void (Node::*set)(std::shared_ptr<Rep>))
{
    auto node = std::make_shared<Node>();
    auto rep = std::make_shared<Rep>(id, name);
    fill(*rep);
    ((*node).*set)(rep);
    return node;
}

class PartFile : public testing::Test
{
protected:
    std::wstring render()
    {
        EXPECT_TRUE(tree.Render());
        return tree.Text();
    }
    void setPmi(std::shared_ptr<PMIAnnotationSet> set)
    {
        auto pmi = std::make_shared<PMIContainer>();
        pmi->AddAnnotationSet(L"plate", std::move(set));
        part->SetPmi(pmi);
    }
    static std::shared_ptr<Node> group(NodeType type, std::vector<std::shared_ptr<Node>> const& children)
    {
        auto node = std::make_shared<Node>(type);
        for (auto const& child : children) node->AddChild(child);
        return node;
    }
    static std::shared_ptr<SGContainer> container(wchar_t const* pid, std::shared_ptr<Node> const& child)
    {
        auto data = std::make_shared<SGContainer>();
        data->AddRootNode(pid, group(NodeType::Root, {child}));
        return data;
    }

    ZELProductStructure model{L"file", L"File"};
    std::shared_ptr<ZELReference> part = model.AddReference(Kind::Part, L"plate", L"Plate");
    std::shared_ptr<ZELInstance> instance = model.AddRootInstance(part, L"file.plate", L"Plate.1");
    TestTree tree{model};
};

} // namespace

TEST_F(PartFile, AnnotationsShowSetsViewsGroupsAndCaptures)
{
    auto const set = made<PMIAnnotationSet>(2'000'000, L"Set", true);
    set->SetStandard(L"ISO");
    auto const view = made<PMIAnnotationView>(2'000'001, L"Front", true);
    view->SetActive(true);
    view->Content().notes = {made<PMINote>(2'000'002, L"deburr", true)};
    view->Content().datums = {made<PMIDatum>(2'000'003, L"A")};
    view->Content().datumTargets = {made<PMIDatumTarget>(2'000'004, L"A1")};
    view->Content().dimensions = {made<PMIDimension>(2'000'005, L"20")};
    set->AddView(view);
    set->AddView(made<PMIAnnotationView>(2'000'006, L"Empty"));
    auto const capture = made<PMICapture>(2'000'007, L"Exploded");
    capture->SetActive(true);
    set->AddCapture(capture);
    setPmi(set);
    EXPECT_EQ(render(), LR"(
File
  Plate.1
    Annotations
      Set (ISO)  (hidden)
        Views
          *Front (hidden) -
            Notes
              deburr (hidden) -
            Datums
              A
            DatumTargets
              A1
            Dimensions
              20
          Empty
        Captures
          *Exploded
)");
    auto const below = [this](std::vector<unsigned long long> values) {
        values.insert(values.begin(), {1, tree.RootId, instance->GetHashedID(), 10005});
        return path(values);
    };
    EXPECT_EQ(tree.Path(L"A1"), below({10010, 2'000'001, 10102, 2'000'004}));
    EXPECT_EQ(tree.Path(L"*Exploded"), below({10012, 2'000'007}));
    EXPECT_EQ(tree.Path(L"Set (ISO)  (hidden)"), below({2'000'000}));
}

TEST_F(PartFile, AnnotationsOfAnotherOwnerAreNotShown)
{
    auto pmi = std::make_shared<PMIContainer>();
    pmi->AddAnnotationSet(L"someone else", made<PMIAnnotationSet>(2'000'000, L"Set"));
    part->SetPmi(pmi);
    EXPECT_EQ(render(), L"\nFile\n  Plate.1\n");
}

TEST_F(PartFile, ToleranceAndDimensionIconsFollowTheirKind)
{
    constexpr int tolerances[] = {33, 69, 53, 44, 50, 62, 63, 59, 60, 41, 61, 46, 46, 70, 61, 61, 45, 72, 33};
    for (int type = 0; type < static_cast<int>(std::size(tolerances)); ++type) {
        auto const tolerance = made<PMIGDT>(1, L"");
        tolerance->SetToleranceInfo(static_cast<PMIToleranceType>(type), 0.1);
        EXPECT_EQ(static_cast<int>(tree.getTreeItemStyle(tolerance)), tolerances[type]) << type;
    }
    EXPECT_EQ(tree.getTreeItemStyle(std::shared_ptr<PMIGDT>()), TreeItemStyles{32});

    for (int type = 0; type <= 23; ++type) {
        auto const dimension = made<PMIDimension>(1, L"");
        dimension->SetType(PMIDimensionType::Size, static_cast<PMIDimensionSubType>(type));
        int const style = type == 5 || type == 22    ? 25
                          : type >= 6 && type <= 9   ? 27
                          : type >= 10 && type <= 14 ? 26
                                                     : 23;
        EXPECT_EQ(static_cast<int>(tree.getTreeItemStyle(dimension)), style) << type;
    }
    EXPECT_EQ(tree.getTreeItemStyle(std::shared_ptr<PMIDimension>()), TreeItemStyles{23});
}

TEST_F(PartFile, VisualisationDataOfAHiddenInstance)
{
    part->SetGraphical(true);
    auto const set = group(NodeType::GeometrySet, {leaf<MeshRep>(3'000'001, L"", &Node::SetMesh),
                                                   leaf<WireRep>(3'000'002, L"axis", &Node::SetWire),
                                                   leaf<PointSetRep>(3'000'003, L"", &Node::SetPointSet),
                                                   leaf<PmiRep>(3'000'004, L"", &Node::SetPMI)});
    part->SetSG(container(L"plate", set));
    EXPECT_EQ(render(), LR"(
File
  Plate.1
    Geometry
      Mesh
      axis
      PointSet
    Annotations
      PMI
)");
    EXPECT_EQ(tree.ToolTips.at({instance->GetHashedID(), EntityType::PartEntry, 10006}),
              L"VisuData Geometry");
    EXPECT_EQ(tree.Path(L"axis"), path({1, tree.RootId, instance->GetHashedID(), 10006, 3'000'002}));
    instance->SetHidden(true);
    EXPECT_EQ(render(), LR"(
File
  Plate.1 (hidden) -
    Geometry
      Mesh (hidden) -
      axis (hidden) -
      PointSet (hidden) -
    Annotations
      PMI (hidden) -
)");
}

TEST_F(PartFile, ProductDataHasNoGeometryGroup)
{
    auto const set = group(NodeType::GeometrySet, {leaf<MeshRep>(3'000'001, L"", &Node::SetMesh),
                                                   leaf<PmiRep>(3'000'004, L"flag", &Node::SetPMI)});
    model.SetSG(container(L"file", set));
    EXPECT_EQ(render(), LR"(
File
  Plate.1
  Annotations
    flag
)");
}

TEST_F(PartFile, DrawingSheetsTakeThePlaceOfEverythingElse)
{
    auto const sheet =
        group(NodeType::ActiveDrawingSheet, {leaf<WireRep>(3'000'002, L"", &Node::SetWire),
                                             leaf<PmiRep>(3'000'004, L"title", &Node::SetPMI)});
    sheet->SetDWG(4'000'000, L"A3");
    auto const nameless =
        group(NodeType::DrawingSheet, {leaf<PointSetRep>(3'000'005, L"", &Node::SetPointSet)});
    auto const drawing = group(NodeType::Drawing, {sheet, nameless});
    part->SetGraphical(true);
    auto const data = container(L"plate", drawing);
    data->AddRootNode(L"plate", group(NodeType::Root, {leaf<MeshRep>(3'000'001, L"", &Node::SetMesh)}));
    part->SetSG(data);
    EXPECT_EQ(render(), LR"(
File
  Plate.1
    DrawingSheets
      A3 (*)
        Wire
        title
      DRWINGSHEET
        PointSet
)");
    EXPECT_EQ(tree.ToolTips.at({instance->GetHashedID(), EntityType::PartEntry, 10006}),
              L"DrawingSheets Data");

    model.SetSG(container(L"file", drawing));
    EXPECT_THAT(render(), HasSubstr(L"  DrawingSheets\n    A3 (*) (hidden) -\n"));
}
