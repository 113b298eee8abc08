// All kinds of backgrounds.
#include "Stage.h"
#include <array>

using namespace HPS;

namespace
{

using Kind = Subwindow::Background;

struct NamedKind {
    std::string_view name;
    Kind kind;
};
constexpr NamedKind kinds[] = {{"solid", Kind::SolidColor},
                               {"image", Kind::Image},
                               {"cubemap", Kind::Cubemap},
                               {"blend", Kind::Blend},
                               {"transparent", Kind::Transparent},
                               {"interactive", Kind::Interactive},
                               {"down", Kind::GradientTopToBottom},
                               {"up", Kind::GradientBottomToTop},
                               {"right", Kind::GradientLeftToRight},
                               {"left", Kind::GradientRightToLeft},
                               {"down-right", Kind::GradientTopLeftToBottomRight},
                               {"down-left", Kind::GradientTopRightToBottomLeft},
                               {"up-right", Kind::GradientBottomLeftToTopRight},
                               {"up-left", Kind::GradientBottomRightToTopLeft}};

/// Squares of two colours; the first row is the brightest.
ImageKit squares(RGBAColor const& a, RGBAColor const& b, unsigned side = 8)
{
    ByteArray bytes;
    for (unsigned y = 0; y < side; ++y)
        for (unsigned x = 0; x < side; ++x) {
            RGBAColor const& colour = (x + y) % 2 != 0 ? a : b;
            float const shade = y == 0 ? 1.f : 0.7f;
            for (float channel : {colour.red, colour.green, colour.blue})
                bytes.push_back(byte(channel * shade * 255));
        }
    ImageKit kit;
    kit.SetSize(side, side).SetFormat(Image::Format::RGB).SetData(bytes);
    return kit;
}

void definePictures(Stage& stage)
{
    PortfolioKey portfolio = stage.model.GetPortfolioKey();
    stage.window().GetPortfolioControl().Push(portfolio);
    portfolio.DefineImage("wall", squares({0.9f, 0.8f, 0.3f}, {0.2f, 0.4f, 0.7f}));
    constexpr std::array<std::array<float, 3>, 6> colours{{{0.9f, 0.2f, 0.2f},
                                                           {0.2f, 0.9f, 0.9f},
                                                           {0.2f, 0.8f, 0.2f},
                                                           {0.8f, 0.2f, 0.8f},
                                                           {0.2f, 0.3f, 0.9f},
                                                           {0.9f, 0.9f, 0.2f}}};
    CubeMapImages sides;
    for (std::size_t i = 0; i < 6; ++i)
        sides[i] =
            portfolio.DefineImage(("side" + std::to_string(i)).c_str(),
                                  squares({colours[i][0], colours[i][1], colours[i][2]}, {1, 1, 1}, 4));
    portfolio.DefineCubeMap("world", sides, TextureOptionsKit());
}

void backgrounds(Stage& stage)
{
    stage.look({4, 3, 10}, 3, stage.has("perspective"));
    stage.light();
    stage.root().GetMaterialMappingControl().SetFaceColor(RGBAColor(0.8f, 0.8f, 0.8f));
    insertBall(stage.root(), {0, 0, 0}, 0.6f);
    stage.background({0.95f, 0.6f, 0.2f}, {0.1f, 0.2f, 0.5f});
    definePictures(stage);
    for (NamedKind const& k : kinds)
        if (stage.value("kind") == k.name)
            stage.window().GetSubwindowControl().SetBackground(k.kind, k.kind == Kind::Image     ? "wall"
                                                                       : k.kind == Kind::Cubemap ? "world"
                                                                                                 : "");
}

SceneTable const table{{"background", backgrounds}};

} // namespace
