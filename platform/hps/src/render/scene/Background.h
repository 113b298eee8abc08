#pragma once
#include "portfolio_record.h"
#include <optional>
#include <string>

namespace HPS::render
{

/// What is painted before anything else.
struct Background {
    bool shown = true; ///< off for what is drawn over another picture

    enum class Kind : std::uint8_t {
        Nothing, ///< what is there stays, or else nothing is
        Ramp,    ///< from one colour to another
        Image,
        CubeMap ///< what the camera sees of a world around it
    };
    Kind kind = Kind::Ramp;
    float from[4] = {0, 0, 0, 1};
    float to[4] = {0, 0, 0, 1};
    /// The share of `to` is ramp · (x, y, 1), with x and y from -1 to 1 in the window.
    float ramp[3] = {0, -0.5f, 0.5f};

    std::string definition; ///< name of the following, for a warning if they are missing
    std::optional<scene::Texture> image;
    std::optional<scene::CubeMap> cubeMap;
};

} // namespace HPS::render
