#pragma once
#include <hps/PolyhedronKit.h>

namespace HPS
{

// The shape of a mesh: points row by row, with a face of four points between neighbouring ones.
struct MeshData : PolyhedronData {
    std::size_t rows = 0;
    std::size_t columns = 0;

    bool operator==(MeshData const&) const = default;
    static constexpr auto fields()
    {
        return std::tuple{&MeshData::rows,          &MeshData::columns, &MeshData::points,
                          &MeshData::vertexNormals, &MeshData::colors,  &MeshData::extras};
    }
};

class MeshKit : public PolyhedronKit<MeshKit, MeshData>
{
public:
    using PolyhedronKit::ShowPoints;
    MeshKit& SetPoints(std::size_t rows, std::size_t columns, std::vector<Point> points)
    {
        data().rows = rows;
        data().columns = columns;
        data().points = std::move(points);
        return *this;
    }
    MeshKit& UnsetPoints() { return SetPoints(0, 0, {}); }
    bool ShowPoints(std::size_t& rows, std::size_t& columns, std::vector<Point>& points) const
    {
        if (!ShowPoints(points)) return false;
        rows = GetRows();
        columns = GetColumns();
        return true;
    }
    std::size_t GetRows() const { return data().rows; }
    std::size_t GetColumns() const { return data().columns; }
    std::size_t GetFaceCount() const
    {
        return GetRows() > 1 && GetColumns() > 1 ? (GetRows() - 1) * (GetColumns() - 1) : 0;
    }
};

} // namespace HPS
