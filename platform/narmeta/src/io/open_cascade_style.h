#pragma once

// Only for sources of this folder that see Open CASCADE.

#include "open_cascade_document.h"

#include <narmeta/Colour.h>

#include <optional>

#include <Quantity_Color.hxx>
#include <XCAFDoc_VisMaterial.hxx>
#include <XCAFPrs_IndexedDataMapOfShapeStyle.hxx>

namespace NarMetaInfra
{
/// What the file says about the look of a shape; each aspect may be left to the shape around it.
struct ShapeStyle {
    std::optional<NarMeta::Colour> colour;
    std::optional<unsigned short> alpha;
    std::optional<NarMeta::Colour> curveColour;
    Handle(XCAFDoc_VisMaterial) material;
    bool hidden = false;
};

NarMeta::Colour colourOf(Quantity_Color const& color);

/// This style where `inner` leaves an aspect open; a hidden shape hides what is in it.
ShapeStyle inherited(ShapeStyle const& outer, ShapeStyle const& inner);

/// Style of a label itself: of an instance, or of a reference as a whole.
ShapeStyle labelStyle(KernelDocument const& document, TDF_Label const& label);

/// The styles of a part and everything in it, by located shape.
class PartStyles
{
public:
    void collect(TDF_Label const& label);
    /// Nothing if the shape has no style of its own.
    std::optional<ShapeStyle> of(TopoDS_Shape const& shape) const;

private:
    XCAFPrs_IndexedDataMapOfShapeStyle Styles;
};
} // namespace NarMetaInfra
