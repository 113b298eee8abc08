#pragma once
#include <hps/Color.h>
#include <hps/ElementValues.h>
#include <hps/PointListOperations.h>
#include <hps/enumerations.h>

namespace HPS
{

struct CylinderData {
    std::vector<Point> points;
    std::vector<float> radii;
    Cylinder::Capping caps = Cylinder::Capping::Both;
    ElementValues<RGBAColor> faceColors;
    ElementValues<RGBAColor> edgeColors;

    bool operator==(CylinderData const&) const = default;
    static constexpr auto fields()
    {
        return std::tuple{&CylinderData::points, &CylinderData::radii, &CylinderData::caps,
                          &CylinderData::faceColors, &CylinderData::edgeColors};
    }
};

template <class Self> class CylinderOperations : public PointListOperations<Self, CylinderData>
{
public:
    using Data = CylinderData;

    HPS_FIELD(Caps, Cylinder::Capping, caps)
    // One for the whole, or one per point.
    HPS_FIELD_LIST(Radii, float, radii)
    // What a vertex colour is for.
    enum class Component : std::uint32_t { Faces, Edges };
    // Colours of points, blended in between.
    Self& SetVertexRGBAColorsByRange(std::size_t start, std::vector<RGBAColor> const& colors,
                                     Component component = Component::Faces)
    {
        this->self().edit([&](Data& data) {
            auto& values = component == Component::Faces ? data.faceColors : data.edgeColors;
            values.SetRange(start, colors.size(), colors.data());
        });
        return this->self();
    }
    Self& SetVertexRGBColorsByRange(std::size_t start, std::vector<RGBColor> const& colors,
                                    Component component = Component::Faces)
    {
        return SetVertexRGBAColorsByRange(start, {colors.begin(), colors.end()}, component);
    }
    Self& UnsetVertexColors()
    {
        this->self().edit([](Data& data) { data.faceColors = data.edgeColors = {}; });
        return this->self();
    }
    bool ShowVertexColors(Component component, std::vector<bool>& isSet, std::vector<RGBAColor>& colors) const
    {
        bool any = false;
        this->self().read([&](Data const& data) {
            auto const& values = component == Component::Faces ? data.faceColors : data.edgeColors;
            any = values.Show(data.points.size(), isSet, colors);
        });
        return any;
    }
};

// A tube along a chain of points.
class CylinderKit : public GeometryKitOf<CylinderKit, CylinderData>, public CylinderOperations<CylinderKit>
{
public:
};

} // namespace HPS
