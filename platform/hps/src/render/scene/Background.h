#pragma once

namespace HPS::render
{

/// What is painted before anything else.
struct Background {
    bool shown = true; ///< off for what is drawn over another picture
    float top[3] = {0, 0, 0};
    float bottom[3] = {0, 0, 0};
};

} // namespace HPS::render
