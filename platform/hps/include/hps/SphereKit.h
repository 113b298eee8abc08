#pragma once
#include <hps/GeometryKit.h>
#include <hps/Point.h>

namespace HPS
{

struct SphereData {
    Point center;
    float radius = 1;
    HPS::Vector vertical{0, 1, 0};   // towards the north pole
    HPS::Vector horizontal{1, 0, 0}; // towards the first meridian

    bool operator==(SphereData const&) const = default;
    static constexpr auto fields()
    {
        return std::tuple{&SphereData::center, &SphereData::radius, &SphereData::vertical,
                          &SphereData::horizontal};
    }
};

template <class Self> class SphereOperations : public GeometryOperations<Self>
{
public:
    using Data = SphereData;

    HPS_FIELD(Center, Point, center)
    HPS_FIELD(Radius, float, radius)
    // The axes that facets and textures go by.
    Self& SetBasis(HPS::Vector const& vertical, HPS::Vector const& horizontal)
    {
        this->self().edit([&](Data& data) { data.vertical = vertical, data.horizontal = horizontal; });
        return this->self();
    }
    bool ShowBasis(HPS::Vector& vertical, HPS::Vector& horizontal) const
    {
        return this->self().read(
            [&](Data const& data) { vertical = data.vertical, horizontal = data.horizontal; });
    }
};

// A ball.
class SphereKit : public GeometryKitOf<SphereKit, SphereData>, public SphereOperations<SphereKit>
{
public:
};

} // namespace HPS
