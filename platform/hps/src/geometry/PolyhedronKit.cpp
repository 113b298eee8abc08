#include <hps/PolyhedronKit.h>
#include <stdexcept>

namespace HPS
{

bool operator==(PolyhedronData const& a, PolyhedronData const& b)
{
    auto const same = [](auto const& x, auto const& y) { return x == y || (x && y && *x == *y); };
    return a.points == b.points && a.vertexNormals == b.vertexNormals && same(a.colors, b.colors) &&
           same(a.extras, b.extras);
}

namespace detail
{

void editColors(PolyhedronData& data, ElementValues<RGBAColor> ShellColors::*colors,
                ElementValues<float> ShellColors::*indices, std::size_t start,
                std::vector<RGBAColor> const& values)
{
    editShared(data.colors, [&](ShellColors& all) {
        (all.*colors).SetRange(start, values.size(), values.data());
        (all.*indices).UnsetRange(start, values.size());
    });
}

void editIndices(PolyhedronData& data, ElementValues<RGBAColor> ShellColors::*colors,
                 ElementValues<float> ShellColors::*indices, std::size_t start,
                 std::vector<float> const& values)
{
    editShared(data.colors, [&](ShellColors& all) {
        (all.*indices).SetRange(start, values.size(), values.data());
        (all.*colors).UnsetRange(start, values.size());
    });
}

void unsetColors(PolyhedronData& data, bool vertices, bool faces)
{
    editShared(data.colors, [&](ShellColors& all) {
        if (vertices) {
            all.vertexFaces = all.vertexEdges = all.vertexMarkers = {};
            all.vertexFaceIndices = all.vertexEdgeIndices = all.vertexMarkerIndices = {};
        }
        if (faces) all.faces = {}, all.faceIndices = {};
    });
}

bool showColors(PolyhedronData const& data, ElementValues<RGBAColor> ShellColors::*colors,
                ElementValues<float> ShellColors::*indices, std::size_t count, std::vector<bool>& isSet,
                std::vector<Material::Type>& types, std::vector<RGBAColor>& values,
                std::vector<float>& numbers)
{
    if (!data.colors || ((*data.colors.*colors).Empty() && (*data.colors.*indices).Empty())) return false;
    auto const& byColor = *data.colors.*colors;
    auto const& byIndex = *data.colors.*indices;
    count = std::max({count, byColor.values.size(), byIndex.values.size()});
    isSet.assign(count, false);
    types.assign(count, Material::Type::None);
    values.assign(count, RGBAColor());
    numbers.assign(count, 0);
    for (std::size_t i = 0; i < count; ++i) {
        isSet[i] = byColor.IsSet(i) || byIndex.IsSet(i);
        if (byColor.IsSet(i)) types[i] = Material::Type::RGBAColor, values[i] = byColor.values[i];
        if (byIndex.IsSet(i)) types[i] = Material::Type::MaterialIndex, numbers[i] = byIndex.values[i];
    }
    return true;
}

void setParameters(PolyhedronExtras& extras, std::size_t start, std::vector<float> const& parameters,
                   std::size_t width)
{
    auto const count = width ? parameters.size() / width : 0;
    if (count && start > extras.vertexParameters.max_size() / width - count)
        throw std::length_error("More parameters than any geometry has");
    if (width != extras.parameterWidth) extras.vertexParameters.clear(), extras.hasParameters.clear();
    extras.parameterWidth = count ? width : 0;
    if (count == 0) return;
    auto const end = std::max(start + count, extras.vertexParameters.size() / width);
    extras.vertexParameters.resize(end * width);
    extras.hasParameters.resize(end, false);
    std::copy_n(parameters.begin(), count * width,
                extras.vertexParameters.begin() + static_cast<std::ptrdiff_t>(start * width));
    std::fill_n(extras.hasParameters.begin() + static_cast<std::ptrdiff_t>(start), count, true);
}

bool showParameters(PolyhedronExtras const& extras, std::size_t count, std::vector<bool>& isSet,
                    std::vector<float>& parameters, std::size_t& width)
{
    if (extras.parameterWidth == 0) return false;
    width = extras.parameterWidth;
    isSet = extras.hasParameters;
    isSet.resize(std::max(count, isSet.size()), false);
    parameters = extras.vertexParameters;
    parameters.resize(isSet.size() * width);
    return true;
}

bool showVisibilities(ElementValues<char> const& values, std::size_t count, std::vector<bool>& isSet,
                      std::vector<bool>& visible)
{
    std::vector<char> all;
    if (!values.Show(count, isSet, all)) return false;
    visible.assign(all.begin(), all.end());
    return true;
}

} // namespace detail
} // namespace HPS
