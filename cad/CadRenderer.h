#pragma once

#include "ZELRenderer.h"

#include <span>

namespace ZelCad
{

/// Fills the segments of references: visualisation data by the operations of the base, bodies as
///
///   {PID of the reference}
///     brep                      tag BrepRoot with 80000; "default_style"
///       {id of a body}          tag Body; hidden where the condition "hide_#" with this id holds
///         b... or nocolor       the body's colour
///           f... or nocolor     shells of the faces of one colour, tag TAG_FACE
///         edges
///           e... or nocolor     lines, tag TAG_EDGE
///         vertices
///           nocolor             markers, tag TAG_VERTEX
///
/// so that every face, edge and vertex stands two segments below its body. Bodies and what is in them are
/// entered in the reference's own object map, which is made here.
class CadRenderer : public ZelVizBase::ZELRenderer
{
public:
    using ZELRenderer::ZELRenderer;

    /// Tags of our own, besides those of the base.
    static constexpr auto BrepRoot = static_cast<ZelVizBase::ZELSegmentTagger::TAG_TYPE>(32);
    static constexpr auto Body = static_cast<ZelVizBase::ZELSegmentTagger::TAG_TYPE>(33);

    /// Shows or hides the pictures of annotations.
    void ShowAnnotations(std::span<NarMeta::Id const> ids, bool shown);
    /// Shows or hides all places of a reference.
    void ShowReference(NarMetaInfra::ZELReference const& reference, bool shown);

protected:
    using ZELRenderer::buildProductSceneGraph;
    using ZELRenderer::insert;

    bool initPartReference(HPS::SegmentKey& partReferences,
                           std::shared_ptr<NarMetaInfra::ZELReference>& reference,
                           HPS::SegmentKey& segment) override;
    bool initAssemblyReference(HPS::SegmentKey& assemblySegment,
                               std::shared_ptr<NarMetaInfra::ZELReference>& reference,
                               HPS::SegmentKey& segment) override;
    bool buildProductSceneGraph(NarMetaInfra::ZELProductStructure const* structure) override;
    /// A face with a material and texture coordinates becomes one shell that carries both.
    void insert(HPS::SegmentKey& segment, std::shared_ptr<NarMetaVisu::Node> const& node,
                std::shared_ptr<NarMetaVisu::FaceRep> const& face, bool hasMaterial) override;

private:
    void insertVisuData(HPS::SegmentKey& segment,
                        std::shared_ptr<NarMetaInfra::ZELReference> const& reference);
    void insertBodies(HPS::SegmentKey& segment, NarMetaInfra::ZELReference const& reference,
                      ZelVizBase::ZELObjectMapper& mapper);
    void insertFaces(HPS::SegmentKey& bodySegment, NarMetaInfra::BrepBody const& body,
                     ZelVizBase::ZELObjectMapper& mapper);
    void insertEdges(HPS::SegmentKey& bodySegment, NarMetaInfra::BrepBody const& body,
                     ZelVizBase::ZELObjectMapper& mapper);
    void insertVertices(HPS::SegmentKey& bodySegment, NarMetaInfra::BrepBody const& body,
                        ZelVizBase::ZELObjectMapper& mapper);
};

} // namespace ZelCad
