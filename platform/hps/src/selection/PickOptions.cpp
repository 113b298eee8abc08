#include "PickOptions.h"
#include <cmath>

namespace HPS::selection
{

PickOptions::PickOptions(SelectionOptionsData const& given, SelectionOptionsData const& ofWindow)
{
    static SelectionOptionsData const fallback = SelectionOptionsKit::GetDefault().data();
    auto value = [&](auto slot) {
        if (given.*slot) return *(given.*slot);
        return ofWindow.*slot ? *(ofWindow.*slot) : *(fallback.*slot);
    };
    using Data = SelectionOptionsData;
    float const pixels = value(&Data::proximity);
    proximity = std::isfinite(pixels) && pixels > 0 ? pixels : 0;
    level = value(&Data::level);
    internalLimit = value(&Data::internalLimit);
    relatedLimit = value(&Data::relatedLimit);
    sorting = value(&Data::sorting);
    algorithm = value(&Data::algorithm);
    granularity = value(&Data::granularity);
    respectExtent = value(&Data::extentCullingRespected);
    respectFrustum = value(&Data::frustumCullingRespected);
    respectVector = value(&Data::vectorCullingRespected);
}

} // namespace HPS::selection
