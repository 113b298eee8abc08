#pragma once
#include <hps/Kit.h>
#include <hps/enumerations.h>

namespace HPS
{

// What a cutting section cuts, and how the cut is closed.
struct CuttingSectionAttributeData {
    std::optional<CuttingSection::CuttingLevel> cuttingLevel;
    std::optional<CuttingSection::CappingLevel> cappingLevel;
    std::optional<CuttingSection::CappingUsage> cappingUsage;
    std::optional<CuttingSection::MaterialPreference> materialPreference;
    std::optional<std::tuple<float, Line::SizeUnits>> edgeWeight;
    std::optional<std::tuple<float, CuttingSection::ToleranceUnits>> tolerance;

    bool operator==(CuttingSectionAttributeData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{Aspect{1, "CuttingLevel", &CuttingSectionAttributeData::cuttingLevel},
                          Aspect{2, "CappingLevel", &CuttingSectionAttributeData::cappingLevel},
                          Aspect{3, "CappingUsage", &CuttingSectionAttributeData::cappingUsage},
                          Aspect{4, "MaterialPreference", &CuttingSectionAttributeData::materialPreference},
                          Aspect{5, "EdgeWeight", &CuttingSectionAttributeData::edgeWeight},
                          Aspect{6, "Tolerance", &CuttingSectionAttributeData::tolerance}};
    }
};
static_assert(CompleteKit<CuttingSectionAttributeData>);

template <class Self> class CuttingSectionAttributeOperations : public Operations<Self>
{
public:
    using Data = CuttingSectionAttributeData;

    // Global cuts all below the segment, Local the segment alone.
    HPS_ASPECT(CuttingLevel, CuttingSection::CuttingLevel, cuttingLevel)
    // What gets a cap of its own.
    HPS_ASPECT(CappingLevel, CuttingSection::CappingLevel, cappingLevel)
    HPS_ASPECT(CappingUsage, CuttingSection::CappingUsage, cappingUsage)
    // Caps in the cut face material, or in that of what is cut.
    HPS_ASPECT(MaterialPreference, CuttingSection::MaterialPreference, materialPreference)
    HPS_ASPECT_PARTS(EdgeWeight, edgeWeight,
                     (float weight, Line::SizeUnits units = Line::SizeUnits::ScaleFactor),
                     (float& weight, Line::SizeUnits& units), weight, units)
    // Gap over which the outline of a cap is closed.
    HPS_ASPECT_PARTS(Tolerance, tolerance,
                     (float tolerance,
                      CuttingSection::ToleranceUnits units = CuttingSection::ToleranceUnits::WorldSpace),
                     (float& tolerance, CuttingSection::ToleranceUnits& units), tolerance, units)
};

class CuttingSectionAttributeKit : public Kit<CuttingSectionAttributeKit, CuttingSectionAttributeOperations>
{
public:
    static CuttingSectionAttributeKit GetDefault();
};

class CuttingSectionAttributeControl
    : public Control<CuttingSectionAttributeControl, CuttingSectionAttributeOperations>
{
public:
    using Control::Control;
};

} // namespace HPS
