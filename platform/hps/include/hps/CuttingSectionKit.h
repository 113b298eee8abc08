#pragma once
#include <hps/Color.h>
#include <hps/GeometryKit.h>
#include <hps/Plane.h>
#include <hps/enumerations.h>

namespace HPS
{

struct CuttingSectionData {
    std::vector<Plane> planes;
    HPS::CuttingSection::Mode mode = HPS::CuttingSection::Mode::None;
    RGBAColor color;
    float scale = 1;

    bool operator==(CuttingSectionData const&) const = default;
    static constexpr auto fields()
    {
        return std::tuple{&CuttingSectionData::planes, &CuttingSectionData::mode, &CuttingSectionData::color,
                          &CuttingSectionData::scale};
    }
};

template <class Self> class CuttingSectionOperations : public GeometryOperations<Self>
{
public:
    using Data = CuttingSectionData;

    HPS_FIELD_LIST(Planes, Plane, planes)
    Self& SetPlanes(Plane const& plane) { return SetPlanes(std::vector<Plane>{plane}); }
    // How the planes are shown; the scale is a share of the extent of what they cut.
    Self& SetVisualization(HPS::CuttingSection::Mode mode, RGBAColor const& color, float scale = 1)
    {
        this->self().edit([&](Data& data) { data.mode = mode, data.color = color, data.scale = scale; });
        return this->self();
    }
    bool ShowVisualization(HPS::CuttingSection::Mode& mode, RGBAColor& color, float& scale) const
    {
        return this->self().read(
            [&](Data const& data) { mode = data.mode, color = data.color, scale = data.scale; });
    }
};

// Planes that cut away what lies before all of them: where a x + b y + c z + d is positive.
class CuttingSectionKit : public GeometryKitOf<CuttingSectionKit, CuttingSectionData>,
                          public CuttingSectionOperations<CuttingSectionKit>
{
public:
};

} // namespace HPS
