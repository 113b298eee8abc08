#include "TestDocument.h"
#include "scene_dump.h"

#include <gtest/gtest.h>

namespace ZelVizBase
{
namespace
{

using namespace NarMetaVisu;

/// Four corners of a unit square, and normals for them.
std::vector<float> const square{0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0};
std::vector<float> const upwards{0, 0, 1, 0, 0, 1, 0, 0, 1, 0, 0, 1};

std::shared_ptr<FaceRep> faceOf(VisuPolygonType type, std::vector<int> offsets)
{
    auto face = std::make_shared<FaceRep>(square, upwards);
    face->AddPolygon(PolygonRep(type, std::move(offsets)));
    return face;
}

std::shared_ptr<FaceRep> triangle()
{
    return faceOf(VisuPolygonType::Triangles, {0, 3, 6});
}

std::shared_ptr<Attributes> colored(std::optional<NarMeta::Colour> color,
                                    std::optional<unsigned short> alpha = {})
{
    auto attributes = std::make_shared<Attributes>();
    attributes->SetColour(color);
    attributes->SetAlphaColor(alpha);
    return attributes;
}

std::shared_ptr<Node> meshLeaf(std::vector<std::shared_ptr<FaceRep>> const& faces, NarMeta::Id id = 2'000'000)
{
    auto mesh = std::make_shared<MeshRep>(id);
    for (auto const& face : faces) mesh->AddFace(face);
    auto leaf = std::make_shared<Node>(NodeType::Geometry);
    leaf->SetMesh(mesh);
    return leaf;
}

std::shared_ptr<Node> wireLeaf(std::shared_ptr<EdgeRep> edge, NarMeta::Id id = 3'000'000)
{
    auto wire = std::make_shared<WireRep>(id);
    wire->AddEdge(std::move(edge));
    auto leaf = std::make_shared<Node>(NodeType::Geometry);
    leaf->SetWire(wire);
    return leaf;
}

std::shared_ptr<Node> group(NodeType type, std::wstring name,
                            std::vector<std::shared_ptr<Node>> const& children)
{
    auto node = std::make_shared<Node>(type, std::move(name));
    node->SetGroup();
    for (auto const& child : children) node->AddChild(child);
    return node;
}

class VisuSceneTest : public testing::Test
{
protected:
    TestRenderer Renderer;
    HPS::SegmentKey Root = HPS::Database::CreateRootSegment();
    std::shared_ptr<NarMetaInfra::ZELReference> Reference =
        std::make_shared<NarMetaInfra::ZELReference>(NarMetaInfra::ZELReference::Kind::Part, L"A");

    VisuSceneTest() { Renderer.Flush(); }
    ~VisuSceneTest() override { Root.Delete(); }

    std::shared_ptr<SGContainer> container(std::vector<std::shared_ptr<Node>> const& children,
                                           float scale = 1)
    {
        auto data = std::make_shared<SGContainer>();
        data->AddRootNode(L"A", group(NodeType::Root, L"root", children));
        data->SetScaleFactor(L"A", scale);
        return data;
    }
    bool render(std::vector<std::shared_ptr<Node>> const& children, float scale = 1)
    {
        return Renderer.renderVisuData(Root, Reference, container(children, scale));
    }
    /// What one node becomes, with the names of the counted nodes from 0 on.
    std::string rendered(std::shared_ptr<Node> const& node)
    {
        Renderer.Flush();
        Root.Flush();
        EXPECT_TRUE(Renderer.renderVisuNode(Root, node));
        return dump(Root);
    }
};

std::string leafName(int number)
{
    return Node::NodeTypeAsString(NodeType::Geometry) + "_" + std::to_string(number);
}

TEST_F(VisuSceneTest, AReferenceHasThreeStyledRoots)
{
    ASSERT_TRUE(render({group(NodeType::GeometrySet, L"set", {meshLeaf({triangle()})})}, 25.4F));
    EXPECT_EQ(dump(Root), "-\n"
                          "  visu [10 10006] @0,0,0*25.4 style:default_style style:hidden_visu?hide_visu\n"
                          "    set\n"
                          "      " +
                              leafName(0) +
                              "\n"
                              "        - [3 #]\n"
                              "          nocolor\n"
                              "            shell 3 0 1 2\n"
                              "  pmi [14 10005] @0,0,0*25.4 style:pmi_style style:hidden_pmi?hide_pmi\n"
                              "  drw [11 10006] @0,0,0*25.4 style:drawing_style style:hidden_drw?hide_drw\n");
}

TEST_F(VisuSceneTest, ScaleOneSetsNoMatrix)
{
    ASSERT_TRUE(render({meshLeaf({triangle()})}));
    HPS::MatrixKit matrix;
    EXPECT_FALSE(Root.Subsegment("visu", false).ShowModellingMatrix(matrix));
}

TEST_F(VisuSceneTest, NodesGoWhereTheirTypeBelongs)
{
    auto const leaf = [](NodeType type) {
        auto node = std::make_shared<Node>(type);
        node->SetMesh(meshLeaf({triangle()})->GetMesh());
        return node;
    };
    ASSERT_TRUE(render({leaf(NodeType::Geometry), leaf(NodeType::GeometrySet), leaf(NodeType::Annotations),
                        leaf(NodeType::Drawing)}));
    EXPECT_EQ(Root.Subsegment("visu", false).GetSubsegmentCount(), 2u);
    EXPECT_EQ(Root.Subsegment("pmi", false).GetSubsegmentCount(), 1u);
    EXPECT_EQ(Root.Subsegment("drw", false).GetSubsegmentCount(), 1u);
    EXPECT_EQ(Renderer.NodeCounter, 4u);
    for (NodeType const refused : {NodeType::Root, NodeType::DrawingSheet, NodeType::ActiveDrawingSheet})
        EXPECT_FALSE(render({leaf(refused)})) << static_cast<int>(refused);
}

TEST_F(VisuSceneTest, AtProductLevelOnlyGeometryAndAnnotations)
{
    NarMetaInfra::ZELProductStructure const structure(L"A");
    EXPECT_TRUE(Renderer.renderVisuData(&structure, Root, nullptr));
    EXPECT_EQ(dump(Root), "-\n");
    auto const annotations = std::make_shared<Node>(NodeType::Annotations);
    EXPECT_TRUE(Renderer.renderVisuData(&structure, Root, container({meshLeaf({triangle()}), annotations})));
    EXPECT_EQ(dump(Root).substr(0, 13), "- [14 10005]\n");
    EXPECT_EQ(Root.GetSubsegmentCount(), 2u);
    for (NodeType const refused : {NodeType::GeometrySet, NodeType::Drawing})
        EXPECT_FALSE(Renderer.renderVisuData(&structure, Root, container({std::make_shared<Node>(refused)})));
}

TEST_F(VisuSceneTest, EmptyGroupsAreFalseAndEmptyDataIsTrue)
{
    EXPECT_FALSE(Renderer.renderVisuData(Root, Reference, nullptr));
    EXPECT_TRUE(Renderer.renderVisuData(Root, Reference, std::make_shared<SGContainer>()));
    EXPECT_EQ(dump(Root), "-\n");
    EXPECT_FALSE(render({}));
    EXPECT_FALSE(render({group(NodeType::Geometry, L"empty", {})}));
    EXPECT_TRUE(render({std::make_shared<Node>(NodeType::Geometry)})); // a leaf without data
    EXPECT_FALSE(Renderer.renderVisuNode(Root, nullptr));
    EXPECT_FALSE(render({nullptr}));
    NarMetaInfra::ZELProductStructure const structure(L"A");
    EXPECT_FALSE(Renderer.renderVisuData(&structure, Root, container({nullptr})));
}

TEST_F(VisuSceneTest, GroupsOfOneNameShareASegmentAndLeavesCountOn)
{
    auto const leaf = meshLeaf({triangle()});
    ASSERT_TRUE(
        render({group(NodeType::Geometry, L"g", {leaf}), group(NodeType::Geometry, L"g", {leaf, leaf})}));
    HPS::SegmentKey visu = Root.Subsegment("visu", false);
    EXPECT_EQ(visu.GetSubsegmentCount(), 1u);
    EXPECT_EQ(visu.Subsegment("g", false).GetSubsegmentCount(), 3u);
    EXPECT_EQ(Renderer.NodeCounter, 3u);
    TestRenderer other;
    EXPECT_EQ(other.NodeCounter, 3u);
    other.Flush();
    EXPECT_EQ(Renderer.NodeCounter, 0u);
}

TEST_F(VisuSceneTest, DrawingsCountEveryNodeAndHideInactiveSheets)
{
    auto const sheet = group(NodeType::DrawingSheet, L"sheet", {std::make_shared<Node>(NodeType::Geometry)});
    auto const active =
        group(NodeType::ActiveDrawingSheet, L"active", {std::make_shared<Node>(NodeType::Geometry)});
    ASSERT_TRUE(Renderer.renderVisuDrawingNode(Root, group(NodeType::Drawing, L"drawing", {sheet, active})));
    std::string const type58 = Node::NodeTypeAsString(NodeType::DrawingSheet);
    std::string const type59 = Node::NodeTypeAsString(NodeType::ActiveDrawingSheet);
    EXPECT_EQ(dump(Root), "-\n"
                          "  " +
                              Node::NodeTypeAsString(NodeType::Drawing) +
                              "_0\n"
                              "    " +
                              type58 +
                              "_1 hidden locked\n"
                              "      " +
                              leafName(2) +
                              "\n"
                              "    " +
                              type59 +
                              "_3\n"
                              "      " +
                              leafName(4) + "\n");
}

TEST_F(VisuSceneTest, NodesNestedWithoutEndAreLeftOut)
{
    std::shared_ptr<Node> chain = meshLeaf({triangle()});
    for (int i = 0; i < 5000; ++i) chain = group(NodeType::Geometry, L"g", {chain});
    EXPECT_TRUE(Renderer.renderVisuNode(Root, chain));
    EXPECT_EQ(Renderer.NodeCounter, 0u);
}

struct FacelistCase {
    char const* Name;
    VisuPolygonType Type;
    std::vector<int> Corners; ///< numbers of the square's corners
    std::string Facelist;     ///< empty: no shell
};

class FacelistTest : public VisuSceneTest, public testing::WithParamInterface<FacelistCase>
{
};

TEST_P(FacelistTest, Shell)
{
    std::vector<int> offsets;
    for (int const corner : GetParam().Corners) offsets.push_back(3 * corner);
    auto const face = faceOf(GetParam().Type, offsets);
    Renderer.insert(Root, std::make_shared<Node>(), face, false);
    std::string const shell = GetParam().Facelist.empty() ? "" : "  shell " + GetParam().Facelist + "\n";
    EXPECT_EQ(dump(Root), "-\n" + shell);
}

constexpr auto unknownType = static_cast<VisuPolygonType>(9);
INSTANTIATE_TEST_SUITE_P(
    Polygons, FacelistTest,
    testing::Values(
        FacelistCase{"Triangle", VisuPolygonType::Triangles, {0, 1, 2}, "3 0 1 2"},
        FacelistCase{"TwoTriangles", VisuPolygonType::Triangles, {0, 1, 2, 0, 2, 3}, "3 0 1 2 3 3 4 5"},
        FacelistCase{"UnknownType", unknownType, {2, 1, 0}, "3 0 1 2"},
        FacelistCase{"Strip", VisuPolygonType::TriangleStrip, {0, 1, 2, 3, 0}, "3 0 1 2 3 2 1 3 3 2 3 4"},
        FacelistCase{"Fan", VisuPolygonType::TriangleFan, {0, 1, 2, 3, 0}, "3 0 1 2 3 0 2 3 3 0 3 4"},
        FacelistCase{"ShortStrip", VisuPolygonType::TriangleStrip, {0, 1}, ""},
        FacelistCase{"EmptyFan", VisuPolygonType::TriangleFan, {}, ""},
        FacelistCase{"CornerOutside", VisuPolygonType::Triangles, {0, 1, 4}, ""},
        FacelistCase{"CornerBelow", VisuPolygonType::Triangles, {0, 1, -1}, ""}),
    [](auto const& tested) { return tested.param.Name; });

TEST_F(VisuSceneTest, CornersAreUnfoldedWithTheirNormals)
{
    auto face = std::make_shared<FaceRep>(square, std::vector<float>{1, 0, 0, 0, 1, 0, 0, 0, 1, 1, 0, 0});
    face->AddPolygon(PolygonRep(VisuPolygonType::Triangles, {6, 0, 3}));
    Renderer.insert(Root, std::make_shared<Node>(), face, false);
    HPS::SearchResults found;
    ASSERT_EQ(Root.Find(HPS::Search::Type::Shell, HPS::Search::Space::SegmentOnly, found), 1u);
    HPS::ShellKit kit;
    HPS::ShellKey(found.GetIterator().GetItem()).Show(kit);
    std::vector<HPS::Point> points;
    std::vector<bool> isSet;
    std::vector<HPS::Vector> normals;
    ASSERT_TRUE(kit.ShowPoints(points) && kit.ShowVertexNormals(isSet, normals));
    EXPECT_EQ(points, (std::vector<HPS::Point>{{1, 1, 0}, {0, 0, 0}, {1, 0, 0}}));
    EXPECT_EQ(normals, (std::vector<HPS::Vector>{{0, 0, 1}, {1, 0, 0}, {0, 1, 0}}));
}

TEST_F(VisuSceneTest, AFaceWithUnequalPointsAndNormalsIsDropped)
{
    auto face = std::make_shared<FaceRep>(square, std::vector<float>{0, 0, 1});
    face->AddPolygon(PolygonRep(VisuPolygonType::Triangles, {0, 3, 6}));
    Renderer.insert(Root, std::make_shared<Node>(), face, false);
    EXPECT_EQ(dump(Root), "-\n");
}

TEST_F(VisuSceneTest, FacesAreGroupedByColor)
{
    std::vector<std::shared_ptr<FaceRep>> faces;
    auto const add = [&](std::shared_ptr<Attributes> attributes) {
        faces.push_back(triangle());
        faces.back()->SetAttributes(std::move(attributes));
    };
    add(colored(NarMeta::Colour{255, 0, 0}));
    add(nullptr);
    add(colored(NarMeta::Colour{255, 0, 0}));
    add(colored({}, 128));
    EXPECT_EQ(rendered(meshLeaf(faces)), "-\n"
                                         "  " +
                                             leafName(0) +
                                             "\n"
                                             "    - [3 #]\n"
                                             "      f25500255\n"
                                             "        shell 3 0 1 2\n"
                                             "        shell 3 0 1 2\n"
                                             "      nocolor\n"
                                             "        shell 3 0 1 2\n"
                                             "      f255255255128\n"
                                             "        shell 3 0 1 2\n");
}

TEST_F(VisuSceneTest, RepresentationsAreTaggedAndMapped)
{
    auto points = std::make_shared<PointSetRep>(4'000'000);
    points->AddPoints(std::make_shared<PointsRep>(square));
    auto cloud = std::make_shared<Node>(NodeType::Geometry);
    cloud->SetPointSet(points);
    ASSERT_TRUE(render({meshLeaf({triangle()}), wireLeaf(std::make_shared<EdgeRep>(square)), cloud}));
    for (unsigned long long const pid : {2'000'000ULL, 3'000'000ULL, 4'000'000ULL}) {
        HPS::Key key;
        ASSERT_TRUE(Renderer.GetObjectMapper()->Get(pid, key));
        HPS::SegmentKey segment(key);
        unsigned long long tagged = 0;
        EXPECT_EQ(ZELSegmentTagger::GetPid(segment, tagged), pid != 4'000'000) << "point sets carry no tag";
        EXPECT_EQ(tagged, pid != 4'000'000 ? pid : 0);
    }
}

struct EdgeCase {
    VisuEdgeLineType Type;
    std::string Geometry;
    bool SetsVisibility;
    bool Faces;
};

TEST_F(VisuSceneTest, EdgesByLineType)
{
    EdgeCase const cases[] = {{VisuEdgeLineType::Open, "  line 4\n", false, false},
                              {VisuEdgeLineType::Closed, "  polygon 5\n", true, false},
                              {VisuEdgeLineType::ClosedFilled, "  polygon 5\n", true, true},
                              {static_cast<VisuEdgeLineType>(7), "", false, false}};
    for (EdgeCase const& wanted : cases) {
        HPS::SegmentKey segment = Root.Subsegment("", true);
        Renderer.insert(segment, std::make_shared<Node>(), std::make_shared<EdgeRep>(square, wanted.Type));
        EXPECT_EQ(dump(segment), "-\n" + wanted.Geometry);
        HPS::VisibilityControl const visibility = segment.GetVisibilityControl();
        bool faces = false;
        bool edges = false;
        bool lines = false;
        ASSERT_EQ(visibility.ShowFaces(faces), wanted.SetsVisibility);
        if (!wanted.SetsVisibility) continue;
        EXPECT_TRUE(visibility.ShowEdges(edges) && visibility.ShowLines(lines));
        EXPECT_EQ(faces, wanted.Faces);
        EXPECT_NE(edges, wanted.Faces);
        EXPECT_NE(lines, wanted.Faces);
    }
    Renderer.insert(Root, std::make_shared<Node>(),
                    std::make_shared<EdgeRep>(std::vector<float>{}, VisuEdgeLineType::Closed));
}

TEST_F(VisuSceneTest, EdgesTakeColorPatternAndWeight)
{
    auto attributes = colored(NarMeta::Colour{255, 0, 51}, 102);
    LineAttribute line;
    line.SetLineStyle(LineAttribute::Dotted);
    line.SetLineWeight(2.5F);
    attributes->SetLineAttribute(line);
    auto edge = std::make_shared<EdgeRep>(square);
    edge->SetAttributes(attributes);
    Renderer.insert(Root, std::make_shared<Node>(), edge);

    HPS::Material::Type type{};
    HPS::RGBAColor color;
    float index = 0;
    ASSERT_TRUE(Root.GetMaterialMappingControl().ShowLineColor(type, color, index));
    EXPECT_EQ(color, HPS::RGBAColor(1, 0, 0.2F, 0.4F));
    HPS::UTF8 pattern;
    float weight = 0;
    HPS::Line::SizeUnits units{};
    ASSERT_TRUE(Root.GetLineAttributeControl().ShowPattern(pattern));
    EXPECT_EQ(pattern.Str(), LineAttribute::ToString(LineAttribute::Dotted));
    ASSERT_TRUE(Root.GetLineAttributeControl().ShowWeight(weight, units));
    EXPECT_EQ(weight, 2.5F);
    EXPECT_EQ(units, HPS::Line::SizeUnits::ScaleFactor);
}

TEST_F(VisuSceneTest, SolidLinesSetNoPattern)
{
    auto attributes = std::make_shared<Attributes>();
    LineAttribute line;
    line.SetLineStyle(LineAttribute::Solid);
    line.SetLineWeight(0);
    attributes->SetLineAttribute(line);
    auto node = std::make_shared<Node>();
    node->SetAttributes(attributes);
    Renderer.setNodeProperties(Root, node);
    HPS::LineAttributeKit kit;
    EXPECT_FALSE(Root.ShowLineAttribute(kit));
}

TEST_F(VisuSceneTest, NodesCarryTheirMatrixAndColor)
{
    std::array<float, 16> matrix{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 5, 6, 7, 1};
    auto node = std::make_shared<Node>();
    node->SetTransform(matrix);
    node->SetAttributes(colored(NarMeta::Colour{0, 255, 0}, 0));
    Renderer.setNodeProperties(Root, node);
    EXPECT_EQ(dump(Root), "- @5,6,7\n");
    HPS::Material::Type type{};
    HPS::RGBAColor color;
    float index = 0;
    ASSERT_TRUE(Root.GetMaterialMappingControl().ShowMarkerColor(type, color, index));
    EXPECT_EQ(color, HPS::RGBAColor(0, 1, 0, 0));
}

TEST_F(VisuSceneTest, PointSetsAreMarkersOfAGlyph)
{
    auto set = std::make_shared<PointSetRep>(4'000'000);
    set->AddPoints(std::make_shared<PointsRep>(square, static_cast<VisuMarkerStyle>(22)));
    auto red = std::make_shared<PointsRep>(std::vector<float>{0, 0, 0});
    red->SetRGBColor(255, 0, 0);
    set->AddPoints(red);
    Renderer.insert(Root, std::make_shared<Node>(), set);
    EXPECT_EQ(dump(Root), "-\n"
                          "  PSet_0\n"
                          "    marker\n    marker\n    marker\n    marker\n"
                          "  PSet_1\n"
                          "    marker\n");
    bool markers = false;
    EXPECT_TRUE(Root.GetVisibilityControl().ShowMarkers(markers) && markers);
    HPS::SegmentKey first = Root.Subsegment("PSet_0", false);
    HPS::UTF8 symbol;
    float size = 0;
    HPS::Marker::SizeUnits units{};
    ASSERT_TRUE(first.GetMarkerAttributeControl().ShowSymbol(symbol));
    EXPECT_EQ(symbol.Str(), "Box");
    ASSERT_TRUE(first.GetMarkerAttributeControl().ShowSize(size, units));
    EXPECT_EQ(size, 2.0F);
    EXPECT_EQ(units, HPS::Marker::SizeUnits::Points);
    HPS::Material::Type type{};
    HPS::RGBAColor color;
    float index = 0;
    EXPECT_FALSE(first.GetMaterialMappingControl().ShowMarkerColor(type, color, index));
    ASSERT_TRUE(
        Root.Subsegment("PSet_1", false).GetMaterialMappingControl().ShowMarkerColor(type, color, index));
    EXPECT_EQ(color, HPS::RGBAColor(1, 0, 0, 1));
}

TEST_F(VisuSceneTest, PmiIsTextsEdgesAndAMesh)
{
    auto pmi = std::make_shared<PmiRep>(5'000'000);
    pmi->AddString(std::make_shared<TextRep>(L"12.5"));
    pmi->AddEdge(std::make_shared<EdgeRep>(square));
    auto mesh = std::make_shared<MeshRep>(6'000'000);
    mesh->AddFace(triangle());
    pmi->SetMesh(mesh);
    auto leaf = std::make_shared<Node>(NodeType::Annotations);
    leaf->SetPMI(pmi);
    EXPECT_EQ(rendered(leaf), "-\n"
                              "  " +
                                  Node::NodeTypeAsString(NodeType::Annotations) +
                                  "_0\n"
                                  "    - [24 #]\n"
                                  "      Txt_0 @0,0,0\n"
                                  "        text \"12.5\"\n"
                                  "      Ed_0\n"
                                  "        line 4\n"
                                  "      Msh_0\n"
                                  "        nocolor\n"
                                  "          shell 3 0 1 2\n");
}

} // namespace
} // namespace ZelVizBase
