#include "kit_operations.h"

namespace HPS
{

HPS_DEFINE_KIT(Visibility)

VisibilityKit VisibilityKit::GetDefault()
{
    VisibilityKit kit;
    using Data = VisibilityData;
    kit.SetEverything(true).SetEdges(false).SetVertices(false).SetCutGeometry(false);
    kit.edit(
        [](Data& data) { data.put(Data::bit(Data::EdgeLights) | Data::bit(Data::MarkerLights), false); });
    return kit;
}

} // namespace HPS
