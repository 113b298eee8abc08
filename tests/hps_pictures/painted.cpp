#include "painted.h"

using namespace HPS;

Paints::Paints(Stage& stage) : portfolio_(Database::CreatePortfolio())
{
    stage.root().GetPortfolioControl().Push(portfolio_);
}

RGBAColor Paints::colourOf(char letter)
{
    switch (letter) {
    case 'r':
        return {1, 0, 0};
    case 'g':
        return {0, 1, 0};
    case 'b':
        return {0, 0, 1};
    case 'y':
        return {1, 1, 0};
    case 'c':
        return {0, 1, 1};
    case 'm':
        return {1, 0, 1};
    case 'w':
        return {1, 1, 1};
    case '.':
        return {0.5f, 0.5f, 0.5f};
    case '_':
        return {0, 0, 0, 0};
    default:
        return {0, 0, 0};
    }
}

ImageDefinition Paints::image(char const* name, std::vector<std::string> const& rows)
{
    ByteArray bytes;
    for (std::string const& row : rows)
        for (char letter : row) {
            RGBAColor const c = colourOf(letter);
            for (float channel : {c.red, c.green, c.blue, c.alpha})
                bytes.push_back(byte(channel * 255 + 0.5f));
        }
    ImageKit kit;
    kit.SetSize(unsigned(rows.front().size()), unsigned(rows.size()));
    kit.SetFormat(Image::Format::RGBA).SetData(std::move(bytes));
    return portfolio_.DefineImage(name, kit);
}

TextureOptionsKit Paints::exact()
{
    TextureOptionsKit options;
    options.SetInterpolationFilter(Material::Texture::Interpolation::None);
    return options;
}

void Paints::texture(char const* name, std::vector<std::string> const& rows, TextureOptionsKit options)
{
    portfolio_.DefineTexture(name, image(name, rows), options);
}

ShellKit parametrised(Point const& c, float width, float height, float low, float high)
{
    float const x = width / 2, y = height / 2;
    ShellKit kit;
    kit.SetPoints(
        {{c.x - x, c.y - y, c.z}, {c.x + x, c.y - y, c.z}, {c.x + x, c.y + y, c.z}, {c.x - x, c.y + y, c.z}});
    kit.SetFacelist({4, 0, 1, 2, 3});
    kit.SetVertexParametersByRange(0, {low, low, high, low, high, high, low, high});
    return kit;
}
