#pragma once
#include "Shadows.h"
#include "Surface.h"
#include "Viewing.h"
#include <optional>

namespace HPS::render
{

/// A picture of the scene as a plane of it mirrors it.
class PlaneMirror
{
public:
    PlaneMirror();

    /// Where the mirrored scene is seen from as the real one is from `view`, with all that the plane does not
    /// mirror cut off. Such a viewing is left-handed: what winds counter-clockwise runs clockwise there.
    static Viewing seenFrom(Viewing const& view, MirrorPlane const& plane, Vec3 const& eye);

    /// To be drawn into, cleared. `width` and `height` are the target's.
    void begin(PlaneReflection const& how, int width, int height);
    /// Fades and softens what was drawn. Needs the frame block of `mirrored`, the viewing it was drawn with.
    /// `extent` is the size of the scene.
    void finish(Viewing const& mirrored, double extent);
    /// Lays it over what is bound; needs the frame block of `view`, and its depths are tested.
    void paint(Viewing const& view, Box const& bounds) const;

private:
    PlaneReflection how_;
    Surface drawn_, faded_;
    std::optional<Surface> between_;
};

} // namespace HPS::render
