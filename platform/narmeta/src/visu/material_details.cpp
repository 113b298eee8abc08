#include "material_details.h"

#include <cmath>

namespace NarMetaInfra
{
bool TextureUse::movesCoordinates() const
{
    return offset != std::array{0.0, 0.0} || scale != std::array{1.0, 1.0} || rotation != 0.0;
}

std::array<float, 2> TextureUse::moved(float u, float v) const
{
    auto const x = scale[0] * u, y = scale[1] * (1.0 - v);
    auto const c = std::cos(rotation), s = std::sin(rotation);
    return {static_cast<float>(offset[0] + c * x + s * y),
            static_cast<float>(1.0 - (offset[1] - s * x + c * y))};
}

} // namespace NarMetaInfra
