#include "TextCompiler.h"
#include "GlyphStore.h"
#include "merge.h"
#include "plain_colour.h"
#include "text_style.h"
#include "wide.h"

namespace HPS::render
{
namespace
{

constexpr double pixelsPerPoint = 96.0 / 72.0;
constexpr double commonWindow = 720; // pixels; where sizes of unlike units meet before there is a window
constexpr float least = 2;           // pixels; no letter is to be known below that

Vec3 wide(Point const& p)
{
    return {p.x, p.y, p.z};
}
Vec3 turned(Vec3 const& v, Mat4 const& m)
{
    return {v.x * m[0] + v.y * m[4] + v.z * m[8], v.x * m[1] + v.y * m[5] + v.z * m[9],
            v.x * m[2] + v.y * m[6] + v.z * m[10]};
}

/// A size brought to what the device tells apart: the world, the window, pixels. Sizes of texts, of margins
/// and of greeking number their units alike as far as they go.
template <class Units> TextCompiler::Size sizeOf(float size, Units units, double objectScale)
{
    if (units == Units::ObjectSpace) return {float(size * objectScale), SizeInWorld};
    if (units == Units::WorldSpace) return {size, SizeInWorld};
    if (units == Units::SubscreenRelative || units == Units::WindowRelative) return {size, SizeInWindow};
    if (units == Units::Points) return {float(size * pixelsPerPoint), 0};
    if (units == Units::Pixels) return {size, 0};
    return {size / 100, 0}; // percent, where the units have it
}

/// How many of the second size the first is. Between the world and the screen there is no fixed answer: a
/// unit counts as a pixel.
double inMultiplesOf(TextCompiler::Size const& size, TextCompiler::Size const& unit)
{
    auto pixels = [](TextCompiler::Size const& s) {
        return double(s.size) * ((s.flags & SizeInWindow) != 0 ? commonWindow : 1);
    };
    double const one = pixels(unit);
    return one > 0 ? pixels(size) / one : 0;
}

bool usable(Vec3 const& v)
{
    return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}

} // namespace

/// Where a text stands: the place of its position and what its ems mean there.
struct TextCompiler::Ground {
    Vec3 anchor; ///< in the world
    Vec3 right{1, 0, 0}, up{0, 1, 0};
    TextCompiler::Size em;
    bool facesViewer = false;
    bool lettersFaceViewer = false; ///< each by itself; their places lie in the plane
};

TextLayouts& TextLayouts::instance()
{
    static auto* const layouts = new TextLayouts;
    return *layouts;
}

TextLayout const& TextLayouts::of(scene::SlotIndex slot, std::string const& text, TextStyle const& style)
{
    constexpr std::size_t most = 200'000;
    if (kept_.size() > most) kept_.clear();
    std::uint32_t const fonts = FontLibrary::instance().version();
    auto const [place, isNew] = kept_.try_emplace(slot);
    Kept& kept = place->second;
    if (isNew || kept.fonts != fonts || kept.text != text || !(kept.style == style))
        kept = {text, style, fonts, layOut(text, style)};
    return kept.layout;
}

void TextCompiler::add(DrawList& list, scene::SlotIndex slot, TextData const& text, TextLook const& look,
                       Mat4 const& outer, std::uint32_t sectionSet)
{
    list_ = &list;
    sectionSet_ = sectionSet;
    TextAttributeData attributes = look.attributes;
    scene::merge(attributes, text.attributes);
    Mat4 const matrix = text.modellingMatrix ? wide(*text.modellingMatrix) * outer : outer;
    Vec3 right = turned({1, 0, 0}, matrix), up = turned({0, 1, 0}, matrix);
    double const objectScale = length(up) > 0 ? length(up) : 1;

    Ground ground;
    auto const [size, units] = *attributes.size;
    ground.em = sizeOf(size, units, objectScale);
    if (!(ground.em.size > 0) || !std::isfinite(ground.em.size)) return;
    Vec3 place = wide(text.position);

    TextStyle style = styleOf(attributes);
    if (auto const [on, extra, extraUnits] = *attributes.extraSpace; on)
        style.extraSpace = inMultiplesOf(sizeOf(extra, extraUnits, objectScale), ground.em);

    if (text.region && text.region->points.size() >= 2) {
        TextRegion const& region = *text.region;
        Vec3 origin = wide(region.points[0]), across = wide(region.points[1]) - origin;
        Vec3 upwards = region.points.size() > 2 ? wide(region.points[2]) - origin : Vec3{};
        origin = region.relativeCoordinates ? place + origin : origin;
        if (region.adjustDirection && across.x < 0) { // read from the left, whichever end comes first
            origin = origin + across;
            across = across * -1;
        }
        double const scale = (ground.em.flags & SizeInWorld) != 0 ? ground.em.size / objectScale : 0;
        double const room = scale > 0 ? length(across) / scale : 0;
        double const height = scale > 0 ? length(upwards) / scale : 0;
        using Fitting = Text::RegionFitting;
        double share = 0;
        TextLayout const& free = TextLayouts::instance().of(slot, text.text.Str(), style);
        double const width = free.extent.width();
        switch (region.fitting) {
        case Fitting::Left:
            break;
        case Fitting::Center:
            share = 0.5;
            break;
        case Fitting::Right:
            share = 1;
            break;
        case Fitting::Spacing:
            if (room > width && free.glyphs.size() > 1)
                style.extraSpace += (room - width) / double(free.glyphs.size() - 1);
            break;
        case Fitting::Width:
            if (width > 0 && room > 0) style.widthScale = room / width;
            break;
        case Fitting::Auto: {
            double fit = width > 0 && room > 0 ? room / width : 1;
            if (height > 0 && free.extent.height() > 0) fit = std::min(fit, height / free.extent.height());
            ground.em.size *= float(fit);
            break;
        }
        }
        double const above = region.alignment == Text::RegionAlignment::Top      ? 1
                             : region.alignment == Text::RegionAlignment::Center ? 0.5
                                                                                 : 0;
        place = origin + across * share + upwards * above;
        style.alignment = Text::Alignment(std::uint32_t(share * 2) * 3 + std::uint32_t(2 - above * 2));
        // Letters stand in the plane of the region, upright on its first side.
        Vec3 const x = normalised(across, {1, 0, 0});
        Vec3 const square = normalised(upwards - x * dot(upwards, x), {-x.y, x.x, 0});
        right = turned(x, matrix);
        up = turned(square, matrix);
    }
    ground.anchor = transformPoint(place, matrix);

    double const upLength = length(up) > 0 ? length(up) : 1;
    switch (*attributes.transform) {
    case Text::Transform::Transformable:
        ground.right = right * (1 / upLength);
        ground.up = up * (1 / upLength);
        break;
    case Text::Transform::NonScalingTransformable:
        ground.right = normalised(right, {1, 0, 0});
        ground.up = normalised(up, {0, 1, 0});
        break;
    case Text::Transform::CharacterPositionOnly:
    case Text::Transform::CharacterPositionAdjusted:
        ground.right = right * (1 / upLength);
        ground.up = up * (1 / upLength);
        ground.lettersFaceViewer = (ground.em.flags & SizeInWorld) != 0;
        ground.facesViewer = !ground.lettersFaceViewer;
        break;
    case Text::Transform::NonTransformable:
        ground.facesViewer = true;
        break;
    }
    if (ground.facesViewer) ground.right = {1, 0, 0}, ground.up = {0, 1, 0};
    if (!usable(ground.anchor) || !usable(ground.right) || !usable(ground.up)) return;

    TextLayout const& layout = TextLayouts::instance().of(slot, text.text.Str(), style);
    if (attributes.background && std::get<bool>(*attributes.background)) {
        TextLook own = look;
        own.attributes = attributes;
        drawBackground(layout, ground, own);
    }
    Paint paint{};
    std::copy_n(look.colour, 4, paint.colour.begin());
    if (text.color) {
        RGBColor const own = plainColour(text.color, look.palette, look.colourWithoutAlpha());
        paint.colour = {colourByte(own.red), colourByte(own.green), colourByte(own.blue),
                        text.color->alpha ? colourByte(*text.color->alpha) : paint.colour[3]};
    }
    draw(layout, ground, attributes, paint);
    if (look.leaderLinesShown && text.leaderLines) addLeaderLines(text, layout, ground, matrix);
}

void TextCompiler::draw(TextLayout const& layout, Ground const& ground, TextAttributeData const& attributes,
                        Paint const& paint)
{
    if (paint.colour[3] == 0) return;
    Shown shown{least};
    Text::GreekingMode greeked = Text::GreekingMode::Nothing;
    if (auto const [on, size, units, mode] = *attributes.greeking; on) {
        TextCompiler::Size const limit = sizeOf(size, units, 1);
        // Of one kind the sizes compare here and now, otherwise on the screen.
        if (limit.flags == ground.em.flags)
            shown.from = ground.em.size < limit.size ? std::numeric_limits<float>::infinity() : 0;
        else
            shown.from = float(limit.size * ((limit.flags & SizeInWindow) != 0 ? commonWindow : 1));
        greeked = mode;
    }
    GlyphStore& store = GlyphStore::instance();
    for (TextLayout::Glyph const& g : layout.glyphs) {
        DrawnGlyph const& coarse = store.letter(*g.font, g.glyph, g.weight, Font::Detail::Coarse);
        if (coarse.mesh.empty()) continue;
        shown.fine = store.letter(*g.font, g.glyph, g.weight, Font::Detail::Fine).mesh.range();
        addDrawing(coarse, g.place, ground, paint, shown);
    }
    auto addBar = [&](TextLayout::Bar const& bar, Shown const& when) {
        auto const &o = bar.corners[0], &x = bar.corners[1], &y = bar.corners[3];
        addDrawing(store.quad(),
                   {double(x.x) - o.x, double(x.y) - o.y, double(y.x) - o.x, double(y.y) - o.y, o.x, o.y},
                   ground, paint, when);
    };
    shown.fine = {};
    for (TextLayout::Bar const& bar : layout.bars) addBar(bar, shown);
    if (greeked == Text::GreekingMode::Nothing) return;
    Shown const instead{0, shown.from};
    for (TextLayout::Bar line : layout.lines) {
        if (greeked == Text::GreekingMode::Lines) { // a stroke at half the height of the letters
            auto between = [](FlatMesh::Corner a, FlatMesh::Corner b, float t) {
                return FlatMesh::Corner{a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t};
            };
            FlatMesh::Corner const left = line.corners[0], right = line.corners[1];
            line = {{between(left, line.corners[3], 0.35f), between(right, line.corners[2], 0.35f),
                     between(right, line.corners[2], 0.55f), between(left, line.corners[3], 0.55f)}};
        }
        addBar(line, instead);
    }
}

void TextCompiler::drawBackground(TextLayout const& layout, Ground const& ground, TextLook const& look)
{
    // Left, right, bottom, top; fewer numbers hold for the rest too.
    std::array<double, 4> margins{0.15, 0.15, 0.1, 0.1};
    if (auto const& given = look.attributes.backgroundMargins) {
        auto const& [sizes, units] = *given;
        for (std::size_t i = 0; i < margins.size() && !sizes.empty(); ++i) {
            std::size_t const at = std::min(i, sizes.size() - 1);
            auto const unit = at < units.size() ? units[at] : Text::MarginUnits::Percent;
            TextCompiler::Size const size = sizeOf(sizes[at], unit, 1);
            margins[i] = unit == Text::MarginUnits::Percent ? size.size : inMultiplesOf(size, ground.em);
        }
    }
    Extent box = layout.extent;
    box.left -= margins[0];
    box.right += margins[1];
    box.bottom -= margins[2];
    box.top += margins[3];
    Paint paint{};
    std::copy_n(look.background, 4, paint.colour.begin());
    paint.displacement = 4; // behind the letters in their plane
    double const x = box.width() / 2, y = box.height() / 2;
    Affine const place{x, 0, 0, y, box.left + x, box.bottom + y};
    if (paint.colour[3] != 0)
        addDrawing(GlyphStore::instance().background(look.backgroundShape ? &*look.backgroundShape : nullptr),
                   place, ground, paint, {});
    std::copy_n(look.backgroundRim, 4, paint.colour.begin());
    paint.displacement = 2;
    if (paint.colour[3] == 0) return;
    ShapeDrawing const shape = look.backgroundShape ? drawingOf(*look.backgroundShape) : rectangleDrawing();
    constexpr double pen = 0.04;
    for (auto const& line : shape.lines)
        for (std::size_t i = 0; i + 1 < line.size(); ++i) {
            double const fromX = place.a * line[i].x + place.e, fromY = place.d * line[i].y + place.f;
            double const dx = place.a * line[i + 1].x + place.e - fromX,
                         dy = place.d * line[i + 1].y + place.f - fromY;
            double const l = std::hypot(dx, dy);
            if (!(l > 0)) continue;
            double const ux = dx / l * pen, uy = dy / l * pen; // half a pen beyond each end shuts the corners
            addDrawing(GlyphStore::instance().quad(),
                       {dx + ux, dy + uy, -uy, ux, fromX - ux / 2 + uy / 2, fromY - uy / 2 - ux / 2}, ground,
                       paint, {});
        }
}

void TextCompiler::addDrawing(DrawnGlyph const& drawing, Affine const& place, Ground const& ground,
                              Paint const& paint, Shown const& shown)
{
    if (drawing.mesh.empty()) return;
    auto plane = [&](double x, double y) { return ground.right * x + ground.up * y; };
    Vec3 anchor = ground.anchor;
    Vec3 columns[3] = {plane(place.a, place.b), plane(place.c, place.d), plane(place.e, place.f)};
    bool facesViewer = ground.facesViewer;
    if (ground.lettersFaceViewer) {
        anchor = anchor + columns[2] * ground.em.size;
        columns[0] = {place.a, place.b, 0};
        columns[1] = {place.c, place.d, 0};
        columns[2] = {};
        facesViewer = true;
    }
    bool const inWorld = (ground.em.flags & SizeInWorld) != 0;
    Record record{};
    record.pipeline.primitive = Primitive::Glyphs;
    record.pipeline.transparent = paint.colour[3] < 255;
    record.pipeline.displacement = paint.displacement;
    record.range = drawing.mesh.range();
    record.from = shown.from;
    record.to = shown.to;
    record.fine = shown.fine;
    double reach = 0; // in multiples of the size
    for (double x : {drawing.low.x, drawing.high.x})
        for (double y : {drawing.low.y, drawing.high.y}) {
            Vec3 const corner = columns[0] * x + columns[1] * y + columns[2];
            reach = std::max(reach, length(corner));
            if (inWorld && !facesViewer) {
                Vec3 const at = anchor + corner * ground.em.size;
                record.world.add(float(at.x), float(at.y), float(at.z));
            }
        }
    if (record.world.empty()) {
        double const around = inWorld ? reach * ground.em.size : 0;
        record.world.add(float(anchor.x - around), float(anchor.y - around), float(anchor.z - around));
        record.world.add(float(anchor.x + around), float(anchor.y + around), float(anchor.z + around));
        constexpr double highestWindow = 4320; // pixels
        if (!inWorld)
            record.reach =
                float(reach * ground.em.size * ((ground.em.flags & SizeInWindow) != 0 ? highestWindow : 1));
    }
    Instance instance{};
    std::array const components{&Vec3::x, &Vec3::y, &Vec3::z};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column)
            instance.rows[row][column] = float(columns[column].*components[row]);
        instance.rows[row][3] = float(anchor.*components[row]);
    }
    std::copy(paint.colour.begin(), paint.colour.end(), instance.colour);
    instance.size = ground.em.size;
    instance.flags = Unlit | Planted | ground.em.flags | (facesViewer ? FacesViewer : 0u);
    instance.material = packMaterial(0, sectionSet_);
    list_->add(record, instance);
}

void TextCompiler::addLeaderLines(TextData const& text, TextLayout const& layout, Ground const& ground,
                                  Mat4 const& matrix)
{
    auto const& [ends, space] = *text.leaderLines;
    for (Point const& end : ends) {
        Vec3 const to = space == Text::LeaderLineSpace::World ? wide(end) : transformPoint(wide(end), matrix);
        Vec3 from = ground.anchor;
        // From the middle of the nearest side, where that is a fixed place.
        if ((ground.em.flags & SizeInWorld) != 0 && !ground.facesViewer && !layout.lines.empty()) {
            Extent const& e = layout.extent;
            double const x = (e.left + e.right) / 2, y = (e.bottom + e.top) / 2;
            double nearest = std::numeric_limits<double>::max();
            for (auto const& [sideX, sideY] :
                 {std::pair{e.left, y}, {e.right, y}, {x, e.bottom}, {x, e.top}}) {
                Vec3 const side = ground.anchor + (ground.right * sideX + ground.up * sideY) * ground.em.size;
                if (double const away = length(to - side); away < nearest) nearest = away, from = side;
            }
        }
        leaderLines_.push_back({Point(float(from.x), float(from.y), float(from.z)),
                                Point(float(to.x), float(to.y), float(to.z))});
    }
}

} // namespace HPS::render
