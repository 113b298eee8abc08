// What shells and meshes share: points, and values for vertices and faces.
#pragma once
#include <hps/Color.h>
#include <hps/ElementValues.h>
#include <hps/GeometryKit.h>
#include <hps/MaterialMappingKit.h>
#include <hps/Point.h>
#include <memory>

namespace HPS
{

// Colours inside a shell or a mesh. Where an element has an index in the palette it has no colour here.
struct ShellColors {
    ElementValues<RGBAColor> vertexFaces;   // per vertex, blended over the faces
    ElementValues<RGBAColor> vertexEdges;   // per vertex, blended along the edges
    ElementValues<RGBAColor> vertexMarkers; // of the vertices themselves
    ElementValues<RGBAColor> faces;         // per face; holes do not count
    ElementValues<float> vertexFaceIndices; // the same by index in the palette
    ElementValues<float> vertexEdgeIndices;
    ElementValues<float> vertexMarkerIndices;
    ElementValues<float> faceIndices;

    bool operator==(ShellColors const&) const = default;
    static constexpr auto fields()
    {
        return std::tuple{&ShellColors::vertexFaces,         &ShellColors::vertexEdges,
                          &ShellColors::vertexMarkers,       &ShellColors::faces,
                          &ShellColors::vertexFaceIndices,   &ShellColors::vertexEdgeIndices,
                          &ShellColors::vertexMarkerIndices, &ShellColors::faceIndices};
    }
};

// What few of them have.
struct PolyhedronExtras {
    ElementValues<Vector> faceNormals;
    std::vector<float> vertexParameters; // `parameterWidth` numbers for each of the first vertices
    std::size_t parameterWidth = 0;
    std::vector<bool> hasParameters; // per vertex, or empty where all of these have them
    ElementValues<char> vertexVisibilities;
    ElementValues<char> faceVisibilities;
    MaterialMappingData materialMapping; // where set, it goes before the segment's

    bool operator==(PolyhedronExtras const&) const = default;
    static constexpr auto fields()
    {
        return std::tuple{&PolyhedronExtras::faceNormals,        &PolyhedronExtras::vertexParameters,
                          &PolyhedronExtras::parameterWidth,     &PolyhedronExtras::hasParameters,
                          &PolyhedronExtras::vertexVisibilities, &PolyhedronExtras::faceVisibilities,
                          &PolyhedronExtras::materialMapping};
    }
};

struct PolyhedronData {
    std::vector<Point> points;
    ElementValues<Vector> vertexNormals;
    std::shared_ptr<ShellColors const> colors;      // null if there are none; never changed once it is here
    std::shared_ptr<PolyhedronExtras const> extras; // the same

    friend bool operator==(PolyhedronData const& a, PolyhedronData const& b);
};

namespace detail
{
void editColors(PolyhedronData& data, ElementValues<RGBAColor> ShellColors::*colors,
                ElementValues<float> ShellColors::*indices, std::size_t start,
                std::vector<RGBAColor> const& values);
void editIndices(PolyhedronData& data, ElementValues<RGBAColor> ShellColors::*colors,
                 ElementValues<float> ShellColors::*indices, std::size_t start,
                 std::vector<float> const& values);
void unsetColors(PolyhedronData& data, bool vertices, bool faces);
bool showColors(PolyhedronData const& data, ElementValues<RGBAColor> ShellColors::*colors,
                ElementValues<float> ShellColors::*indices, std::size_t count, std::vector<bool>& isSet,
                std::vector<Material::Type>& types, std::vector<RGBAColor>& values,
                std::vector<float>& numbers);
void setParameters(PolyhedronExtras& extras, std::size_t start, std::vector<float> const& parameters,
                   std::size_t width);
bool showParameters(PolyhedronExtras const& extras, std::size_t count, std::vector<bool>& isSet,
                    std::vector<float>& parameters, std::size_t& width);
bool showVisibilities(ElementValues<char> const& values, std::size_t count, std::vector<bool>& isSet,
                      std::vector<bool>& visible);
// Changes a copy of what is there and puts it in its place; null where nothing remains.
template <class T, class F> void editShared(std::shared_ptr<T const>& shared, F&& change)
{
    auto copy = shared ? *shared : T();
    change(copy);
    shared = copy == T() ? nullptr : std::make_shared<T const>(std::move(copy));
}
} // namespace detail

// Values are given for the vertices (faces) from `start` on. What lies behind the last vertex (face) is
// refused when the geometry is inserted.
template <class Self, class DataType> class PolyhedronKit : public GeometryKitOf<Self, DataType>
{
public:
    // What a vertex colour is for.
    enum class Component : std::uint32_t { Faces, Edges, Vertices };

    bool ShowPoints(std::vector<Point>& points) const
    {
        if (this->data().points.empty()) return false;
        points = this->data().points;
        return true;
    }
    std::size_t GetPointCount() const { return this->data().points.size(); }

    Self& SetVertexNormalsByRange(std::size_t start, std::vector<Vector> const& normals)
    {
        return SetVertexNormalsByRange(start, normals.size(), normals.data());
    }
    Self& SetVertexNormalsByRange(std::size_t start, std::size_t count, Vector const normals[])
    {
        this->data().vertexNormals.SetRange(start, count, normals);
        return self();
    }
    Self& UnsetVertexNormals()
    {
        this->data().vertexNormals = {};
        return self();
    }
    bool ShowVertexNormals(std::vector<bool>& isSet, std::vector<Vector>& normals) const
    {
        return this->data().vertexNormals.Show(GetPointCount(), isSet, normals);
    }
    Self& SetFaceNormalsByRange(std::size_t start, std::vector<Vector> const& normals)
    {
        return edit([&](auto& all) { all.faceNormals.SetRange(start, normals.size(), normals.data()); });
    }
    Self& UnsetFaceNormals()
    {
        return edit([](auto& all) { all.faceNormals = {}; });
    }
    bool ShowFaceNormals(std::vector<bool>& isSet, std::vector<Vector>& normals) const
    {
        return this->data().extras && this->data().extras->faceNormals.Show(faces(), isSet, normals);
    }

    // A colour takes the place of an index set for the same element, and the other way round.
    Self& SetVertexRGBAColorsByRange(std::size_t start, std::vector<RGBAColor> const& colors,
                                     Component component = Component::Faces)
    {
        auto const [slot, indices] = slots(component);
        detail::editColors(this->data(), slot, indices, start, colors);
        return self();
    }
    Self& SetVertexRGBColorsByRange(std::size_t start, std::vector<RGBColor> const& colors,
                                    Component component = Component::Faces)
    {
        return SetVertexRGBAColorsByRange(start, {colors.begin(), colors.end()}, component);
    }
    Self& SetVertexIndexColorsByRange(std::size_t start, std::vector<float> const& palette,
                                      Component component = Component::Faces)
    {
        auto const [slot, indices] = slots(component);
        detail::editIndices(this->data(), slot, indices, start, palette);
        return self();
    }
    Self& UnsetVertexColors()
    {
        detail::unsetColors(this->data(), true, false);
        return self();
    }
    // For each vertex None, RGBAColor with its colour, or MaterialIndex with its index.
    bool ShowVertexColors(Component component, std::vector<bool>& isSet, std::vector<Material::Type>& types,
                          std::vector<RGBAColor>& colors, std::vector<float>& indices) const
    {
        auto const [slot, numbers] = slots(component);
        return detail::showColors(this->data(), slot, numbers, GetPointCount(), isSet, types, colors,
                                  indices);
    }
    bool ShowVertexColors(Component component, std::vector<bool>& isSet, std::vector<RGBAColor>& colors) const
    {
        std::vector<Material::Type> types;
        std::vector<float> indices;
        return ShowVertexColors(component, isSet, types, colors, indices);
    }
    Self& SetFaceRGBAColorsByRange(std::size_t start, std::vector<RGBAColor> const& colors)
    {
        detail::editColors(this->data(), &ShellColors::faces, &ShellColors::faceIndices, start, colors);
        return self();
    }
    Self& SetFaceRGBColorsByRange(std::size_t start, std::vector<RGBColor> const& colors)
    {
        return SetFaceRGBAColorsByRange(start, {colors.begin(), colors.end()});
    }
    Self& SetFaceIndexColorsByRange(std::size_t start, std::vector<float> const& palette)
    {
        detail::editIndices(this->data(), &ShellColors::faces, &ShellColors::faceIndices, start, palette);
        return self();
    }
    Self& UnsetFaceColors()
    {
        detail::unsetColors(this->data(), false, true);
        return self();
    }
    bool ShowFaceColors(std::vector<bool>& isSet, std::vector<Material::Type>& types,
                        std::vector<RGBAColor>& colors, std::vector<float>& indices) const
    {
        return detail::showColors(this->data(), &ShellColors::faces, &ShellColors::faceIndices, faces(),
                                  isSet, types, colors, indices);
    }
    bool ShowFaceColors(std::vector<bool>& isSet, std::vector<RGBAColor>& colors) const
    {
        std::vector<Material::Type> types;
        std::vector<float> indices;
        return ShowFaceColors(isSet, types, colors, indices);
    }

    // Coordinates in textures: `width` numbers for each vertex, 1 to 3. Another width takes away what is set.
    Self& SetVertexParametersByRange(std::size_t start, std::vector<float> const& parameters,
                                     std::size_t width = 2)
    {
        return edit([&](auto& all) { detail::setParameters(all, start, parameters, width); });
    }
    Self& UnsetVertexParameters()
    {
        return edit([](auto& all) {
            all.vertexParameters.clear(), all.hasParameters.clear(), all.parameterWidth = 0;
        });
    }
    bool ShowVertexParameters(std::vector<bool>& isSet, std::vector<float>& parameters,
                              std::size_t& width) const
    {
        return this->data().extras &&
               detail::showParameters(*this->data().extras, GetPointCount(), isSet, parameters, width);
    }

    Self& SetVertexVisibilitiesByRange(std::size_t start, std::vector<bool> const& visible)
    {
        return setVisibilities<&PolyhedronExtras::vertexVisibilities>(start, visible);
    }
    Self& UnsetVertexVisibilities()
    {
        return edit([](auto& all) { all.vertexVisibilities = {}; });
    }
    bool ShowVertexVisibilities(std::vector<bool>& isSet, std::vector<bool>& visible) const
    {
        return this->data().extras && detail::showVisibilities(this->data().extras->vertexVisibilities,
                                                               GetPointCount(), isSet, visible);
    }
    Self& SetFaceVisibilitiesByRange(std::size_t start, std::vector<bool> const& visible)
    {
        return setVisibilities<&PolyhedronExtras::faceVisibilities>(start, visible);
    }
    Self& UnsetFaceVisibilities()
    {
        return edit([](auto& all) { all.faceVisibilities = {}; });
    }
    bool ShowFaceVisibilities(std::vector<bool>& isSet, std::vector<bool>& visible) const
    {
        return this->data().extras &&
               detail::showVisibilities(this->data().extras->faceVisibilities, faces(), isSet, visible);
    }

    Self& SetMaterialMapping(MaterialMappingKit const& mapping)
    {
        return edit([&](auto& all) { all.materialMapping = mapping.data(); });
    }
    Self& UnsetMaterialMapping()
    {
        return edit([](auto& all) { all.materialMapping = {}; });
    }
    bool ShowMaterialMapping(MaterialMappingKit& mapping) const
    {
        auto const& extras = this->data().extras;
        if (!extras || extras->materialMapping == MaterialMappingData()) return false;
        mapping.edit([&](MaterialMappingData& values) { values = extras->materialMapping; });
        return true;
    }

private:
    Self& self() { return static_cast<Self&>(*this); }
    std::size_t faces() const { return static_cast<Self const&>(*this).GetFaceCount(); }
    template <class F> Self& edit(F&& change)
    {
        detail::editShared(this->data().extras, std::forward<F>(change));
        return self();
    }
    template <auto Slot> Self& setVisibilities(std::size_t start, std::vector<bool> const& visible)
    {
        std::vector<char> const values(visible.begin(), visible.end());
        return edit([&](auto& all) { (all.*Slot).SetRange(start, values.size(), values.data()); });
    }
    static auto slots(Component component)
    {
        using Pair = std::pair<ElementValues<RGBAColor> ShellColors::*, ElementValues<float> ShellColors::*>;
        switch (component) {
        case Component::Faces:
            return Pair(&ShellColors::vertexFaces, &ShellColors::vertexFaceIndices);
        case Component::Edges:
            return Pair(&ShellColors::vertexEdges, &ShellColors::vertexEdgeIndices);
        case Component::Vertices:
            return Pair(&ShellColors::vertexMarkers, &ShellColors::vertexMarkerIndices);
        }
        return Pair(nullptr, nullptr);
    }
};

} // namespace HPS
