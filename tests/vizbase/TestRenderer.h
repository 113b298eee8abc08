#pragma once

#include "ZELRenderer.h"

namespace ZelVizBase
{

/// The smallest concrete renderer: a segment per reference, filled from its visualisation data.
class TestRenderer : public ZELRenderer
{
public:
    using ZELRenderer::ZELRenderer;

    using ZELRenderer::buildProductSceneGraph;
    using ZELRenderer::classifyPolygonLoops;
    using ZELRenderer::enableConditionalHideBodyNode;
    using ZELRenderer::getBodyColorSegment;
    using ZELRenderer::getColorSegment;
    using ZELRenderer::getEdgeColorSegment;
    using ZELRenderer::getFaceColorSegment;
    using ZELRenderer::getFaceMaterialSegment;
    using ZELRenderer::getNoColorSegment;
    using ZELRenderer::getPIDSegment;
    using ZELRenderer::getVertexColorSegment;
    using ZELRenderer::insert;
    using ZELRenderer::insertPolygonLoops;
    using ZELRenderer::insertShellTriangleFan;
    using ZELRenderer::insertShellTriangles;
    using ZELRenderer::insertShellTriangleStrip;
    using ZELRenderer::mapMarkerStyleToGlyphName;
    using ZELRenderer::NodeCounter;
    using ZELRenderer::prepareFontName;
    using ZELRenderer::renderVisuData;
    using ZELRenderer::renderVisuDrawingNode;
    using ZELRenderer::renderVisuNode;
    using ZELRenderer::setNodeProperties;

    size_t PartCalls = 0;
    size_t AssemblyCalls = 0;

protected:
    bool initPartReference(HPS::SegmentKey& partReferences,
                           std::shared_ptr<NarMetaInfra::ZELReference>& reference,
                           HPS::SegmentKey& segment) override
    {
        ++PartCalls;
        std::wstring pid;
        reference->GetPID(pid);
        segment = partReferences.Subsegment(("part " + std::string(pid.begin(), pid.end())).c_str(), true);
        return !reference->GetSG() || renderVisuData(segment, reference, reference->GetSG());
    }
    bool initAssemblyReference(HPS::SegmentKey& assemblySegment, std::shared_ptr<NarMetaInfra::ZELReference>&,
                               HPS::SegmentKey& segment) override
    {
        ++AssemblyCalls;
        segment = assemblySegment.Subsegment("content", true);
        return true;
    }
};

} // namespace ZelVizBase
