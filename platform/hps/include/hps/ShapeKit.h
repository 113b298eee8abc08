#pragma once
#include <hps/Kit.h>
#include <hps/Point.h>

namespace HPS
{

// One stroke or area of a shape. Its points count from (-1, -1) at the lower left corner of what the shape
// stands around to (1, 1) at the upper right one; z plays no part.
struct ShapeElement {
    enum class Kind : std::uint32_t { Lines, Polygon, Ellipse };
    Kind kind = Kind::Polygon;
    std::vector<Point> points; // of an ellipse: two opposite corners of the box around it
    bool filled = true;
    friend bool operator==(ShapeElement const&, ShapeElement const&) = default;
};
using ShapeElementArray = std::vector<ShapeElement>;

struct ShapeData {
    std::optional<ShapeElementArray> elements;
    bool operator==(ShapeData const&) const = default;
    static constexpr auto aspects() { return std::tuple{Aspect{1, "Elements", &ShapeData::elements}}; }
};
static_assert(CompleteKit<ShapeData>);

template <class Self> class ShapeOperations : public Operations<Self>
{
public:
    using Data = ShapeData;
    HPS_ASPECT(Elements, ShapeElementArray, elements)
};

// The background of a text.
class ShapeKit : public Kit<ShapeKit, ShapeOperations>
{
};

} // namespace HPS
