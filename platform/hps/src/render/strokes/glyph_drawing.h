#pragma once
#include "OutlineFiller.h"
#include <hps/GlyphKit.h>
#include <hps/ShapeKit.h>

namespace HPS::render
{

/// A marker's glyph as an area: strokes are given a width. The glyph's radius becomes 1 and its offset the
/// origin.
FlatMesh drawingOf(GlyphKit const& glyph);

/// The two parts of a text's background, in the coordinates of the shape: -1 to 1 over the text's box.
struct ShapeDrawing {
    FlatMesh area;
    std::vector<std::vector<FlatMesh::Corner>> lines; ///< rims and strokes, from corner to corner
};
ShapeDrawing drawingOf(ShapeKit const& shape);
/// Of a background that names no shape.
ShapeDrawing rectangleDrawing();

} // namespace HPS::render
