#include "kit_operations.h"

namespace HPS
{

HPS_DEFINE_KIT(HiddenLineAttribute)

HiddenLineAttributeKit HiddenLineAttributeKit::GetDefault()
{
    HiddenLineAttributeKit kit;
    kit.SetAlgorithm(HiddenLine::Algorithm::ZBuffer).SetColor(RGBAColor(0, 0, 0, 1)).SetDimFactor(0.5f);
    kit.SetFaceDisplacement(0).SetLinePattern(UTF8()).SetLineSorting(false).SetRenderFaces(false);
    kit.SetRenderText(false).SetSilhouetteCleanup(true).SetTransparencyCutoff(0).SetVisibility(false);
    kit.SetWeight(1);
    return kit;
}

} // namespace HPS
