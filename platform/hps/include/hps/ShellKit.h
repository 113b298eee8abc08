#pragma once
#include <hps/PolyhedronKit.h>

namespace HPS
{

// The shape of a shell. The facelist holds for each face the number of its points and then their indices; a
// negative number is a hole in the face before it, with as many points.
struct ShellData : PolyhedronData {
    std::vector<int> facelist;

    bool operator==(ShellData const&) const = default;
    static constexpr auto fields()
    {
        return std::tuple{&ShellData::points, &ShellData::facelist, &ShellData::vertexNormals,
                          &ShellData::colors, &ShellData::extras};
    }
};

class ShellKit : public PolyhedronKit<ShellKit, ShellData>
{
public:
    ShellKit& SetPoints(std::vector<Point> points);
    ShellKit& SetPoints(std::size_t count, Point const points[]);
    ShellKit& UnsetPoints();

    ShellKit& SetFacelist(std::vector<int> facelist);
    ShellKit& SetFacelist(std::size_t count, int const facelist[]);
    bool ShowFacelist(std::vector<int>& facelist) const;
    std::size_t GetFaceCount() const; // without holes
    ShellKit& UnsetFacelist();
};

} // namespace HPS
