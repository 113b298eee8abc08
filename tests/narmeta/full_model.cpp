#include "full_model.h"

#include <cstdlib>
#include <fstream>

using namespace NarMetaInfra;
using namespace NarMetaPmi;
using namespace NarMetaVisu;

BrepBody Tetrahedron(NarMeta::Id id, float size)
{
    BrepBody body;
    body.id = id;
    std::array<float, 3> const corners[] = {{0, 0, 0}, {size, 0, 0}, {0, size, 0}, {0, 0, size}};
    constexpr int sides[4][3] = {{0, 2, 1}, {0, 1, 3}, {0, 3, 2}, {1, 2, 3}};
    constexpr float third = 0.57735026f;
    constexpr float normals[4][3] = {{0, 0, -1}, {0, -1, 0}, {-1, 0, 0}, {third, third, third}};
    for (int side = 0; side < 4; ++side) {
        std::vector<float> points, directions;
        for (int corner : sides[side]) {
            points.insert(points.end(), corners[corner].begin(), corners[corner].end());
            directions.insert(directions.end(), normals[side], normals[side] + 3);
        }
        body.AddFace(NarMeta::HashId(id, "face", static_cast<NarMeta::Id>(side)), points, directions,
                     std::array<std::uint32_t, 3>{0, 1, 2});
    }
    for (int to = 1; to < 4; ++to) {
        std::vector<float> line(corners[0].begin(), corners[0].end());
        line.insert(line.end(), corners[to].begin(), corners[to].end());
        body.AddEdge(NarMeta::HashId(id, "edge", static_cast<NarMeta::Id>(to)), line);
    }
    for (int corner = 0; corner < 4; ++corner)
        body.AddVertex(NarMeta::HashId(id, "vertex", static_cast<NarMeta::Id>(corner)), corners[corner]);
    return body;
}

namespace
{

std::shared_ptr<Attributes> Look(unsigned short red, std::optional<unsigned short> alpha)
{
    auto look = std::make_shared<Attributes>();
    look->SetRGBColor(red, 20, 30);
    look->SetAlphaColor(alpha);
    LineAttribute line;
    line.SetLineStyle(LineAttribute::Dotted);
    line.SetLineWeight(1.75f);
    look->SetLineAttribute(line);
    return look;
}

std::shared_ptr<NarMetaVisu::Material> Painted()
{
    auto image = std::make_shared<TextureImage>(2, 2, ImagePixelFormat::RGB);
    image->AddMipmap({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 250, 255});
    image->AddMipmap({1, 2, 3});
    Texture::Settings settings;
    settings.filePath = L"wood.png";
    settings.image = image;
    settings.mapping = Texture::TextureMappingMode::Spherical;
    settings.rotation = {0.5f, 0, 0.25f};
    settings.translation = {1, 2};
    settings.scale = {3, 4};
    settings.method = Texture::TextureMethod::Modulate;
    settings.filter = {Texture::TextureFilter::Linear, Texture::TextureFilter::LinearMipmapLinear};
    settings.wrap = {Texture::TextureWrapMode::Repeat, Texture::TextureWrapMode::MirroredRepeat};
    auto texture = std::make_shared<Texture>(L"grain", settings);
    NarMetaVisu::Material::Settings material;
    material.diffuse.colour = NarMeta::Colour{200, 100, 50};
    material.transparency.coefficient = 0.5f;
    material.specular.colour = NarMeta::Colour{255, 255, 254};
    material.reflection.coefficient = 0.125f;
    material.shininess = 0.3f;
    material.diffuseColorTextures = {texture};
    material.normalTextures = {texture};
    return std::make_shared<NarMetaVisu::Material>(L"Holz", material);
}

std::shared_ptr<FaceRep> Triangle(VisuPolygonType type)
{
    auto face = std::make_shared<FaceRep>(std::vector<float>{0, 0, 0, 1, 0, 0, 0, 1, 0},
                                          std::vector<float>{0, 0, 1, 0, 0, 1, 0, 0, 1});
    face->AddPolygon(PolygonRep(type, {0, 3, 6}));
    return face;
}

std::shared_ptr<SGContainer> Visualisation(std::wstring const& pid)
{
    auto root = std::make_shared<Node>(NodeType::Root);
    auto group = std::make_shared<Node>(NodeType::Geometry, L"Gruppe");
    group->SetTransform({1, 2, 3, 0, 4, 5, 6, 0, 7, 8, 10, 0, 11, 12, 13, 1});
    group->SetAttributes(Look(10, 77));
    root->AddChild(group);

    auto mesh = std::make_shared<MeshRep>(4'000'000'000'000ULL, L"Netz");
    auto plain = Triangle(VisuPolygonType::TriangleStrip), painted = Triangle(VisuPolygonType::TriangleFan);
    painted->SetAttributes(Look(11, {}));
    auto materialLook = std::make_shared<Attributes>();
    materialLook->AddMaterial(Painted());
    plain->SetAttributes(materialLook);
    auto loops = std::make_shared<FaceRep>();
    auto const outer = std::make_shared<EdgeRep>(std::vector<float>{0, 0, 0, 4, 0, 0, 4, 4, 0});
    auto const hole = std::make_shared<EdgeRep>(std::vector<float>{1, 1, 0, 2, 1, 0, 2, 2, 0});
    loops->AddPolygon(
        PolygonRep({PolygonLoopRep({outer}, VisuPolygonLoopType::Outer), PolygonLoopRep({hole})}));
    for (auto const& face : {plain, painted, loops}) mesh->AddFace(face);
    auto edge =
        std::make_shared<EdgeRep>(std::vector<float>{0, 0, 0, 1, 1, 1}, VisuEdgeLineType::ClosedFilled);
    mesh->AddEdge(edge);
    auto leaf = std::make_shared<Node>(NodeType::Geometry);
    leaf->SetMesh(mesh);
    leaf->SetFaceAttributes(painted, Look(12, 5));
    leaf->SetEdgeAttributes(edge, Look(13, {}));
    group->AddChild(leaf);

    auto wire = std::make_shared<WireRep>(4'000'000'000'001ULL, L"Draht");
    wire->AddEdge(std::make_shared<EdgeRep>(std::vector<float>{0, 0, 0, 0.1f, 1e-7f, 3e20f}));
    auto wireLeaf = std::make_shared<Node>(NodeType::Geometry);
    wireLeaf->SetWire(wire);
    group->AddChild(wireLeaf);

    auto set = std::make_shared<PointSetRep>(4'000'000'000'002ULL, L"Punkte");
    auto points =
        std::make_shared<PointsRep>(std::vector<float>{1, 2, 3}, static_cast<VisuMarkerStyle>(2005));
    points->SetRGBColor(1, 2, 3);
    points->SetAlphaColor(4);
    set->AddPoints(points);
    auto setLeaf = std::make_shared<Node>(NodeType::Geometry);
    setLeaf->SetPointSet(set);
    group->AddChild(setLeaf);

    auto annotations = std::make_shared<Node>(NodeType::Annotations, L"PMI");
    auto pmi = std::make_shared<PmiRep>(4'000'000'000'003ULL, L"Maß");
    auto text = std::make_shared<TextRep>(L"⌀12 ±0,1 <&>");
    text->SetRGBColor(9, 8, 7);
    text->SetFont({L"Arial.ttf", 3.25f, {}, 1.5f, 0.75f});
    text->SetTransform({0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 5, 6, 7, 1});
    pmi->AddString(text);
    pmi->AddEdge(std::make_shared<EdgeRep>(std::vector<float>{0, 0, 0, 9, 9, 9}));
    auto arrow = std::make_shared<MeshRep>(1'000'001, L"Pfeil");
    arrow->AddFace(Triangle(VisuPolygonType::Triangles));
    pmi->SetMesh(arrow);
    auto pmiLeaf = std::make_shared<Node>(NodeType::Annotations);
    pmiLeaf->SetPMI(pmi);
    annotations->AddChild(pmiLeaf);
    root->AddChild(annotations);

    auto drawing = std::make_shared<Node>(NodeType::Drawing);
    auto sheet = std::make_shared<Node>(NodeType::ActiveDrawingSheet, L"Blatt");
    sheet->SetDWG(4'000'000'000'004ULL, L"Blatt 1");
    sheet->SetGroup();
    drawing->AddChild(sheet);
    root->AddChild(drawing);

    auto container = std::make_shared<SGContainer>();
    container->AddRootNode(pid, root);
    container->SetScaleFactor(pid, 25.4f);
    return container;
}

template <class Annotation> std::shared_ptr<Annotation> Linked(NarMeta::Id id, std::wstring const& name)
{
    auto annotation = std::make_shared<Annotation>(id, name);
    annotation->SetText(name + L" sagt");
    annotation->AddLinkedEntity({{L"full.arm.1", L"arm.screw.1"}, L"top face"});
    return annotation;
}

std::shared_ptr<PMIContainer> Annotations(std::wstring const& pid)
{
    auto view = std::make_shared<PMIAnnotationView>(5'000'001, L"Front");
    view->SetActive(true);
    view->SetCamera(PMICamera{{1, 2, 3}, {0, 1, 0}, {0, 0, 1}, 40, 30, true});
    auto& content = view->Content();
    content.notes = {Linked<PMINote>(5'000'002, L"Notiz")};
    content.datums = {Linked<PMIDatum>(5'000'003, L"A")};
    content.datumTargets = {Linked<PMIDatumTarget>(5'000'004, L"A1")};
    auto tolerance = Linked<PMIGDT>(5'000'005, L"Rundlauf");
    tolerance->SetToleranceInfo(PMIToleranceType::CircularRunout, 0.05);
    tolerance->SetHidden(true);
    content.tolerances = {tolerance};
    auto dimension = Linked<PMIDimension>(5'000'006, L"Durchmesser");
    dimension->SetType(PMIDimensionType::Size, PMIDimensionSubType::Diameter);
    dimension->SetValue(PMIDimensionValue{12.5, 0.1, -0.2});
    dimension->SetUserProperties({{L"Prüfmaß", L"ja"}, {L"Los", L"7 & 8"}});
    content.dimensions = {dimension};
    content.roughnesses = {Linked<PMIRoughness>(5'000'007, L"Ra 1,6")};
    auto capture = std::make_shared<PMICapture>(5'000'008, L"Aufnahme");
    capture->SetActive(true);
    capture->SetAnnotationIds({5'000'005, 5'000'006});
    capture->SetVisibleReferences({L"part", L"other part"});
    capture->SetClippingPlanes({{{1, 2, 3}, {0, 0.6, 0.8}}});
    auto set = std::make_shared<PMIAnnotationSet>(5'000'009, L"Satz");
    set->SetStandard(L"ISO");
    set->SetHidden(true);
    set->AddView(view);
    set->AddCapture(capture);
    auto container = std::make_shared<PMIContainer>();
    container->AddAnnotationSet(pid, set);
    return container;
}

} // namespace

void FillFullModel(ZELProductStructure& model)
{
    model.SetPID(L"full");
    model.SetProductName(L"Voll · Ελληνικά · Кириллица · عربي · 漢字 · 🚀");
    auto information = std::make_shared<ZELDocumentInformation>();
    information->Add(L"Autor", L"A \"B\" <C> & D");
    model.SetDocumentInformation(information);

    auto screw = model.AddReference(ZELReference::Kind::Part, L"screw", L"Schraube");
    auto body = Tetrahedron(NarMeta::HashId("screw.body"), 1.1f);
    body.name = L"Körper";
    body.colour = NarMeta::Colour{1, 2, 255};
    body.alpha = 128;
    body.hidden = true;
    body.faces[1].colour = NarMeta::Colour{3, 2, 1};
    body.faces[1].alpha = 7;
    body.edges[2].colour = NarMeta::Colour{9, 9, 9};
    body.points[0] = 0.1f + 1e-7f;
    screw->AddBody(body);
    screw->NameEntity(L"top face", body.faces[3].id);
    screw->SetPmi(Annotations(L"screw"));

    auto mesh = model.AddReference(ZELReference::Kind::Part, L"mesh", L"Netzteil");
    mesh->SetGraphical(true);
    mesh->SetStorageName(L"mesh.jt");
    mesh->SetSG(Visualisation(L"mesh"));

    auto lost = model.AddReference(ZELReference::Kind::Missing, L"lost", L"Verloren");
    lost->SetStorageName(L"lost.step");

    auto arm = model.AddReference(ZELReference::Kind::Assembly, L"arm", L"Arm");
    auto placed = arm->AddInstance(screw, L"arm.screw.1", L"Schraube.1");
    placed->SetTransform({0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 1.5f, -2.25f, 1e-3f, 1});
    placed->SetRGBColor(255, 0, 1);
    placed->SetAlphaColor(100);
    arm->AddInstance(mesh, L"arm.mesh.1", L"Netz.1")->SetHidden(true);
    arm->AddInstance(lost, L"arm.lost.1", L"Verloren.1")->SetSuppressed(true);

    model.AddRootInstance(arm, L"full.arm.1", L"Arm.1");
    model.AddRootInstance(arm, L"full.arm.2", L"Arm.2")
        ->SetTransform({-1, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0, 10, 0, 0, 1});
    model.AddRootInstance(screw, L"full.screw.1", L"Schraube.3");
    model.SetSG(Visualisation(L"full"));
    model.SetPMI(Annotations(L"full"));
}

TemporaryFolder::TemporaryFolder()
{
    auto name = (std::filesystem::temp_directory_path() / "narmeta_test_XXXXXX").string();
    path_ = mkdtemp(name.data());
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::wstring TemporaryFolder::Wide(std::wstring const& name) const
{
    auto const folder = path_.string();
    return std::wstring(folder.begin(), folder.end()) + L"/" + name;
}

std::wstring TemporaryFolder::Write(char const* name, std::string_view bytes) const
{
    auto const path = path_ / name;
    std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return path.wstring();
}
