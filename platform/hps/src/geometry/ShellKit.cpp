#include <algorithm>
#include <hps/ShellKit.h>

namespace HPS
{
namespace
{

using ColorValues = ElementValues<RGBAColor>;

ColorValues ShellColors::*slotOf(ShellKit::Component component)
{
    switch (component) {
    case ShellKit::Component::Faces:
        return &ShellColors::vertexFaces;
    case ShellKit::Component::Edges:
        return &ShellColors::vertexEdges;
    case ShellKit::Component::Vertices:
        return &ShellColors::vertexMarkers;
    }
    return nullptr;
}

template <class F> void editColors(ShellData& data, F&& change)
{
    auto colors = data.colors ? *data.colors : ShellColors();
    change(colors);
    data.colors = colors == ShellColors() ? nullptr : std::make_shared<ShellColors const>(std::move(colors));
}

std::vector<RGBAColor> widen(std::vector<RGBColor> const& colors)
{
    return {colors.begin(), colors.end()};
}

template <class T>
bool show(ElementValues<T> const& from, std::size_t count, std::vector<bool>& isSet, std::vector<T>& values)
{
    if (from.Empty()) return false;
    count = std::max(count, from.values.size());
    values = from.values;
    values.resize(count);
    isSet.resize(count);
    for (std::size_t i = 0; i < count; ++i) isSet[i] = from.IsSet(i);
    return true;
}

} // namespace

template <class T> void ElementValues<T>::SetRange(std::size_t start, std::size_t count, T const from[])
{
    if (count == 0) return;
    auto const old = values.size();
    bool const gap = start > old;
    if (start + count > old) values.resize(start + count);
    if (gap || !isSet.empty()) {
        if (isSet.empty()) isSet.assign(old, true);
        isSet.resize(values.size(), false);
        std::fill_n(isSet.begin() + static_cast<std::ptrdiff_t>(start), count, true);
    }
    std::copy_n(from, count, values.begin() + static_cast<std::ptrdiff_t>(start));
}
template struct ElementValues<Vector>;
template struct ElementValues<RGBAColor>;

bool operator==(ShellData const& a, ShellData const& b)
{
    bool const colors = a.colors == b.colors || (a.colors && b.colors && *a.colors == *b.colors);
    return colors && a.points == b.points && a.facelist == b.facelist && a.vertexNormals == b.vertexNormals;
}

ShellKit& ShellKit::SetPoints(std::vector<Point> points)
{
    data_.points = std::move(points);
    return *this;
}

ShellKit& ShellKit::SetPoints(std::size_t count, Point const points[])
{
    data_.points.assign(points, points + count);
    return *this;
}

bool ShellKit::ShowPoints(std::vector<Point>& points) const
{
    if (data_.points.empty()) return false;
    points = data_.points;
    return true;
}

ShellKit& ShellKit::UnsetPoints()
{
    data_.points.clear();
    return *this;
}

ShellKit& ShellKit::SetFacelist(std::vector<int> facelist)
{
    data_.facelist = std::move(facelist);
    return *this;
}

ShellKit& ShellKit::SetFacelist(std::size_t count, int const facelist[])
{
    data_.facelist.assign(facelist, facelist + count);
    return *this;
}

bool ShellKit::ShowFacelist(std::vector<int>& facelist) const
{
    if (data_.facelist.empty()) return false;
    facelist = data_.facelist;
    return true;
}

ShellKit& ShellKit::UnsetFacelist()
{
    data_.facelist.clear();
    return *this;
}

std::size_t ShellKit::GetFaceCount() const
{
    std::size_t faces = 0;
    for (std::size_t at = 0; at < data_.facelist.size();) {
        auto const count = static_cast<long long>(data_.facelist[at]);
        faces += count > 0;
        at += 1 + static_cast<std::size_t>(count < 0 ? -count : count);
    }
    return faces;
}

ShellKit& ShellKit::SetVertexNormalsByRange(std::size_t start, std::vector<Vector> const& normals)
{
    return SetVertexNormalsByRange(start, normals.size(), normals.data());
}

ShellKit& ShellKit::SetVertexNormalsByRange(std::size_t start, std::size_t count, Vector const normals[])
{
    data_.vertexNormals.SetRange(start, count, normals);
    return *this;
}

ShellKit& ShellKit::UnsetVertexNormals()
{
    data_.vertexNormals = {};
    return *this;
}

bool ShellKit::ShowVertexNormals(std::vector<bool>& isSet, std::vector<Vector>& normals) const
{
    return show(data_.vertexNormals, data_.points.size(), isSet, normals);
}

ShellKit& ShellKit::SetVertexRGBAColorsByRange(std::size_t start, std::vector<RGBAColor> const& colors,
                                               Component component)
{
    editColors(data_, [&](ShellColors& all) {
        (all.*slotOf(component)).SetRange(start, colors.size(), colors.data());
    });
    return *this;
}

ShellKit& ShellKit::SetVertexRGBColorsByRange(std::size_t start, std::vector<RGBColor> const& colors,
                                              Component component)
{
    return SetVertexRGBAColorsByRange(start, widen(colors), component);
}

ShellKit& ShellKit::UnsetVertexColors()
{
    editColors(data_, [](ShellColors& all) { all = {{}, {}, {}, std::move(all.faces)}; });
    return *this;
}

bool ShellKit::ShowVertexColors(Component component, std::vector<bool>& isSet,
                                std::vector<RGBAColor>& colors) const
{
    return data_.colors && show((*data_.colors).*slotOf(component), data_.points.size(), isSet, colors);
}

ShellKit& ShellKit::SetFaceRGBAColorsByRange(std::size_t start, std::vector<RGBAColor> const& colors)
{
    editColors(data_, [&](ShellColors& all) { all.faces.SetRange(start, colors.size(), colors.data()); });
    return *this;
}

ShellKit& ShellKit::SetFaceRGBColorsByRange(std::size_t start, std::vector<RGBColor> const& colors)
{
    return SetFaceRGBAColorsByRange(start, widen(colors));
}

ShellKit& ShellKit::UnsetFaceColors()
{
    editColors(data_, [](ShellColors& all) { all.faces = {}; });
    return *this;
}

bool ShellKit::ShowFaceColors(std::vector<bool>& isSet, std::vector<RGBAColor>& colors) const
{
    return data_.colors && show(data_.colors->faces, GetFaceCount(), isSet, colors);
}

} // namespace HPS
