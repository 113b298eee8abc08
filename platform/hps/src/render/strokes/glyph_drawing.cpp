#include "glyph_drawing.h"
#include <cmath>
#include <numbers>

namespace HPS::render
{
namespace
{

using Corner = FlatMesh::Corner;
using Contour = OutlineFiller::Contour;

constexpr float pen = 0.1f; // half the width of a stroke

Contour ellipse(float x, float y, float across, float up)
{
    constexpr int steps = 48;
    Contour contour;
    for (int i = 0; i < steps; ++i) {
        double const angle = 2 * std::numbers::pi * i / steps;
        contour.push_back({x + across * float(std::cos(angle)), y + up * float(std::sin(angle))});
    }
    return contour;
}

OutlineFiller& filler()
{
    static OutlineFiller shared;
    return shared;
}

/// A bar with half a disc at each end, so that strokes meet without a notch.
void addStroke(FlatMesh& mesh, Corner from, Corner to)
{
    float const dx = to.x - from.x, dy = to.y - from.y;
    double const angle = std::atan2(double(dy), double(dx));
    constexpr int steps = 6;
    Contour contour;
    for (auto const& [centre, start] :
         {std::pair{to, angle - std::numbers::pi / 2}, std::pair{from, angle + std::numbers::pi / 2}})
        for (int i = 0; i <= steps; ++i) {
            double const turned = start + std::numbers::pi * i / steps;
            contour.push_back(
                {centre.x + pen * float(std::cos(turned)), centre.y + pen * float(std::sin(turned))});
        }
    auto const first = std::uint32_t(mesh.corners.size());
    mesh.corners.insert(mesh.corners.end(), contour.begin(), contour.end());
    for (std::uint32_t i = 1; i + 1 < contour.size(); ++i)
        for (std::uint32_t corner : {0u, i, i + 1}) mesh.indices.push_back(first + corner);
}

void addRing(FlatMesh& mesh, Corner centre, float radius)
{
    Contour const outer = ellipse(centre.x, centre.y, radius, radius);
    float const within = std::max(radius - 2 * pen, 0.0f);
    Contour const inner = ellipse(centre.x, centre.y, within, within);
    for (std::size_t i = 0; i < outer.size(); ++i) {
        std::size_t const next = (i + 1) % outer.size();
        mesh.addQuad({outer[i], outer[next], inner[next], inner[i]});
    }
}

} // namespace

FlatMesh drawingOf(GlyphKit const& glyph)
{
    GlyphData const& data = glyph.data();
    float const radius = float(std::max<int>(1, data.radius.value_or(100)));
    GlyphPoint const offset = data.offset.value_or(GlyphPoint());
    auto place = [&](GlyphPoint p) {
        return Corner{float(p.x - offset.x) / radius, float(p.y - offset.y) / radius};
    };
    FlatMesh mesh;
    if (!data.elements) return mesh;
    for (GlyphElement const& element : *data.elements) {
        if (element.points.empty()) continue;
        Corner const first = place(element.points.front());
        float const own = float(element.radius) / radius;
        switch (element.kind) {
        case GlyphElement::Kind::Lines:
            for (std::size_t i = 0; i + 1 < element.points.size(); ++i)
                addStroke(mesh, place(element.points[i]), place(element.points[i + 1]));
            break;
        case GlyphElement::Kind::Polygon: {
            Contour contour;
            for (GlyphPoint p : element.points) contour.push_back(place(p));
            filler().fill({&contour, 1}, mesh);
            break;
        }
        case GlyphElement::Kind::Circle:
            addRing(mesh, first, own);
            break;
        case GlyphElement::Kind::Disc: {
            Contour const contour = ellipse(first.x, first.y, own, own);
            filler().fill({&contour, 1}, mesh);
            break;
        }
        }
    }
    return mesh;
}

ShapeDrawing drawingOf(ShapeKit const& shape)
{
    ShapeDrawing drawing;
    auto const& elements = shape.data().elements;
    if (!elements) return rectangleDrawing();
    for (ShapeElement const& element : *elements) {
        if (element.points.empty()) continue;
        Contour contour;
        for (Point const& p : element.points) contour.push_back({p.x, p.y});
        if (element.kind == ShapeElement::Kind::Ellipse) {
            if (contour.size() < 2) continue;
            contour =
                ellipse((contour[0].x + contour[1].x) / 2, (contour[0].y + contour[1].y) / 2,
                        std::abs(contour[1].x - contour[0].x) / 2, std::abs(contour[1].y - contour[0].y) / 2);
        }
        bool const closed = element.kind != ShapeElement::Kind::Lines;
        if (closed && element.filled) filler().fill({&contour, 1}, drawing.area);
        if (closed) contour.push_back(contour.front());
        drawing.lines.push_back(std::move(contour));
    }
    return drawing;
}

ShapeDrawing rectangleDrawing()
{
    ShapeDrawing drawing;
    std::array<Corner, 4> const corners{{{-1, -1}, {1, -1}, {1, 1}, {-1, 1}}};
    drawing.area.addQuad(corners);
    drawing.lines.push_back({corners.begin(), corners.end()});
    drawing.lines.back().push_back(corners[0]);
    return drawing;
}

} // namespace HPS::render
