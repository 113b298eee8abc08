#include <hps/ShellKit.h>

namespace HPS
{

ShellKit& ShellKit::SetPoints(std::vector<Point> points)
{
    data().points = std::move(points);
    return *this;
}

ShellKit& ShellKit::SetPoints(std::size_t count, Point const points[])
{
    data().points.assign(points, points + count);
    return *this;
}

ShellKit& ShellKit::UnsetPoints()
{
    data().points.clear();
    return *this;
}

ShellKit& ShellKit::SetFacelist(std::vector<int> facelist)
{
    data().facelist = std::move(facelist);
    return *this;
}

ShellKit& ShellKit::SetFacelist(std::size_t count, int const facelist[])
{
    data().facelist.assign(facelist, facelist + count);
    return *this;
}

bool ShellKit::ShowFacelist(std::vector<int>& facelist) const
{
    if (data().facelist.empty()) return false;
    facelist = data().facelist;
    return true;
}

ShellKit& ShellKit::UnsetFacelist()
{
    data().facelist.clear();
    return *this;
}

std::size_t ShellKit::GetFaceCount() const
{
    std::size_t faces = 0;
    for (std::size_t at = 0; at < data().facelist.size();) {
        auto const count = static_cast<long long>(data().facelist[at]);
        faces += count > 0;
        at += 1 + static_cast<std::size_t>(count < 0 ? -count : count);
    }
    return faces;
}

} // namespace HPS
