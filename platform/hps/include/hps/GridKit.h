#pragma once
#include <hps/GeometryKit.h>
#include <hps/Point.h>
#include <hps/enumerations.h>

namespace HPS
{

struct GridData {
    HPS::Grid::Type type = HPS::Grid::Type::Quadrilateral;
    Point origin;
    Point firstPoint{1, 0, 0};  // the first step from the origin ends here: a column, or the first ring
    Point secondPoint{0, 1, 0}; // and here: a row, or the direction that turns begin towards
    int firstCount = 10;        // columns, or rings
    int secondCount = 10;       // rows, or spokes

    bool operator==(GridData const&) const = default;
    static constexpr auto fields()
    {
        return std::tuple{&GridData::type,        &GridData::origin,     &GridData::firstPoint,
                          &GridData::secondPoint, &GridData::firstCount, &GridData::secondCount};
    }
};

template <class Self> class GridOperations : public GeometryOperations<Self>
{
public:
    using Data = GridData;

    HPS_FIELD(Type, HPS::Grid::Type, type)
    HPS_FIELD(Origin, Point, origin)
    HPS_FIELD(FirstPoint, Point, firstPoint)
    HPS_FIELD(SecondPoint, Point, secondPoint)
    HPS_FIELD(FirstCount, int, firstCount)
    HPS_FIELD(SecondCount, int, secondCount)
};

// Equal steps along two directions, or around the origin: lines of a parallelogram, or rings and spokes.
class GridKit : public GeometryKitOf<GridKit, GridData>, public GridOperations<GridKit>
{
public:
};

} // namespace HPS
