#include "TextOutlines.h"
#include "merge.h"
#include "text_style.h"

namespace HPS::selection
{

using render::Extent;
using render::styleOf;
using render::TextStyle;

namespace
{

constexpr double pixelsPerPoint = 96.0 / 72.0;

/// A length on the screen or in the world.
struct Size {
    double amount = 0;
    bool inWorld = false;
};

template <class Units> Size sizeOf(float size, Units units, double objectScale, PickFrame const& frame)
{
    switch (units) {
    case Units::ObjectSpace:
        return {size * objectScale, true};
    case Units::WorldSpace:
        return {size, true};
    case Units::SubscreenRelative:
    case Units::WindowRelative:
        return {size * frame.height(), false};
    case Units::Points:
        return {size * pixelsPerPoint, false};
    case Units::Pixels:
        return {size, false};
    }
    return {};
}

/// Where a text is put, in its own coordinates.
struct Ground {
    Vec3 place, right{1, 0, 0}, up{0, 1, 0};
    double room = 0, height = 0; ///< of the region, in units of the object; 0: no matter
};

/// The region's side that the text starts from, its middle or its end, as the fitting says.
Ground groundOf(TextData const& text, TextStyle& style)
{
    Ground ground{wide(text.position)};
    if (!text.region || text.region->points.size() < 2) return ground;
    TextRegion const& region = *text.region;
    Vec3 origin = wide(region.points[0]), across = wide(region.points[1]) - origin;
    Vec3 const upwards = region.points.size() > 2 ? wide(region.points[2]) - origin : Vec3{};
    if (region.relativeCoordinates) origin = ground.place + origin;
    if (region.adjustDirection && across.x < 0) {
        origin = origin + across;
        across = across * -1;
    }
    using Text::RegionAlignment, Text::RegionFitting;
    double const share = region.fitting == RegionFitting::Center  ? 0.5
                         : region.fitting == RegionFitting::Right ? 1
                                                                  : 0;
    double const above = region.alignment == RegionAlignment::Top      ? 1
                         : region.alignment == RegionAlignment::Center ? 0.5
                                                                       : 0;
    style.alignment = Text::Alignment(std::uint32_t(share * 2) * 3 + std::uint32_t(2 - above * 2));
    ground.place = origin + across * share + upwards * above;
    ground.right = normalised(across, {1, 0, 0});
    ground.up =
        normalised(upwards - ground.right * dot(upwards, ground.right), {-ground.right.y, ground.right.x, 0});
    ground.room = length(across);
    ground.height = length(upwards);
    return ground;
}

} // namespace

Extent const& TextOutlines::extentOf(scene::SlotIndex slot, std::string const& text, TextStyle const& style)
{
    std::uint32_t const fonts = render::FontLibrary::instance().version();
    auto const [found, isNew] = kept_.try_emplace(slot);
    Kept& kept = found->second;
    if (isNew || kept.fonts != fonts || !(kept.style == style))
        kept = {style, fonts, render::layOut(text, style).extent};
    return kept.extent;
}

std::optional<TextOutlines::Outline> TextOutlines::of(scene::SlotIndex slot, TextData const& text,
                                                      TextAttributeData const& inherited, Mat4 const& outer,
                                                      PickFrame const& frame)
{
    TextAttributeData attributes = inherited;
    scene::merge(attributes, text.attributes);
    Mat4 const matrix = text.modellingMatrix ? wide(*text.modellingMatrix) * outer : outer;
    double const scale = length(transformDirection({0, 1, 0}, matrix));
    double const objectScale = scale > 0 ? scale : 1;

    TextStyle style = styleOf(attributes);
    style.overline = style.strikethrough = style.underline = false; // letters alone are found
    Ground const ground = groundOf(text, style);
    auto const [size, units] = *attributes.size;
    Size em = sizeOf(size, units, objectScale, frame);
    if (!(em.amount > 0) || !std::isfinite(em.amount)) return std::nullopt;
    auto const [spaced, extra, extraUnits] = *attributes.extraSpace;
    if (Size const space = sizeOf(extra, extraUnits, objectScale, frame);
        spaced && space.inWorld == em.inWorld)
        style.extraSpace = space.amount / em.amount;

    Extent const extent = extentOf(slot, text.text.Str(), style);
    double widthScale = 1;
    if (text.region && em.inWorld && extent.width() > 0 && ground.room > 0) {
        double const fit = ground.room * objectScale / em.amount / extent.width();
        using enum Text::RegionFitting;
        if (text.region->fitting == Width || (text.region->fitting == Spacing && fit > 1)) widthScale = fit;
        if (text.region->fitting == Auto) {
            double const upright = ground.height * objectScale / em.amount / extent.height();
            em.amount *= ground.height > 0 && extent.height() > 0 ? std::min(fit, upright) : fit;
        }
    }

    Vec3 const anchor = transformPoint(ground.place, matrix);
    Vec3 right = transformDirection(ground.right, matrix), up = transformDirection(ground.up, matrix);
    using Text::Transform;
    bool const screenLetters = *attributes.transform == Transform::CharacterPositionOnly ||
                               *attributes.transform == Transform::CharacterPositionAdjusted;
    if (*attributes.transform == Transform::NonTransformable || (screenLetters && !em.inWorld)) {
        right = frame.right();
        up = frame.up();
    } else if (*attributes.transform == Transform::NonScalingTransformable) {
        right = normalised(right, {1, 0, 0});
        up = normalised(up, {0, 1, 0});
    } else {
        double const unit = length(up) > 0 ? length(up) : 1;
        right = right * (1 / unit);
        up = up * (1 / unit);
    }
    double const depth = frame.depth().at(anchor);
    if (frame.perspective() && !(depth > 0)) return std::nullopt;
    double const inWorld = em.inWorld ? em.amount : em.amount * frame.worldPerPixel(depth);
    auto corner = [&](double x, double y) { return anchor + (right * (x * widthScale) + up * y) * inWorld; };
    return Outline{corner(extent.left, extent.bottom), corner(extent.right, extent.bottom),
                   corner(extent.right, extent.top), corner(extent.left, extent.top)};
}

} // namespace HPS::selection
