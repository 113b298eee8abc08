#pragma once
#include "Frame.h"
#include "SceneCompiler.h"
#include <map>

namespace HPS::render
{

/// Draws the subwindows of a view over its picture, each in a target of its own.
class SubwindowPainter
{
public:
    /// `around` is the scene of the view; quality and the like are taken from there.
    FrameCounts draw(Target const& target, std::vector<Subwindow const*> const& subwindows,
                     Scene const& around);

private:
    /// Pixels of the window, from the lower left.
    struct Area {
        int left, bottom, width, height;
    };
    struct Painter {
        Target target;
        Frame frame;
        Area area;
    };
    Area areaOf(Subwindow const& subwindow, Area const& around) const;
    void drawBorder(Target const& target, Subwindow const& subwindow, Area const& area) const;

    std::map<OccurrenceId, Painter> painters_;
};

} // namespace HPS::render
