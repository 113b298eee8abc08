#pragma once
#include <hps/Kit.h>
#include <hps/enumerations.h>

namespace HPS
{

// How cylinders are drawn.
struct CylinderAttributeData {
    std::optional<unsigned int> tessellation;
    std::optional<Cylinder::Orientation> orientation;

    bool operator==(CylinderAttributeData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{Aspect{1, "Tessellation", &CylinderAttributeData::tessellation},
                          Aspect{2, "Orientation", &CylinderAttributeData::orientation}};
    }
};
static_assert(CompleteKit<CylinderAttributeData>);

template <class Self> class CylinderAttributeOperations : public Operations<Self>
{
public:
    using Data = CylinderAttributeData;

    // Facets around.
    HPS_ASPECT(Tessellation, unsigned int, tessellation)
    // Which end takes the first radius and the first colours.
    HPS_ASPECT(Orientation, Cylinder::Orientation, orientation)
};

class CylinderAttributeKit : public Kit<CylinderAttributeKit, CylinderAttributeOperations>
{
public:
    static CylinderAttributeKit GetDefault();
};

class CylinderAttributeControl : public Control<CylinderAttributeControl, CylinderAttributeOperations>
{
public:
    using Control::Control;
};

} // namespace HPS
