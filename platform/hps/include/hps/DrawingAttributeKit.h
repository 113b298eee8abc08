#pragma once
#include <hps/Kit.h>
#include <hps/Point.h>
#include <hps/VisibilityKit.h>
#include <hps/enumerations.h>

namespace HPS
{

// Order, depth and clipping of what is drawn. Displacement buckets move geometry away from the eye (positive)
// or towards it.
struct DrawingAttributeData {
    std::optional<Drawing::Handedness> polygonHandedness;
    std::optional<Drawing::Handedness> worldHandedness;
    std::optional<std::tuple<float, float>> depthRange;
    std::optional<std::tuple<bool, int>> faceDisplacement;
    std::optional<std::tuple<bool, int>> generalDisplacement;
    std::optional<std::tuple<bool, int>> vertexDisplacement;
    std::optional<float> vertexDecimation;
    std::optional<bool> vertexRandomization;
    std::optional<VisibilityKit> overrideInternalColor;
    std::optional<Drawing::Overlay> overlay;
    std::optional<int> deferral;
    std::optional<std::tuple<std::vector<std::vector<Point>>, Drawing::ClipSpace, Drawing::ClipOperation>>
        clipRegion;

    bool operator==(DrawingAttributeData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{Aspect{1, "PolygonHandedness", &DrawingAttributeData::polygonHandedness},
                          Aspect{2, "WorldHandedness", &DrawingAttributeData::worldHandedness},
                          Aspect{3, "DepthRange", &DrawingAttributeData::depthRange},
                          Aspect{4, "FaceDisplacement", &DrawingAttributeData::faceDisplacement},
                          Aspect{5, "GeneralDisplacement", &DrawingAttributeData::generalDisplacement},
                          Aspect{6, "VertexDisplacement", &DrawingAttributeData::vertexDisplacement},
                          Aspect{7, "VertexDecimation", &DrawingAttributeData::vertexDecimation},
                          Aspect{8, "VertexRandomization", &DrawingAttributeData::vertexRandomization},
                          Aspect{9, "OverrideInternalColor", &DrawingAttributeData::overrideInternalColor},
                          Aspect{10, "Overlay", &DrawingAttributeData::overlay},
                          Aspect{11, "Deferral", &DrawingAttributeData::deferral},
                          Aspect{12, "ClipRegion", &DrawingAttributeData::clipRegion}};
    }
};
static_assert(CompleteKit<DrawingAttributeData>);

template <class Self> class DrawingAttributeOperations : public Operations<Self>
{
public:
    using Data = DrawingAttributeData;

    // The side from which the points of a face run counter-clockwise (Right) or clockwise (Left); None: no
    // side.
    HPS_ASPECT(PolygonHandedness, Drawing::Handedness, polygonHandedness)
    HPS_ASPECT(WorldHandedness, Drawing::Handedness, worldHandedness)
    // Part of the depth buffer used, 0 to 1.
    HPS_ASPECT_PARTS(DepthRange, depthRange, (float nearLimit, float farLimit),
                     (float& nearLimit, float& farLimit), nearLimit, farLimit)
    HPS_ASPECT_PARTS(FaceDisplacement, faceDisplacement, (bool state, int buckets = 0),
                     (bool& state, int& buckets), state, buckets)
    Self& SetFaceDisplacement(int buckets) { return SetFaceDisplacement(true, buckets); }
    HPS_ASPECT_PARTS(GeneralDisplacement, generalDisplacement, (bool state, int buckets = 0),
                     (bool& state, int& buckets), state, buckets)
    Self& SetGeneralDisplacement(int buckets) { return SetGeneralDisplacement(true, buckets); }
    HPS_ASPECT_PARTS(VertexDisplacement, vertexDisplacement, (bool state, int buckets = 0),
                     (bool& state, int& buckets), state, buckets)
    Self& SetVertexDisplacement(int buckets) { return SetVertexDisplacement(true, buckets); }
    // Share of the vertices drawn, 0 to 1.
    HPS_ASPECT(VertexDecimation, float, vertexDecimation)
    HPS_ASPECT(VertexRandomization, bool, vertexRandomization)
    // The kinds whose colours stored inside a geometry give way to the segment's.
    HPS_ASPECT(OverrideInternalColor, VisibilityKit, overrideInternalColor)
    HPS_ASPECT(Overlay, Drawing::Overlay, overlay)
    // Batches are drawn from the lowest to the highest.
    HPS_ASPECT(Deferral, int, deferral)
    Self& SetClipRegion(std::vector<std::vector<Point>> const& loops,
                        Drawing::ClipSpace space = Drawing::ClipSpace::World,
                        Drawing::ClipOperation operation = Drawing::ClipOperation::Keep)
    {
        return detail::set<&Data::clipRegion>(this->self(), std::tuple{loops, space, operation});
    }
    Self& UnsetClipRegion() { return detail::unset<&Data::clipRegion>(this->self()); }
    bool ShowClipRegion(std::vector<std::vector<Point>>& loops, Drawing::ClipSpace& space,
                        Drawing::ClipOperation& operation) const
    {
        return detail::show<&Data::clipRegion>(this->self(), loops, space, operation);
    }
};

class DrawingAttributeKit : public Kit<DrawingAttributeKit, DrawingAttributeOperations>
{
public:
    static DrawingAttributeKit GetDefault();
};

class DrawingAttributeControl : public Control<DrawingAttributeControl, DrawingAttributeOperations>
{
public:
    using Control::Control;
};

} // namespace HPS
