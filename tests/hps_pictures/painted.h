#pragma once
#include "Stage.h"

/// Images and textures for scenes: a portfolio on the model's segment with definitions made in a line each.
class Paints
{
public:
    explicit Paints(Stage& stage);

    HPS::PortfolioKey& portfolio() { return portfolio_; }

    /// An image of one letter a pixel, rows from the top down: r g b y c m w k grey(.) and transparent(_).
    HPS::ImageDefinition image(char const* name, std::vector<std::string> const& rows);
    /// A texture of such an image; nearest texels, so that colours are exact.
    void texture(char const* name, std::vector<std::string> const& rows, HPS::TextureOptionsKit options);
    static HPS::TextureOptionsKit exact();

    static HPS::RGBAColor colourOf(char letter);

private:
    HPS::PortfolioKey portfolio_;
};

/// A rectangle whose parameters run from `low` to `high` in both directions, u to the right and v upwards.
HPS::ShellKit parametrised(HPS::Point const& centre, float width, float height, float low, float high);
