#include "kit_operations.h"

namespace HPS
{

HPS_DEFINE_KIT(MaterialMapping)

MaterialMappingKit MaterialMappingKit::GetDefault()
{
    MaterialMappingKit kit;
    kit.SetGeometryColor(RGBAColor::Black());
    kit.SetFaceColor(RGBAColor(0.7f, 0.7f, 0.7f)).SetCutFaceColor(RGBAColor(0.5f, 0.5f, 0.5f));
    kit.SetCutEdgeColor(RGBAColor::Black()).SetLightColor(RGBAColor::White());
    kit.SetWindowColor(RGBAColor::White()).SetWindowContrastColor(RGBAColor::Black());
    kit.SetAmbientLightColor(RGBAColor(0.2f, 0.2f, 0.2f));
    return kit;
}

} // namespace HPS
