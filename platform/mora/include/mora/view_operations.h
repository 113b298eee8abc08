#pragma once

namespace MoraCore
{

/// Turns the eye about the rotation centre, in degrees; to the right and up as the user sees it.
struct ViewOpRotate {
    float right = 0;
    float up = 0;
};

/// Moves eye and target together, in fractions of the window; to the right and up as the user sees it.
struct ViewOpPan {
    float right = 0;
    float up = 0;
};

/// Brings the eye nearer to the target: 2 halves the distance. Must be above 0.
struct ViewOpZoom {
    float factor = 1;
};

} // namespace MoraCore
