#include "plain_colour.h"
#include "read_scene.h"
#include <hps/SubwindowKit.h>

namespace HPS::render
{
namespace
{

using Type = Subwindow::Background;
using Kind = Background::Kind;

/// How each type is painted. A ramp that is all zero stays at the window's colour.
struct Paint {
    Kind kind;
    float ramp[3];
};
Paint paintOf(Type type)
{
    switch (type) {
    case Type::SolidColor:
    case Type::Blend:
        return {Kind::Ramp, {}};
    case Type::Image:
        return {Kind::Image, {}};
    case Type::Cubemap:
        return {Kind::CubeMap, {}};
    case Type::Transparent:
    case Type::Interactive:
        return {Kind::Nothing, {}};
    case Type::GradientTopToBottom:
        return {Kind::Ramp, {0, -0.5f, 0.5f}};
    case Type::GradientBottomToTop:
        return {Kind::Ramp, {0, 0.5f, 0.5f}};
    case Type::GradientLeftToRight:
        return {Kind::Ramp, {0.5f, 0, 0.5f}};
    case Type::GradientRightToLeft:
        return {Kind::Ramp, {-0.5f, 0, 0.5f}};
    case Type::GradientTopLeftToBottomRight:
        return {Kind::Ramp, {0.25f, -0.25f, 0.5f}};
    case Type::GradientTopRightToBottomLeft:
        return {Kind::Ramp, {-0.25f, -0.25f, 0.5f}};
    case Type::GradientBottomLeftToTopRight:
        return {Kind::Ramp, {0.25f, 0.25f, 0.5f}};
    case Type::GradientBottomRightToTopLeft:
        return {Kind::Ramp, {-0.25f, 0.25f, 0.5f}};
    }
    return {Kind::Ramp, {}};
}

void readPicture(Background& background, scene::NetState const& state)
{
    using scene::findDefinition;
    std::span<KeyIndex const> const portfolios = state.portfolios;
    if (background.kind == Kind::CubeMap) {
        if (auto const* map = findDefinition<HPS::Type::CubeMapDefinition>(portfolios, background.definition))
            background.cubeMap = *map;
        return;
    }
    if (auto const* found = findDefinition<HPS::Type::TextureDefinition>(portfolios, background.definition)) {
        background.image = *found;
        return;
    }
    for (auto at = portfolios.size(); at-- > 0;) {
        ImageDefinition image;
        if (!PortfolioKey(portfolios[at]).ShowImageDefinition(UTF8(background.definition), image)) continue;
        background.image = scene::Texture{image, TextureOptionsKit()};
        return;
    }
}

} // namespace

Background readBackground(scene::NetState const& state, SubwindowData const* subwindow)
{
    Background background;
    auto const& materials = state.get<MaterialMappingData>();
    RGBColor const colour = plainColour(materials.window, state.palette(), {1, 1, 1});
    // A window without a contrast colour is of one colour.
    RGBColor const contrast = plainColour(materials.windowContrast, state.palette(), colour);
    auto put = [](float(&out)[4], RGBColor const& c) {
        out[0] = c.red;
        out[1] = c.green;
        out[2] = c.blue;
    };
    put(background.from, colour);
    put(background.to, contrast);
    // Where nothing is said, the two colours say it.
    if (subwindow == nullptr || !subwindow->background) return background;
    auto const& [type, definition] = *subwindow->background;
    Paint const paint = paintOf(type);
    background.kind = paint.kind;
    background.definition = definition.Str();
    std::copy_n(paint.ramp, 3, background.ramp);
    if (type == Type::Blend) {
        float const alpha = materials.window && materials.window->alpha ? *materials.window->alpha : 0.5f;
        background.from[3] = background.to[3] = alpha;
    }
    if (paint.kind == Kind::Image || paint.kind == Kind::CubeMap) readPicture(background, state);
    return background;
}

Background readBackground(SceneSources const& sources)
{
    for (auto const& [segment, state] :
         {std::pair(sources.viewSegment, &sources.view), std::pair(sources.windowSegment, &sources.window)}) {
        if (segment == nullptr) continue;
        SubwindowData const* const own = subwindowOf(*segment);
        if (own != nullptr && own->background) return readBackground(*state, own);
    }
    return readBackground(sources.window, nullptr);
}

SubwindowData const* subwindowOf(scene::SegmentRecord const& segment)
{
    for (scene::KitPointer const& kit : segment.kits)
        if (kit->kind == scene::KitKind::Subwindow) return &scene::valuesOf<SubwindowData>(kit.get());
    return nullptr;
}

} // namespace HPS::render
