#pragma once
#include <hps/Cuboid.h>
#include <hps/Kit.h>

namespace HPS
{

// What is left out because it could not be seen, or hardly.
struct CullingData {
    std::optional<std::tuple<bool, unsigned>> deferralExtent;
    std::optional<std::tuple<bool, unsigned>> extent;
    std::optional<bool> backFace;
    std::optional<std::tuple<bool, HPS::Vector>> vector;
    std::optional<float> vectorTolerance;
    std::optional<bool> frustum;
    std::optional<std::tuple<bool, SimpleCuboid>> volume;
    std::optional<std::tuple<bool, float>> distance;

    bool operator==(CullingData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{Aspect{1, "DeferralExtent", &CullingData::deferralExtent},
                          Aspect{2, "Extent", &CullingData::extent},
                          Aspect{3, "BackFace", &CullingData::backFace},
                          Aspect{4, "Vector", &CullingData::vector},
                          Aspect{5, "VectorTolerance", &CullingData::vectorTolerance},
                          Aspect{6, "Frustum", &CullingData::frustum},
                          Aspect{7, "Volume", &CullingData::volume},
                          Aspect{8, "Distance", &CullingData::distance}};
    }
};
static_assert(CompleteKit<CullingData>);

template <class Self> class CullingOperations : public Operations<Self>
{
public:
    using Data = CullingData;

    // What is smaller on the screen is drawn last.
    Self& SetDeferralExtent(bool state, unsigned pixels)
    {
        return detail::set<&Data::deferralExtent>(this->self(), std::tuple{state, pixels});
    }
    Self& UnsetDeferralExtent() { return detail::unset<&Data::deferralExtent>(this->self()); }
    bool ShowDeferralExtent(bool& state, unsigned& pixels) const
    {
        return detail::show<&Data::deferralExtent>(this->self(), state, pixels);
    }
    Self& SetDeferralExtent(unsigned pixels) { return SetDeferralExtent(true, pixels); }
    // What is smaller on the screen is not drawn.
    Self& SetExtent(bool state, unsigned pixels)
    {
        return detail::set<&Data::extent>(this->self(), std::tuple{state, pixels});
    }
    Self& UnsetExtent() { return detail::unset<&Data::extent>(this->self()); }
    bool ShowExtent(bool& state, unsigned& pixels) const
    {
        return detail::show<&Data::extent>(this->self(), state, pixels);
    }
    Self& SetExtent(unsigned pixels) { return SetExtent(true, pixels); }
    HPS_ASPECT(BackFace, bool, backFace)
    // Faces whose normal lies near this direction are not drawn.
    Self& SetVector(bool state, HPS::Vector vector)
    {
        return detail::set<&Data::vector>(this->self(), std::tuple{state, vector});
    }
    Self& UnsetVector() { return detail::unset<&Data::vector>(this->self()); }
    bool ShowVector(bool& state, HPS::Vector& vector) const
    {
        return detail::show<&Data::vector>(this->self(), state, vector);
    }
    Self& SetVector(HPS::Vector const& vector) { return SetVector(true, vector); }
    // Degrees.
    HPS_ASPECT(VectorTolerance, float, vectorTolerance)
    HPS_ASPECT(Frustum, bool, frustum)
    Self& SetVolume(bool state, SimpleCuboid const& cuboid)
    {
        return detail::set<&Data::volume>(this->self(), std::tuple{state, cuboid});
    }
    Self& UnsetVolume() { return detail::unset<&Data::volume>(this->self()); }
    bool ShowVolume(bool& state, SimpleCuboid& cuboid) const
    {
        return detail::show<&Data::volume>(this->self(), state, cuboid);
    }
    Self& SetVolume(SimpleCuboid const& cuboid) { return SetVolume(true, cuboid); }
    Self& SetDistance(bool state, float maximum)
    {
        return detail::set<&Data::distance>(this->self(), std::tuple{state, maximum});
    }
    Self& UnsetDistance() { return detail::unset<&Data::distance>(this->self()); }
    bool ShowDistance(bool& state, float& maximum) const
    {
        return detail::show<&Data::distance>(this->self(), state, maximum);
    }
    Self& SetDistance(float maximum) { return SetDistance(true, maximum); }
};

class CullingKit : public Kit<CullingKit, CullingOperations>
{
public:
    static CullingKit GetDefault();
};

class CullingControl : public Control<CullingControl, CullingOperations>
{
public:
    using Control::Control;
};

} // namespace HPS
