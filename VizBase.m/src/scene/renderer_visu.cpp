// Visualisation nodes as segments: groups by name, leaves by number, representations as unnamed tagged
// segments.

#include "ZELRenderer.h"

#include "host_api.h"
#include "line_attributes.h"
#include "model_color.h"
#include "text.h"

namespace ZelVizBase
{

using NarMetaVisu::Node;
using NarMetaVisu::NodeType;
using NarMetaVisu::SGContainer;

namespace
{

/// Nodes are walked by recursion; deeper ones can only come from a node that is its own descendant.
constexpr size_t greatestNodeDepth = 1000;

constexpr unsigned long long annotationsPid = ToValue(ZELVizCore::EntityType::Annotations);
constexpr unsigned long long visualisationPid = ToValue(ZELVizCore::EntityType::Visualisation);

void scale(HPS::SegmentKey& segment, float factor)
{
    if (factor != 1.0F) segment.GetModellingMatrixControl().Scale(factor, factor, factor);
}

/// `style` in force, and `hiddenStyle` as long as `condition` is set on the segment or above it.
void pushStyles(HPS::SegmentKey& segment, char const* style, char const* hiddenStyle, char const* condition)
{
    segment.GetStyleControl().PushNamed(style);
    segment.GetStyleControl().PushNamed(hiddenStyle, HPS::ConditionalExpression(condition));
}

} // namespace

/// One level of the node walk for as long as this lives.
class ZELRenderer::NodeLevel
{
public:
    explicit NodeLevel(ZELRenderer& renderer) : Renderer(renderer) { ++Renderer.NodeDepth; }
    ~NodeLevel() { --Renderer.NodeDepth; }
    NodeLevel(NodeLevel const&) = delete;
    NodeLevel& operator=(NodeLevel const&) = delete;

    /// False, noted for the report, if the node is to be left out.
    bool Allowed() const
    {
        if (Renderer.NodeDepth <= greatestNodeDepth) return true;
        ++Renderer.Left.DeepNodes;
        return false;
    }

private:
    ZELRenderer& Renderer;
};

bool ZELRenderer::renderVisuData(HPS::SegmentKey& segment,
                                 std::shared_ptr<NarMetaInfra::ZELReference> const& reference,
                                 std::shared_ptr<SGContainer> const& container)
{
    std::wstring pid;
    if (!container || !reference->GetPID(pid)) return false;
    std::vector<std::shared_ptr<Node>> roots;
    if (!container->GetRootNodes(pid, roots) || roots.empty()) return true;
    float const factor = container->GetScaleFactor(pid);

    HPS::SegmentKey visu = segment.Subsegment("visu", true);
    pushStyles(visu, "default_style", "hidden_visu", "hide_visu");
    scale(visu, factor);
    Tagger.Tag(visu, visualisationPid, ZELSegmentTagger::TAG_VISU_ROOT);

    HPS::SegmentKey pmi = segment.Subsegment("pmi", true);
    scale(pmi, factor);
    pushStyles(pmi, "pmi_style", "hidden_pmi", "hide_pmi");
    Tagger.Tag(pmi, annotationsPid, ZELSegmentTagger::TAG_PMI_ROOT);

    HPS::SegmentKey drawing = segment.Subsegment("drw", true);
    pushStyles(drawing, "drawing_style", "hidden_drw", "hide_drw");
    scale(drawing, factor);
    Tagger.Tag(drawing, visualisationPid, ZELSegmentTagger::TAG_DRAWING_ROOT);

    bool result = false;
    for (std::shared_ptr<Node> const& child : roots.front()->GetChildNodes()) {
        if (!child) return false;
        result = false;
        switch (child->GetType()) {
        case NodeType::Geometry:
        case NodeType::GeometrySet:
            result = renderVisuNode(visu, child);
            break;
        case NodeType::Annotations:
            result = renderVisuNode(pmi, child);
            break;
        case NodeType::Drawing:
            result = renderVisuDrawingNode(drawing, child);
            break;
        case NodeType::Root:
        case NodeType::DrawingSheet:
        case NodeType::ActiveDrawingSheet:
            break;
        }
        if (!result) return false;
    }
    return result;
}

bool ZELRenderer::renderVisuData(NarMetaInfra::ZELProductStructure const* structure, HPS::SegmentKey& segment,
                                 std::shared_ptr<SGContainer> const& container)
{
    if (!container) return true;
    std::wstring pid;
    if (!structure->GetPID(pid)) return false;
    std::vector<std::shared_ptr<Node>> roots;
    if (!container->GetRootNodes(pid, roots) || roots.empty()) return true;
    Tagger.Tag(segment, annotationsPid, ZELSegmentTagger::TAG_PMI_ROOT);

    bool result = false;
    for (std::shared_ptr<Node> const& child : roots.front()->GetChildNodes()) {
        bool const taken =
            child && (child->GetType() == NodeType::Geometry || child->GetType() == NodeType::Annotations);
        result = taken && renderVisuNode(segment, child);
        if (!result) return false;
    }
    return result;
}

std::string ZELRenderer::nextNodeName(Node const& node)
{
    return Node::NodeTypeAsString(node.GetType()) + "_" + std::to_string(NodeCounter++);
}

bool ZELRenderer::renderVisuNode(HPS::SegmentKey& parent, std::shared_ptr<Node> const& node)
{
    if (!node) return false;
    NodeLevel const level(*this);
    if (!level.Allowed()) return true;
    std::string const name = node->IsLeaf() ? nextNodeName(*node) : narrow(node->GetGroupName());
    HPS::SegmentKey segment = parent.Subsegment(name.c_str(), true);
    setNodeProperties(segment, node);
    if (node->IsLeaf()) return renderLeafVisuNode(segment, node);

    bool result = false;
    for (std::shared_ptr<Node> const& child : node->GetChildNodes()) {
        result = renderVisuNode(segment, child);
        if (!result) return false;
    }
    return result;
}

bool ZELRenderer::renderVisuDrawingNode(HPS::SegmentKey& parent, std::shared_ptr<Node> const& node)
{
    if (!node) return false;
    NodeLevel const level(*this);
    if (!level.Allowed()) return true;
    HPS::SegmentKey segment = parent.Subsegment(nextNodeName(*node).c_str(), true);
    if (!node->IsLeaf() && node->GetType() == NodeType::DrawingSheet) Hide(segment); // not the active one
    setNodeProperties(segment, node);
    if (node->IsLeaf()) return renderLeafVisuNode(segment, node);

    bool result = false;
    for (std::shared_ptr<Node> const& child : node->GetChildNodes()) {
        result = renderVisuDrawingNode(segment, child);
        if (!result) return false;
    }
    return result;
}

bool ZELRenderer::renderLeafVisuNode(HPS::SegmentKey& segment, std::shared_ptr<Node> const& node)
{
    auto const holdsData = [](auto const& representation) {
        return representation && representation->HasData();
    };
    if (holdsData(node->GetMesh())) return renderMesh(segment, node);
    if (holdsData(node->GetWire())) return renderWire(segment, node);
    if (holdsData(node->GetPMI())) return renderPMI(segment, node);
    if (holdsData(node->GetPointSet())) return renderPointSet(segment, node);
    return true;
}

void ZELRenderer::setNodeProperties(HPS::SegmentKey& segment, std::shared_ptr<Node> const& node)
{
    float matrix[16] = {};
    float const* first = matrix;
    float const* second = matrix + 9;
    if (node->GetTransform(first, second)) segment.GetModellingMatrixControl().SetElements(16, matrix);

    std::shared_ptr<NarMetaVisu::Attributes> const attributes = node->GetAttributes();
    if (!attributes) return;
    ModelColor color;
    color.ReadAlpha(*attributes);
    color.ReadRgb(*attributes);
    if (color.HasRgb) segment.GetMaterialMappingControl().SetGeometryColor(color.Rgba());
    setLineAttributes(segment, *attributes);
}

template <class Representation>
bool ZELRenderer::renderRepresentation(HPS::SegmentKey& segment, std::shared_ptr<Node> const& node,
                                       std::shared_ptr<Representation> const& representation,
                                       ZELSegmentTagger::TAG_TYPE tag)
{
    unsigned long long const pid = representation->GetHashedID();
    HPS::SegmentKey target = segment.Subsegment("", true);
    if (tag != ZELSegmentTagger::TAG_NONE) Tagger.Tag(target, pid, tag);
    insert(target, node, representation);
    ObjectMapper->Add(pid, target);
    return true;
}

bool ZELRenderer::renderMesh(HPS::SegmentKey& segment, std::shared_ptr<Node> const& node)
{
    return renderRepresentation(segment, node, node->GetMesh(), ZELSegmentTagger::TAG_VISU_GEOMETRY);
}

bool ZELRenderer::renderWire(HPS::SegmentKey& segment, std::shared_ptr<Node> const& node)
{
    return renderRepresentation(segment, node, node->GetWire(), ZELSegmentTagger::TAG_VISU_GEOMETRY);
}

bool ZELRenderer::renderPMI(HPS::SegmentKey& segment, std::shared_ptr<Node> const& node)
{
    return renderRepresentation(segment, node, node->GetPMI(), ZELSegmentTagger::TAG_PMI);
}

bool ZELRenderer::renderPointSet(HPS::SegmentKey& segment, std::shared_ptr<Node> const& node)
{
    return renderRepresentation(segment, node, node->GetPointSet(), ZELSegmentTagger::TAG_NONE);
}

} // namespace ZelVizBase
