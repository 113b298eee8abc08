#include "gltf_nodes.h"
#include "open_cascade_document.h"

#include <algorithm>
#include <cmath>

#include <TDF_LabelSequence.hxx>
#include <gp_Trsf.hxx>

namespace NarMetaInfra
{
namespace
{
// Walks the kernel's labels and the file's nodes side by side.
class PlacementMatcher
{
public:
    explicit PlacementMatcher(KernelDocument& document) : Document(document), Shapes(document.shapes()) {}

    void match(std::vector<TDF_Label> const& labels, std::vector<GltfNode> const& nodes,
               std::size_t ownMeshes)
    {
        if (labels.size() != nodes.size() + ownMeshes) return;
        for (std::size_t i = 0; i < nodes.size(); ++i) matchNode(labels[i], nodes[i]);
    }

private:
    void matchNode(TDF_Label const& label, GltfNode const& node)
    {
        // The kernel keeps the place of a node even where it can't keep its shape: a different place is
        // another node.
        auto const place = XCAFDoc_ShapeTool::GetLocation(label).Transformation().TranslationPart();
        auto const& m = node.matrix;
        auto const difference = gp_XYZ(m[12], m[13], m[14]) - place;
        if (difference.Modulus() > 1e-3 * std::max(1.0, place.Modulus())) return;
        std::array<float, 16> matrix;
        std::ranges::transform(m, matrix.begin(), [](double value) { return static_cast<float>(value); });
        Document.placements.Bind(label, matrix);

        TDF_Label child;
        TDF_LabelSequence components;
        if (!Shapes->GetReferredShape(label, child)) child = label;
        if (node.children.empty() || !Shapes->GetComponents(child, components)) return;
        match({components.begin(), components.end()}, node.children, node.hasMesh ? 1 : 0);
    }

    KernelDocument& Document;
    Handle(XCAFDoc_ShapeTool) Shapes;
};
} // namespace

void restoreGltfPlacements(QJsonObject const& source, KernelDocument& document)
{
    auto const nodes = readGltfNodes(source);
    if (!nodes) return;
    PlacementMatcher(document).match(document.rootLabels(), *nodes, 0);
}
} // namespace NarMetaInfra
