#include "line_attributes.h"

namespace ZelVizBase
{

void setLineAttributes(HPS::SegmentKey& segment, NarMetaVisu::Attributes const& attributes)
{
    NarMetaVisu::LineAttribute line;
    if (!attributes.GetLineAttribute(line)) return;
    NarMetaVisu::LineAttribute::VisuLineStyle style{};
    if (line.GetLineStyle(style) && static_cast<int>(style) > 1)
        segment.GetLineAttributeControl().SetPattern(line.ToString().c_str());
    float weight = 0.0F;
    if (line.GetLineWeight(weight) && weight > 0.0F)
        segment.GetLineAttributeControl().SetWeight(weight, HPS::Line::SizeUnits::ScaleFactor);
}

} // namespace ZelVizBase
