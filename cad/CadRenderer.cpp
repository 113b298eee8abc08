#include "CadRenderer.h"

#include "SceneDefaults.h"
#include "host_api.h"
#include "text.h"

namespace ZelCad
{
namespace
{

using NarMetaInfra::BrepBody;
using NarMetaInfra::BrepEdge;
using NarMetaInfra::BrepFace;
using NarMetaInfra::BrepVertex;
using NarMetaInfra::Colour;
using NarMetaInfra::ZELReference;
using ZelVizBase::ZELObjectMapper;
using ZelVizBase::ZELSegmentTagger;

constexpr unsigned short Opaque = 255;

/// Flat x, y, z as points or vectors.
template <class Triple> std::vector<Triple> triplesOf(std::span<float const> numbers)
{
    std::vector<Triple> triples;
    triples.reserve(numbers.size() / 3);
    for (std::size_t i = 0; i + 2 < numbers.size(); i += 3)
        triples.emplace_back(numbers[i], numbers[i + 1], numbers[i + 2]);
    return triples;
}

HPS::ShellKit shellOf(BrepBody const& body, BrepFace const& face)
{
    std::span<std::uint32_t const> const corners = body.TrianglesOf(face);
    std::vector<int> facelist;
    facelist.reserve(corners.size() / 3 * 4);
    for (std::size_t i = 0; i + 2 < corners.size(); i += 3) {
        facelist.push_back(3);
        for (std::size_t corner = i; corner < i + 3; ++corner)
            facelist.push_back(static_cast<int>(corners[corner]));
    }
    HPS::ShellKit kit;
    kit.SetPoints(triplesOf<HPS::Point>(body.PointsOf(face)));
    kit.SetFacelist(std::move(facelist));
    kit.data().vertexNormals.values = triplesOf<HPS::Vector>(body.NormalsOf(face));
    return kit;
}

/// A face of triangles with texture coordinates; nothing for any other, and for one whose arrays do not fit
/// each other.
std::optional<HPS::ShellKit> texturedShell(NarMetaVisu::FaceRep const& face)
{
    std::size_t const count = face.GetPoints().size() / 3;
    if (count == 0 || face.GetNormals().size() != 3 * count ||
        face.GetTextureCoordinates().size() != 2 * count)
        return std::nullopt;
    std::vector<int> facelist;
    for (NarMetaVisu::PolygonRep const& polygon : face.GetPolygons()) {
        if (polygon.GetPolygonType() != NarMetaVisu::VisuPolygonType::Triangles) return std::nullopt;
        std::vector<int> const& offsets = polygon.GetIndices();
        for (std::size_t i = 0; i + 2 < offsets.size(); i += 3) {
            facelist.push_back(3);
            for (std::size_t corner = i; corner < i + 3; ++corner) {
                if (offsets[corner] < 0 || static_cast<std::size_t>(offsets[corner]) / 3 >= count)
                    return std::nullopt;
                facelist.push_back(offsets[corner] / 3);
            }
        }
    }
    HPS::ShellKit kit;
    kit.SetPoints(triplesOf<HPS::Point>(face.GetPoints()));
    kit.SetFacelist(std::move(facelist));
    kit.data().vertexNormals.values = triplesOf<HPS::Vector>(face.GetNormals());
    kit.SetVertexParametersByRange(0, face.GetTextureCoordinates());
    return kit;
}

/// The given colour, or the default one where only an opacity is given.
Colour colourOrDefault(std::optional<Colour> const& colour)
{
    if (colour) return *colour;
    ZELVizCore::RGBAColor const body = ZELVizCore::Settings::Current().BodyColor;
    return {body.r, body.g, body.b};
}

/// Ties a geometry and the model's id together, both ways.
void enter(HPS::GeometryKey& key, NarMetaInfra::Id id, ZELSegmentTagger::TAG_TYPE type,
           ZELObjectMapper& mapper)
{
    ZELSegmentTagger::Tag(key, id, type);
    mapper.Add(id, key);
}

void warn(std::wstring const& text)
{
    MoraCore::SessionMgr::Instance().CurrentSession().PrintMessage(text, MoraCore::MessageType::Warning);
}

} // namespace

bool CadRenderer::initPartReference(HPS::SegmentKey& partReferences, std::shared_ptr<ZELReference>& reference,
                                    HPS::SegmentKey& segment)
{
    std::wstring pid;
    if (!reference->GetPID(pid)) return false;
    segment = partReferences.Subsegment(ZelVizBase::narrow(pid), true);

    auto const mapper = std::make_shared<ZELObjectMapper>();
    reference->SetObjectMapper(mapper);
    reference->SetKeyFinder([topology = mapper, scene = ObjectMapper](NarMetaInfra::Id id, HPS::Key& key) {
        return topology->Get(id, key) || scene->Get(id, key);
    });
    insertVisuData(segment, reference);
    if (!reference->IsGraphical()) insertBodies(segment, *reference, *mapper);
    return true;
}

bool CadRenderer::initAssemblyReference(HPS::SegmentKey& assemblySegment,
                                        std::shared_ptr<ZELReference>& reference, HPS::SegmentKey& segment)
{
    insertVisuData(assemblySegment, reference);
    segment = assemblySegment;
    return true;
}

bool CadRenderer::buildProductSceneGraph(NarMetaInfra::ZELProductStructure const* structure)
{
    if (!ZELRenderer::buildProductSceneGraph(structure)) return false;
    std::wstring pid;
    auto const& visualisation = structure->GetSG();
    if (!visualisation || !structure->GetPID(pid) || !visualisation->HasData(pid)) return true;
    HPS::SegmentKey segment = RootKey.Subsegment("", true);
    segment.GetStyleControl().PushNamed(ZelVizBase::SceneDefaults::PmiStyle);
    segment.GetStyleControl().PushNamed("hidden_pmi", HPS::ConditionalExpression("hide_pmi"));
    bool const rendered = renderVisuData(structure, segment, visualisation);
    if (structure->GetPMI()) ShowAnnotations(structure->GetPMI()->GetHiddenAnnotations(), false);
    return rendered;
}

void CadRenderer::ShowAnnotations(std::span<NarMeta::Id const> ids, bool shown)
{
    for (NarMeta::Id const id : ids) {
        HPS::Key key;
        if (!ObjectMapper->Get(id, key)) continue;
        HPS::SegmentKey picture(key);
        shown ? Show(picture) : Hide(picture);
    }
}

void CadRenderer::ShowReference(ZELReference const& reference, bool shown)
{
    std::wstring pid;
    HPS::Key key;
    if (!reference.GetPID(pid) || !ObjectMapper->Get(pid, key)) return;
    HPS::SegmentKey segment(key);
    shown ? Show(segment) : Hide(segment);
}

void CadRenderer::insertVisuData(HPS::SegmentKey& segment, std::shared_ptr<ZELReference> const& reference)
{
    std::wstring pid;
    auto const& visualisation = reference->GetSG();
    if (!visualisation || !reference->GetPID(pid) || !visualisation->HasData(pid)) return;
    // One reference with data of an unknown kind must not take the rest of the product away.
    if (!renderVisuData(segment, reference, visualisation))
        warn(L"Part of the visualisation data of \"" + reference->GetReferenceName() +
             L"\" cannot be shown.");
    if (reference->GetPmi()) ShowAnnotations(reference->GetPmi()->GetHiddenAnnotations(), false);
}

void CadRenderer::insert(HPS::SegmentKey& segment, std::shared_ptr<NarMetaVisu::Node> const& node,
                         std::shared_ptr<NarMetaVisu::FaceRep> const& face, bool hasMaterial)
{
    std::optional<HPS::ShellKit> const shell = hasMaterial ? texturedShell(*face) : std::nullopt;
    if (shell)
        segment.InsertShell(*shell);
    else
        ZELRenderer::insert(segment, node, face, hasMaterial);
}

void CadRenderer::insertBodies(HPS::SegmentKey& segment, ZELReference const& reference,
                               ZELObjectMapper& mapper)
{
    if (reference.GetBodies().empty()) return;
    HPS::SegmentKey brep = segment.Subsegment("brep", true);
    // The model's segment carries no style of its own when bodies are shown.
    brep.GetStyleControl().PushNamed(ZelVizBase::SceneDefaults::DefaultStyle);
    ZELSegmentTagger::Tag(brep, ToValue(ZELVizCore::EntityType::Brep), BrepRoot);
    for (BrepBody const& body : reference.GetBodies()) {
        HPS::SegmentKey bodySegment = getPIDSegment(brep, body.id);
        enableConditionalHideBodyNode(bodySegment, body.id);
        ZELSegmentTagger::Tag(bodySegment, body.id, Body);
        mapper.Add(body.id, bodySegment);
        if (body.hidden) Hide(bodySegment);
        // Its faces stand in segments of their own: only together do they bound a volume.
        bodySegment.GetCuttingSectionAttributeControl().SetCappingLevel(
            HPS::CuttingSection::CappingLevel::SegmentTree);
        insertFaces(bodySegment, body, mapper);
        insertEdges(bodySegment, body, mapper);
        insertVertices(bodySegment, body, mapper);
    }
}

void CadRenderer::insertFaces(HPS::SegmentKey& bodySegment, BrepBody const& body, ZELObjectMapper& mapper)
{
    HPS::SegmentKey container;
    if (body.colour || body.alpha) {
        Colour const colour = colourOrDefault(body.colour);
        container = getBodyColorSegment(bodySegment, colour.red, colour.green, colour.blue,
                                        body.alpha.value_or(Opaque));
    } else {
        container = getNoColorSegment(bodySegment);
    }
    HPS::SegmentKey const plain = getNoColorSegment(container);
    for (BrepFace const& face : body.faces) {
        if (face.triangleCount == 0) continue;
        HPS::SegmentKey target = plain;
        if (face.colour || face.alpha) {
            Colour const colour = colourOrDefault(face.colour ? face.colour : body.colour);
            unsigned short const alpha = face.alpha.value_or(body.alpha.value_or(Opaque));
            target = getFaceColorSegment(container, colour.red, colour.green, colour.blue, alpha);
        }
        HPS::ShellKey shell = target.InsertShell(shellOf(body, face));
        enter(shell, face.id, ZELSegmentTagger::TAG_FACE, mapper);
    }
}

void CadRenderer::insertEdges(HPS::SegmentKey& bodySegment, BrepBody const& body, ZELObjectMapper& mapper)
{
    if (body.edges.empty()) return;
    HPS::SegmentKey container = bodySegment.Subsegment("edges", true);
    HPS::SegmentKey const plain = getNoColorSegment(container);
    for (BrepEdge const& edge : body.edges) {
        if (edge.pointCount < 2) continue; // the tip of a cone: an edge without length
        HPS::SegmentKey target = plain;
        if (edge.colour)
            target = getEdgeColorSegment(container, edge.colour->red, edge.colour->green, edge.colour->blue,
                                         Opaque);
        HPS::LineKey line = target.InsertLine(triplesOf<HPS::Point>(body.PointsOf(edge)));
        enter(line, edge.id, ZELSegmentTagger::TAG_EDGE, mapper);
    }
}

void CadRenderer::insertVertices(HPS::SegmentKey& bodySegment, BrepBody const& body, ZELObjectMapper& mapper)
{
    if (body.vertices.empty()) return;
    HPS::SegmentKey container = bodySegment.Subsegment("vertices", true);
    // The styles know colours of faces, lines and edges only.
    ZELVizCore::RGBAColor const color = ZELVizCore::Settings::Current().VertexColor;
    container.GetMaterialMappingControl().SetMarkerColor(ZelVizBase::SceneDefaults::ToHps(color));
    HPS::SegmentKey plain = getNoColorSegment(container);
    for (BrepVertex const& vertex : body.vertices) {
        HPS::MarkerKey marker =
            plain.InsertMarker(HPS::Point(vertex.point[0], vertex.point[1], vertex.point[2]));
        enter(marker, vertex.id, ZELSegmentTagger::TAG_VERTEX, mapper);
    }
}

} // namespace ZelCad
