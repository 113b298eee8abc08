#pragma once
#include <hps/Kit.h>

namespace HPS
{

// Whether colours and palette indices given vertex by vertex blend into each other in between.
struct ColorInterpolationData {
    std::optional<bool> faceColor;
    std::optional<bool> edgeColor;
    std::optional<bool> vertexColor;
    std::optional<bool> faceIndex;
    std::optional<bool> edgeIndex;
    std::optional<bool> vertexIndex;

    bool operator==(ColorInterpolationData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{Aspect{1, "FaceColor", &ColorInterpolationData::faceColor},
                          Aspect{2, "EdgeColor", &ColorInterpolationData::edgeColor},
                          Aspect{3, "VertexColor", &ColorInterpolationData::vertexColor},
                          Aspect{4, "FaceIndex", &ColorInterpolationData::faceIndex},
                          Aspect{5, "EdgeIndex", &ColorInterpolationData::edgeIndex},
                          Aspect{6, "VertexIndex", &ColorInterpolationData::vertexIndex}};
    }
};
static_assert(CompleteKit<ColorInterpolationData>);

template <class Self> class ColorInterpolationOperations : public Operations<Self>
{
public:
    using Data = ColorInterpolationData;

    HPS_ASPECT(FaceColor, bool, faceColor)
    HPS_ASPECT(EdgeColor, bool, edgeColor)
    HPS_ASPECT(VertexColor, bool, vertexColor)
    HPS_ASPECT(FaceIndex, bool, faceIndex)
    HPS_ASPECT(EdgeIndex, bool, edgeIndex)
    HPS_ASPECT(VertexIndex, bool, vertexIndex)
};

class ColorInterpolationKit : public Kit<ColorInterpolationKit, ColorInterpolationOperations>
{
public:
    static ColorInterpolationKit GetDefault();
};

class ColorInterpolationControl : public Control<ColorInterpolationControl, ColorInterpolationOperations>
{
public:
    using Control::Control;
};

} // namespace HPS
