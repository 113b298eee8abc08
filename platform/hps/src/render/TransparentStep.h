#pragma once
#include "PeeledLayers.h"
#include "SortedTriangles.h"
#include "VisibleRecords.h"
#include "WeightedBlend.h"

namespace HPS::render
{

/// Draws what can be seen through over what is opaque, in the way that the scene asks for. What a way needs
/// goes when another one is taken.
class TransparentStep
{
public:
    void draw(FrameContext const& context, VisibleRecords const& visible);

private:
    void drawAll(FrameContext const& context, VisibleRecords const& visible);
    void drawObjects(FrameContext const& context, VisibleRecords const& visible);
    void drawTriangles(FrameContext const& context, VisibleRecords const& visible, bool split);
    void peel(FrameContext const& context, VisibleRecords const& visible);
    void weigh(FrameContext const& context, VisibleRecords const& visible);
    void push(FrameContext const& context, VisibleRecords::Entry const& entry);
    void pushAll(FrameContext const& context, VisibleRecords const& visible);

    std::vector<Instance> sorted_; ///< from back to front
    Buffer buffer_;                ///< these, on the device
    CallList calls_;
    std::optional<SortedTriangles> triangles_;
    std::optional<PeeledLayers> layers_;
    std::optional<WeightedBlend> weighted_;
};

} // namespace HPS::render
