#include "zel_xml_parts.h"

namespace NarMetaInfra
{

using namespace NarMetaVisu;

namespace
{

// ---- Looks

void WriteLook(XmlSink& sink, char const* name, Attributes const& look)
{
    auto const element = sink.Open(name);
    sink.Colours(look);
    if (LineAttribute line; look.GetLineAttribute(line)) {
        LineAttribute::VisuLineStyle style{};
        float weight = 0;
        if (line.GetLineStyle(style)) sink.Attribute("line_style", static_cast<int>(style));
        if (line.GetLineWeight(weight)) sink.Attribute("line_weight", weight);
    }
    for (auto const& material : look.GetMaterials()) sink.Text("material", material->GetMaterialName());
}

std::shared_ptr<Attributes> ReadLook(XmlSource& source, Materials const& materials)
{
    auto look = std::make_shared<Attributes>();
    source.Colours(*look);
    auto const style = source.NumberOf<int>("line_style");
    auto const weight = source.NumberOf<float>("line_weight");
    if (style || weight) {
        LineAttribute line;
        if (style) line.SetLineStyle(source.Choice("line_style", 0, 9, LineAttribute::None));
        if (weight) line.SetLineWeight(*weight);
        look->SetLineAttribute(line);
    }
    source.Children({{"material", [&] {
                          auto const line = source.Line();
                          auto const found = materials.find(source.TextContent());
                          if (found != materials.end())
                              look->AddMaterial(found->second);
                          else
                              source.FailAt(line,
                                            QStringLiteral("a material is used that does not stand before"));
                      }}});
    return look;
}

/// The own look of a face or edge, and the one that a node puts in its place.
template <class Primitive>
void WriteLooks(XmlSink& sink, Node const& node, std::shared_ptr<Primitive> const& primitive)
{
    auto const& own = primitive->GetAttributes();
    if (own) WriteLook(sink, "look", *own);
    if (auto const* shown = node.FindAttributes(*primitive); shown && shown != own.get())
        WriteLook(sink, "node_look", *shown);
}

// ---- Edges, faces, meshes

void WriteEdge(XmlSink& sink, Node const& node, std::shared_ptr<EdgeRep> const& edge)
{
    auto const element = sink.Open("edge");
    sink.Attribute("type", static_cast<int>(edge->GetLineType()));
    sink.Array("points", edge->GetPoints());
    WriteLooks(sink, node, edge);
}

void WritePolygon(XmlSink& sink, Node const& node, PolygonRep const& polygon)
{
    auto const element = sink.Open("polygon");
    sink.Attribute("type", static_cast<int>(polygon.GetPolygonType()));
    if (!polygon.GetIndices().empty()) sink.Array("indices", polygon.GetIndices());
    for (auto const& loop : polygon.GetPolyLoops()) {
        auto const child = sink.Open("loop");
        sink.Attribute("type", static_cast<int>(loop.GetType()));
        for (auto const& edge : loop.GetEdges()) WriteEdge(sink, node, edge);
    }
}

void WriteMesh(XmlSink& sink, Node const& node, MeshRep const& mesh)
{
    auto const element = sink.Open("mesh");
    sink.Attribute("id", mesh.GetHashedID());
    sink.Attribute("name", mesh.GetDisplayName());
    for (auto const& face : mesh.GetFaces()) {
        auto const child = sink.Open("face");
        sink.Array("points", face->GetPoints());
        sink.Array("normals", face->GetNormals());
        if (!face->GetTextureCoordinates().empty())
            sink.Array("texture_coordinates", face->GetTextureCoordinates());
        for (auto const& polygon : face->GetPolygons()) WritePolygon(sink, node, polygon);
        WriteLooks(sink, node, face);
    }
    for (auto const& edge : mesh.GetEdges()) WriteEdge(sink, node, edge);
}

/// Reads the contents of one node.
class NodeReader
{
public:
    NodeReader(XmlSource& source, Materials const& materials, Node& node)
        : source_(source), materials_(materials), node_(node)
    {
    }

    std::shared_ptr<EdgeRep> Edge()
    {
        auto const type = source_.Choice("type", 1, 3, VisuEdgeLineType::Open);
        std::vector<float> points;
        std::shared_ptr<Attributes> own, shown;
        source_.Children({{"points", [&] { points = source_.Points(); }},
                          {"look", [&] { own = ReadLook(source_, materials_); }},
                          {"node_look", [&] { shown = ReadLook(source_, materials_); }}});
        auto edge = std::make_shared<EdgeRep>(std::move(points), type);
        edge->SetAttributes(own);
        if (shown) node_.SetEdgeAttributes(edge, shown);
        return edge;
    }

    std::shared_ptr<MeshRep> Mesh()
    {
        auto mesh = representation<MeshRep>("mesh");
        source_.Children(
            {{"face", [&] { mesh->AddFace(face()); }}, {"edge", [&] { mesh->AddEdge(Edge()); }}});
        return mesh;
    }

    std::shared_ptr<WireRep> Wire()
    {
        auto wire = representation<WireRep>("wire");
        source_.Children({{"edge", [&] { wire->AddEdge(Edge()); }}});
        return wire;
    }

    std::shared_ptr<PointSetRep> PointSet()
    {
        auto set = representation<PointSetRep>("point_set");
        source_.Children({{"points", [&] {
                               auto const style = source_.NumberOf<int>("style").value_or(0);
                               NarMeta::Coloured colours;
                               source_.Colours(colours);
                               auto points = std::make_shared<PointsRep>(source_.Points(),
                                                                         static_cast<VisuMarkerStyle>(style));
                               points->SetColour(colours.GetColour());
                               points->SetAlphaColor(colours.GetAlpha());
                               set->AddPoints(points);
                           }}});
        return set;
    }

    std::shared_ptr<PmiRep> Pmi()
    {
        auto pmi = representation<PmiRep>("pmi");
        source_.Children({{"text", [&] { pmi->AddString(text()); }},
                          {"edge", [&] { pmi->AddEdge(Edge()); }},
                          {"mesh", [&] { pmi->SetMesh(Mesh()); }}});
        return pmi;
    }

private:
    template <class Representation> std::shared_ptr<Representation> representation(char const* kind)
    {
        auto const name = source_.Text("name");
        auto const id = source_.NumberOf<Id>("id").value_or(
            NarMeta::HashId(NarMeta::HashId(name), kind, static_cast<Id>(source_.Offset())));
        return std::make_shared<Representation>(id, name);
    }

    std::shared_ptr<TextRep> text()
    {
        auto text = std::make_shared<TextRep>(source_.Text("string"));
        source_.Colours(*text);
        source_.Children({{"transform", [&] { text->SetTransform(source_.Tuple<16>()); }},
                          {"font", [&] {
                               text->SetFont({source_.Text("name"), source_.NumberOf<float>("size"),
                                              source_.NumberOf<float>("slant"),
                                              source_.NumberOf<float>("spacing"),
                                              source_.NumberOf<float>("horizontal_scale")});
                           }}});
        return text;
    }

    std::shared_ptr<FaceRep> face()
    {
        auto const line = source_.Line();
        std::vector<float> points, normals, coordinates;
        std::vector<PolygonRep> polygons;
        std::shared_ptr<Attributes> own, shown;
        source_.Children({{"points", [&] { points = source_.Points(); }},
                          {"normals", [&] { normals = source_.Points(); }},
                          {"texture_coordinates", [&] { coordinates = source_.Array<float>(); }},
                          {"polygon", [&] { polygons.push_back(polygon()); }},
                          {"look", [&] { own = ReadLook(source_, materials_); }},
                          {"node_look", [&] { shown = ReadLook(source_, materials_); }}});
        auto face = std::make_shared<FaceRep>(std::move(points), std::move(normals));
        for (auto& polygon : polygons) {
            for (int index : polygon.GetIndices())
                if (index < 0 || index % 3 != 0 ||
                    static_cast<std::size_t>(index) + 3 > face->GetPoints().size())
                    source_.FailAt(line, QStringLiteral("a polygon names element %1 of a face that has %2")
                                             .arg(index)
                                             .arg(face->GetPoints().size()));
            face->AddPolygon(std::move(polygon));
        }
        if (!coordinates.empty() && 3 * coordinates.size() != 2 * face->GetPoints().size())
            source_.FailAt(line, QStringLiteral("a face has not one pair of texture coordinates per point"));
        face->SetTextureCoordinates(std::move(coordinates));
        face->SetAttributes(own);
        if (shown) node_.SetFaceAttributes(face, shown);
        return face;
    }

    PolygonRep polygon()
    {
        auto const type = source_.Choice("type", 1, 4, VisuPolygonType::Triangles);
        std::vector<int> indices;
        std::vector<PolygonLoopRep> loops;
        source_.Children({{"indices", [&] { indices = source_.Array<int>(); }},
                          {"loop", [&] {
                               auto const kind =
                                   source_.Choice("type", 0, 2, VisuPolygonLoopType::Unclassified);
                               std::vector<std::shared_ptr<EdgeRep>> edges;
                               source_.Children({{"edge", [&] { edges.push_back(Edge()); }}});
                               loops.emplace_back(std::move(edges), kind);
                           }}});
        return type == VisuPolygonType::PolygonLoops ? PolygonRep(std::move(loops))
                                                     : PolygonRep(type, std::move(indices));
    }

    XmlSource& source_;
    Materials const& materials_;
    Node& node_;
};

// ---- Nodes

void WriteText(XmlSink& sink, TextRep const& text)
{
    auto const element = sink.Open("text");
    sink.Attribute("string", text.GetText());
    sink.Colours(text);
    std::array<float, 16> matrix;
    text.GetTransform(matrix.data());
    sink.Array("transform", matrix);
    if (Font font; text.GetFont(font)) {
        auto const child = sink.Open("font");
        sink.Attribute("name", font.Name);
        sink.Attribute("size", font.Size);
        sink.Attribute("slant", font.Slant);
        sink.Attribute("spacing", font.Spacing);
        sink.Attribute("horizontal_scale", font.HorizontalScale);
    }
}

void WriteRepresentations(XmlSink& sink, Node const& node)
{
    auto const head = [&sink](Representation const& representation) {
        sink.Attribute("id", representation.GetHashedID());
        sink.Attribute("name", representation.GetDisplayName());
    };
    if (node.GetMesh()) WriteMesh(sink, node, *node.GetMesh());
    if (auto const& wire = node.GetWire()) {
        auto const element = sink.Open("wire");
        head(*wire);
        for (auto const& edge : wire->GetEdges()) WriteEdge(sink, node, edge);
    }
    if (auto const& set = node.GetPointSet()) {
        auto const element = sink.Open("point_set");
        head(*set);
        for (auto const& points : set->GetPoints()) {
            auto const child = sink.Open("points");
            sink.Attribute("style", static_cast<int>(points->GetMarkerStyle()));
            sink.Colours(*points);
            sink.Content(points->GetPoints());
        }
    }
    if (auto const& pmi = node.GetPMI()) {
        auto const element = sink.Open("pmi");
        head(*pmi);
        for (auto const& text : pmi->GetStrings()) WriteText(sink, *text);
        for (auto const& edge : pmi->GetEdges()) WriteEdge(sink, node, edge);
        if (pmi->GetMesh()) WriteMesh(sink, node, *pmi->GetMesh());
    }
}

void WriteNode(XmlSink& sink, Node const& node)
{
    auto const element = sink.Open("node");
    sink.Attribute("type", static_cast<int>(node.GetType()));
    sink.Attribute("group", node.GetGroupName());
    sink.Flag("branch", !node.IsLeaf());
    if (node.GetDWGHashedID() != 0) sink.Attribute("sheet_id", node.GetDWGHashedID());
    sink.Attribute("sheet_name", node.GetDWGDisplayName());
    if (node.GetMatrix()) sink.Array("transform", *node.GetMatrix());
    if (node.GetAttributes()) WriteLook(sink, "look", *node.GetAttributes());
    WriteRepresentations(sink, node);
    for (auto const& child : node.GetChildNodes()) WriteNode(sink, *child);
}

std::shared_ptr<Node> ReadNode(XmlSource& source, Materials const& materials)
{
    auto const type = static_cast<NodeType>(source.NumberOf<int>("type").value_or(2));
    auto node = std::make_shared<Node>(type, source.Text("group"));
    if (source.Flag("branch")) node->SetGroup();
    auto const sheet = source.NumberOf<Id>("sheet_id");
    auto const sheetName = source.Text("sheet_name");
    if (sheet || !sheetName.empty()) node->SetDWG(sheet.value_or(0), sheetName);
    NodeReader contents(source, materials, *node);
    source.Children({{"transform", [&] { node->SetTransform(source.Tuple<16>()); }},
                     {"look", [&] { node->SetAttributes(ReadLook(source, materials)); }},
                     {"mesh", [&] { node->SetMesh(contents.Mesh()); }},
                     {"wire", [&] { node->SetWire(contents.Wire()); }},
                     {"point_set", [&] { node->SetPointSet(contents.PointSet()); }},
                     {"pmi", [&] { node->SetPMI(contents.Pmi()); }},
                     {"node", [&] { node->AddChild(ReadNode(source, materials)); }}});
    return node;
}

} // namespace

void WriteVisualisation(XmlSink& sink, SGContainer const& container)
{
    auto const element = sink.Open("visualisation");
    for (auto const& [name, group] : container.GetGroups()) {
        auto const child = sink.Open("group");
        sink.Attribute("name", name);
        sink.Attribute("scale", group.scale);
        for (auto const& root : group.roots) WriteNode(sink, *root);
    }
}

std::shared_ptr<SGContainer> ReadVisualisation(XmlSource& source, Materials const& materials)
{
    auto container = std::make_shared<SGContainer>();
    source.Children(
        {{"group", [&] {
              auto const name = source.Text("name");
              container->SetScaleFactor(name, source.NumberOf<float>("scale").value_or(1));
              source.Children({{"node", [&] { container->AddRootNode(name, ReadNode(source, materials)); }}});
          }}});
    return container;
}

namespace
{

void CollectMaterials(Attributes const* look, Materials& materials)
{
    if (!look) return;
    for (auto const& material : look->GetMaterials()) materials[material->GetMaterialName()] = material;
}

void CollectMaterials(Node const& node, Materials& materials)
{
    CollectMaterials(node.GetAttributes().get(), materials);
    auto const ofMesh = [&](MeshRep const& mesh) {
        for (auto const& face : mesh.GetFaces()) {
            CollectMaterials(face->GetAttributes().get(), materials);
            CollectMaterials(node.FindAttributes(*face), materials);
        }
    };
    if (node.GetMesh()) ofMesh(*node.GetMesh());
    if (node.GetPMI() && node.GetPMI()->GetMesh()) ofMesh(*node.GetPMI()->GetMesh());
    for (auto const& child : node.GetChildNodes()) CollectMaterials(*child, materials);
}

} // namespace

void CollectMaterials(SGContainer const& container, Materials& materials)
{
    for (auto const& [name, group] : container.GetGroups())
        for (auto const& root : group.roots) CollectMaterials(*root, materials);
}

} // namespace NarMetaInfra
