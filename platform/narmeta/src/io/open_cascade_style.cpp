#include "open_cascade_style.h"

#include <algorithm>
#include <cmath>

#include <Quantity_ColorRGBA.hxx>
#include <XCAFDoc_VisMaterial.hxx>
#include <XCAFPrs.hxx>
#include <XCAFPrs_Style.hxx>

namespace NarMetaInfra
{
namespace
{
unsigned short channel(double value)
{
    return static_cast<unsigned short>(std::lround(std::clamp(value, 0.0, 1.0) * 255.0));
}

void setSurface(ShapeStyle& style, Quantity_ColorRGBA const& color)
{
    style.colour = colourOf(color.GetRGB());
    if (color.Alpha() < 1.0f) style.alpha = channel(static_cast<double>(color.Alpha()));
}

ShapeStyle styleOf(XCAFPrs_Style const& kernelStyle)
{
    ShapeStyle style;
    style.hidden = !kernelStyle.IsVisible();
    if (kernelStyle.IsSetColorSurf())
        setSurface(style, kernelStyle.GetColorSurfRGBA());
    else if (!kernelStyle.Material().IsNull())
        setSurface(style, kernelStyle.Material()->BaseColor());
    style.material = kernelStyle.Material();
    if (kernelStyle.IsSetColorCurv()) style.curveColour = colourOf(kernelStyle.GetColorCurv());
    return style;
}
} // namespace

NarMeta::Colour colourOf(Quantity_Color const& color)
{
    double red = 0.0, green = 0.0, blue = 0.0;
    color.Values(red, green, blue, Quantity_TOC_sRGB);
    return {channel(red), channel(green), channel(blue)};
}

ShapeStyle inherited(ShapeStyle const& outer, ShapeStyle const& inner)
{
    auto style = inner;
    if (!style.colour) {
        style.colour = outer.colour;
        style.alpha = outer.alpha;
    }
    if (style.material.IsNull()) style.material = outer.material;
    if (!style.curveColour) style.curveColour = outer.curveColour;
    style.hidden |= outer.hidden;
    return style;
}

ShapeStyle labelStyle(KernelDocument const& document, TDF_Label const& label)
{
    ShapeStyle style;
    auto const colors = document.colors();
    style.hidden = !colors->IsVisible(label);
    Quantity_ColorRGBA color;
    if (colors->GetColor(label, XCAFDoc_ColorGen, color)) setSurface(style, color);
    if (colors->GetColor(label, XCAFDoc_ColorSurf, color)) setSurface(style, color);
    return style;
}

void PartStyles::collect(TDF_Label const& label)
{
    XCAFPrs::CollectStyleSettings(label, TopLoc_Location(), Styles);
}

std::optional<ShapeStyle> PartStyles::of(TopoDS_Shape const& shape) const
{
    auto const* const found = Styles.Seek(shape);
    if (!found) return std::nullopt;
    return styleOf(*found);
}
} // namespace NarMetaInfra
