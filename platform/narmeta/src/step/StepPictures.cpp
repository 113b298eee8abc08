#include "StepPictures.h"

#include <algorithm>

namespace NarMetaInfra
{
namespace
{
constexpr int DeepestItem = 8;
constexpr int MostItems = 100'000; // symbols may show each other

bool hasExtent(StepPolyline const& line)
{
    return std::ranges::any_of(line, [&](StepPoint const& point) { return point != line.front(); });
}

// The faces of a tessellation have the face of the exact body as a further argument.
std::size_t argumentsBeforeIndex(std::string_view keyword)
{
    return keyword.ends_with("_FACE") ? 5 : 4;
}
} // namespace

struct StepPictures::Pen {
    StepGeometry const& geometry;
    StepFrame frame;
    int& itemsLeft;
    StepLook look;
    int depth = 0;

    Pen deeper(std::optional<StepLook> const& own) const
    {
        return {geometry, frame, itemsLeft, own ? look.over(*own) : look, depth + 1};
    }
    StepPolyline place(StepPolyline points) const
    {
        for (auto& point : points) point = frame.place(point);
        return points;
    }
};

StepPicture StepPictures::of(int annotation, StepGeometry const& geometry, StepFrame const& place) const
{
    StepPicture picture;
    int itemsLeft = MostItems;
    draw(annotation, {geometry, place, itemsLeft, {}, 0}, picture);
    return picture;
}

void StepPictures::draw(int item, Pen const& pen, StepPicture& picture) const
{
    if (pen.depth > DeepestItem || --pen.itemsLeft < 0) return;
    auto const is = [&](std::string_view keyword) { return Entities.isKind(item, keyword); };
    auto const descend = [&](StepValue const& items, Pen const& inner) {
        for (int const child : items.entities()) draw(child, inner.deeper(Styles.lookOf(child)), picture);
    };
    auto const kind = Entities.keywordOf(item);
    if (kind.ends_with("CALLOUT") || is("DRAUGHTING_CALLOUT")) {
        descend(Entities.argument(item, 1, "DRAUGHTING_CALLOUT", 0), pen);
    } else if (is("STYLED_ITEM") || kind.ends_with("_OCCURRENCE") || kind.ends_with("_LEADER_LINE")) {
        auto const own = Styles.look(Entities.argument(item, 1, "STYLED_ITEM", 0));
        descend(Entities.argument(item, 2, "STYLED_ITEM", 1), pen.deeper(own));
    } else if (is("TESSELLATED_GEOMETRIC_SET")) {
        auto inner = pen;
        if (is("REPOSITIONED_TESSELLATED_ITEM")) {
            auto const place = Entities.argument(item, 99, "REPOSITIONED_TESSELLATED_ITEM", 0).entity();
            inner.frame = pen.frame * pen.geometry.frame(place);
        }
        descend(Entities.argument(item, 1, "TESSELLATED_GEOMETRIC_SET", 0), inner);
    } else if (kind == "GEOMETRIC_CURVE_SET" || kind == "GEOMETRIC_SET") {
        descend(Entities.argument(item, 1), pen);
    } else if (kind == "TESSELLATED_CURVE_SET") {
        drawLines(item, pen, picture);
    } else if (kind.ends_with("TRIANGULATED_SURFACE_SET")) {
        drawTriangles(item, pen, picture);
    } else if (kind == "ANNOTATION_FILL_AREA") {
        drawArea(item, pen, picture);
    } else if (kind.starts_with("TEXT_LITERAL")) {
        drawText(item, pen, picture);
    } else if (kind == "COMPOSITE_TEXT") {
        descend(Entities.argument(item, 1), pen);
    } else if (is("MAPPED_ITEM")) {
        drawMapped(item, pen, picture);
    } else {
        drawCurve(item, pen, picture);
    }
}

// Exporters break a line at each corner: pieces that follow each other are one line again.
void StepPictures::drawCurve(int item, Pen const& pen, StepPicture& picture) const
{
    auto points = pen.place(pen.geometry.curve(item));
    if (!hasExtent(points)) return;
    if (!picture.lines.empty()) {
        auto& last = picture.lines.back();
        if (last.points.back() == points.front() && last.look == pen.look) {
            last.points.insert(last.points.end(), points.begin() + 1, points.end());
            return;
        }
    }
    picture.lines.push_back({std::move(points), pen.look});
}

void StepPictures::drawLines(int set, Pen const& pen, StepPicture& picture) const
{
    auto const points = pen.place(pen.geometry.coordinates(Entities.argument(set, 1).entity()));
    for (auto const& strip : Entities.argument(set, 2).items) {
        StepPolyline line;
        for (auto const& index : strip.items) {
            auto const number = index.value().value_or(0.0);
            if (number >= 1.0 && number <= static_cast<double>(points.size()))
                line.push_back(points[static_cast<std::size_t>(number) - 1]);
        }
        if (hasExtent(line)) picture.lines.push_back({std::move(line), pen.look});
    }
}

void StepPictures::drawTriangles(int set, Pen const& pen, StepPicture& picture) const
{
    StepPicture::Fill fill;
    fill.points = pen.place(pen.geometry.coordinates(Entities.argument(set, 1).entity()));
    fill.triangles = stepTriangles(Entities, set, fill.points.size());
    if (fill.triangles.empty()) return;
    fill.look = pen.look;
    auto normal = pen.frame.z;
    for (auto const& [a, b, c] : fill.triangles) {
        auto const at = [&](int index) { return fill.points[static_cast<std::size_t>(index)]; };
        auto const area = cross(at(b) - at(a), at(c) - at(a));
        if (dot(area, area) <= 0.0) continue;
        normal = normalised(area);
        break;
    }
    fill.normals.assign(fill.points.size(), normal);
    picture.fills.push_back(std::move(fill));
}

void StepPictures::drawArea(int area, Pen const& pen, StepPicture& picture) const
{
    StepPicture::Area made;
    for (int const boundary : Entities.argument(area, 1).entities()) {
        auto outline = pen.place(pen.geometry.curve(boundary));
        if (outline.size() > 1 && outline.front() == outline.back()) outline.pop_back();
        if (outline.size() > 2) made.outlines.push_back(std::move(outline));
    }
    made.look = pen.look;
    if (!made.outlines.empty()) picture.areas.push_back(std::move(made));
}

void StepPictures::drawText(int text, Pen const& pen, StepPicture& picture) const
{
    StepPicture::Text made;
    made.words = Entities.argument(text, 1).words();
    made.place = pen.frame * pen.geometry.frame(Entities.argument(text, 2).entity());
    if (Entities.keywordOf(text) == "TEXT_LITERAL_WITH_EXTENT") {
        auto const extent = Entities.argument(text, 6).entity();
        made.size = pen.geometry.millimetres() * Entities.argument(extent, 2).value().value_or(0.0);
    }
    made.look = pen.look;
    if (!made.words.empty()) picture.texts.push_back(std::move(made));
}

void StepPictures::drawMapped(int item, Pen const& pen, StepPicture& picture) const
{
    auto inner = pen.deeper(Styles.lookOf(item));
    inner.frame = pen.frame * pen.geometry.mapping(item);
    auto const shown = Entities.argument(Entities.argument(item, 1, "MAPPED_ITEM", 0).entity(), 1).entity();
    for (int const child : Entities.argument(shown, 1, "REPRESENTATION", 1).entities())
        draw(child, inner.deeper(Styles.lookOf(child)), picture);
}

std::vector<std::array<int, 3>> stepTriangles(StepEntities const& entities, int item, std::size_t pointCount)
{
    std::vector<std::array<int, 3>> triangles;
    auto const keyword = entities.keywordOf(item);
    auto const first = argumentsBeforeIndex(keyword);
    auto const& indirect = entities.argument(item, first).items;
    auto const numberAt = [&](StepValue const& value) {
        auto number = value.value().value_or(0.0);
        if (!indirect.empty()) {
            if (!(number >= 1.0 && number <= static_cast<double>(indirect.size()))) return -1;
            number = indirect[static_cast<std::size_t>(number) - 1].value().value_or(0.0);
        }
        if (!(number >= 1.0 && number <= static_cast<double>(pointCount))) return -1;
        return static_cast<int>(number) - 1;
    };
    auto const add = [&](int a, int b, int c) {
        bool const isArea = a >= 0 && b >= 0 && c >= 0 && a != b && b != c && c != a;
        if (isArea) triangles.push_back({a, b, c});
    };
    auto const strips = [&](StepValue const& list, bool fan) {
        for (auto const& strip : list.items) {
            std::vector<int> corners;
            for (auto const& corner : strip.items) corners.push_back(numberAt(corner));
            for (std::size_t i = 2; i < corners.size(); ++i) {
                bool const isTurned = !fan && i % 2 == 1;
                auto const a = fan ? corners[0] : corners[i - 2], b = corners[i - 1];
                isTurned ? add(b, a, corners[i]) : add(a, b, corners[i]);
            }
        }
    };
    if (keyword.starts_with("COMPLEX_")) {
        strips(entities.argument(item, first + 1), false);
        strips(entities.argument(item, first + 2), true);
    } else {
        strips(entities.argument(item, first + 1), true); // rows of three are fans of one triangle
    }
    return triangles;
}
} // namespace NarMetaInfra
