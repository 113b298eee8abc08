// Line patterns and marker glyphs by the model's numbers.

#include "ZELRenderer.h"

namespace ZelVizBase
{

using NarMetaVisu::LineAttribute;

void ZELRenderer::initializeLineStyles()
{
    if (PortfolioKey.Type() == HPS::Type::None) return;
    for (int style = LineAttribute::Solid; style <= LineAttribute::LongDashedDoubleDotted; ++style) {
        std::string const name = LineAttribute::ToString(static_cast<LineAttribute::VisuLineStyle>(style));
        auto const pattern = static_cast<HPS::LinePattern::Default>(style - 1);
        PortfolioKey.DefineLinePattern(name.c_str(), HPS::LinePatternKit::GetDefault(pattern));
    }
}

std::string ZELRenderer::mapMarkerStyleToGlyphName(NarMetaVisu::VisuMarkerStyle style) const
{
    switch (static_cast<int>(style)) {
    case 1:
    case 31:
        return "times";
    case 2:
        return "plus";
    case 3:
        return "circle with circle";
    case 4:
        return "circle with dot";
    case 5:
    case 12:
    case 18:
    case 19:
    case 28:
    case 36:
        return "circle";
    case 6:
    case 13:
    case 26:
    case 2008:
        return "box";
    case 22:
        return "Box";
    case 7:
        return "splat";
    case 14:
    case 15:
    case 16:
    case 24:
    case 29:
    case 30:
    case 32:
    case 33:
    case 2001:
    case 2002:
    case 2009:
    case 2013:
        return "triangle up";
    case 17:
    case 25:
    case 2011:
        return "solid triangle up";
    case 2010:
        return "triangle down";
    case 2012:
        return "solid triangle down";
    case 20:
        return "solid circle";
    case 21:
        return "circle with times";
    case 23:
    case 34:
        return "solid box";
    case 27:
    case 35:
        return "diamond";
    case 2003:
        return "slant right";
    case 2004:
        return "slant left";
    default:
        return "dot"; // 8 to 11, 2005 to 2007, and numbers that are no style
    }
}

} // namespace ZelVizBase
