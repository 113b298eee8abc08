#pragma once
#include <hps/Kit.h>

namespace HPS
{

// How spheres are drawn.
struct SphereAttributeData {
    std::optional<unsigned int> tessellation;

    bool operator==(SphereAttributeData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{Aspect{1, "Tessellation", &SphereAttributeData::tessellation}};
    }
};
static_assert(CompleteKit<SphereAttributeData>);

template <class Self> class SphereAttributeOperations : public Operations<Self>
{
public:
    using Data = SphereAttributeData;

    // Facets around the equator.
    HPS_ASPECT(Tessellation, unsigned int, tessellation)
};

class SphereAttributeKit : public Kit<SphereAttributeKit, SphereAttributeOperations>
{
public:
    static SphereAttributeKit GetDefault();
};

class SphereAttributeControl : public Control<SphereAttributeControl, SphereAttributeOperations>
{
public:
    using Control::Control;
};

} // namespace HPS
