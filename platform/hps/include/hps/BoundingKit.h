#pragma once
#include <hps/Kit.h>
#include <hps/Sphere.h>

namespace HPS
{

// The extent of a segment, where it is given rather than computed, and whether it counts in the extent of
// others.
struct BoundingVolume {
    bool isSphere = false;
    SimpleSphere sphere; // the given one, or the ball around the cuboid
    SimpleCuboid cuboid; // the given one, or the box around the sphere
    bool operator==(BoundingVolume const&) const = default;
};

struct BoundingData {
    std::optional<BoundingVolume> volume;
    std::optional<bool> exclusion;

    bool operator==(BoundingData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{Aspect{1, "Volume", &BoundingData::volume},
                          Aspect{2, "Exclusion", &BoundingData::exclusion}};
    }
};
static_assert(CompleteKit<BoundingData>);

template <class Self> class BoundingOperations : public Operations<Self>
{
public:
    using Data = BoundingData;

    Self& SetVolume(SimpleSphere const& sphere)
    {
        return detail::set<&Data::volume>(this->self(), BoundingVolume{true, sphere, sphere.Box()});
    }
    Self& SetVolume(SimpleCuboid const& cuboid)
    {
        return detail::set<&Data::volume>(this->self(), BoundingVolume{false, SimpleSphere(cuboid), cuboid});
    }
    Self& UnsetVolume() { return detail::unset<&Data::volume>(this->self()); }

    // What is excluded does not count in the extent of the segments above.
    HPS_ASPECT(Exclusion, bool, exclusion)
};

class BoundingKit : public Kit<BoundingKit, BoundingOperations>
{
public:
    // The volume as it was set, and the other shape around it.
    bool ShowVolume(SimpleSphere& sphere, SimpleCuboid& cuboid) const
    {
        BoundingVolume volume;
        if (!detail::show<&Data::volume>(*this, volume)) return false;
        sphere = volume.sphere;
        cuboid = volume.cuboid;
        return true;
    }
};

class BoundingControl : public Control<BoundingControl, BoundingOperations>
{
public:
    using Control::Control;
    // The extent of the segment with all below it, in the coordinates its own matrix maps from: the volume
    // set on it, or else what its contents take. False if there is none.
    bool ShowVolume(SimpleSphere& sphere, SimpleCuboid& cuboid) const;
};

} // namespace HPS
