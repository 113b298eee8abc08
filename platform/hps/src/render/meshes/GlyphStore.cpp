#include "GlyphStore.h"
#include "of_context.h"
#include <algorithm>

namespace HPS::render
{
namespace
{

DrawnGlyph upload(FlatMesh const& mesh)
{
    DrawnGlyph drawn;
    if (mesh.indices.empty()) return drawn;
    drawn.mesh = MeshStore::instance().addGlyphs(plantedVertices(mesh), mesh.indices);
    drawn.low = drawn.high = mesh.corners.front();
    for (FlatMesh::Corner const& corner : mesh.corners) {
        drawn.low = {std::min(drawn.low.x, corner.x), std::min(drawn.low.y, corner.y)};
        drawn.high = {std::max(drawn.high.x, corner.x), std::max(drawn.high.y, corner.y)};
    }
    return drawn;
}

} // namespace

std::vector<GlyphVertex> plantedVertices(FlatMesh const& mesh)
{
    std::vector<GlyphVertex> vertices;
    vertices.reserve(mesh.corners.size());
    for (FlatMesh::Corner const& corner : mesh.corners)
        vertices.push_back({{0, 0, 0}, {0, 0, 0}, {corner.x, corner.y}});
    return vertices;
}

GlyphStore& GlyphStore::instance()
{
    return ofContext<GlyphStore>();
}

DrawnGlyph const& GlyphStore::letter(Font& font, std::uint32_t glyph, Font::Weight weight,
                                     Font::Detail detail)
{
    auto const [place, isNew] = letters_.try_emplace({&font, glyph, weight, detail});
    if (isNew) place->second = upload(font.mesh(glyph, weight, detail));
    return place->second;
}

DrawnGlyph const& GlyphStore::quad()
{
    if (quad_.mesh.empty()) {
        FlatMesh mesh;
        mesh.addQuad({{{0, 0}, {1, 0}, {1, 1}, {0, 1}}});
        quad_ = upload(mesh);
    }
    return quad_;
}

Mesh const& GlyphStore::unitLine()
{
    if (unitLine_.empty()) {
        LineSegment const line{{0, 0, 0}, {1, 0, 0}};
        unitLine_ = MeshStore::instance().addLines({&line, 1});
    }
    return unitLine_;
}

DrawnGlyph const& GlyphStore::background(ShapeKit const* shape)
{
    ShapeKit const wanted = shape != nullptr ? *shape : ShapeKit();
    for (auto const& [known, drawn] : shapes_)
        if (known == wanted) return *drawn;
    auto const drawing = shape != nullptr ? drawingOf(*shape) : rectangleDrawing();
    shapes_.emplace_back(wanted, std::make_unique<DrawnGlyph>(upload(drawing.area)));
    return *shapes_.back().second;
}

} // namespace HPS::render
