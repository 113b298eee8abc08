#include "kit_operations.h"

namespace HPS
{

HPS_DEFINE_KIT(MarkerAttribute)

MarkerAttributeKit MarkerAttributeKit::GetDefault()
{
    MarkerAttributeKit kit;
    kit.SetSymbol("dot")
        .SetSize(1)
        .SetDrawingPreference(Marker::DrawingPreference::Fastest)
        .SetGlyphRotation(0);
    return kit;
}

} // namespace HPS
