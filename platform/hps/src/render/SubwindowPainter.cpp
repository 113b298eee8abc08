#include "SubwindowPainter.h"
#include <algorithm>
#include <cmath>
#include <epoxy/gl.h>

namespace HPS::render
{

FrameCounts SubwindowPainter::draw(Target const& target, std::vector<Subwindow const*> const& subwindows,
                                   Scene const& around)
{
    FrameCounts all;
    std::erase_if(painters_, [&](auto const& entry) {
        return std::none_of(subwindows.begin(), subwindows.end(),
                            [&](Subwindow const* s) { return s->id == entry.first; });
    });
    for (Subwindow const* subwindow : subwindows) {
        Area whole{0, 0, target.width(), target.height()};
        if (auto const within = painters_.find(subwindow->within); within != painters_.end())
            whole = within->second.area;
        Painter& painter = painters_[subwindow->id];
        Area const& area = painter.area = areaOf(*subwindow, whole);
        if (area.width < 1 || area.height < 1) continue;
        painter.target.resize(area.width, area.height, target.samples());
        Scene scene = subwindow->scene;
        scene.quality = around.quality;
        scene.smallest = around.smallest;
        Background const& background = scene.background;
        if (!background.shown || background.from[3] < 1)
            painter.target.copyFrom(target, area.left, area.bottom);
        FrameCounts const counts = painter.frame.draw(painter.target, subwindow->list, scene);
        painter.target.copyTo(target, area.left, area.bottom);
        drawBorder(target, *subwindow, area);
        all.add(counts);
    }
    return all;
}

SubwindowPainter::Area SubwindowPainter::areaOf(Subwindow const& subwindow, Area const& around) const
{
    auto const& [position, offsets, type] = *subwindow.data.subwindow;
    auto at = [](float share, int size, int offset) {
        double const inside = std::clamp(double(std::isfinite(share) ? share : 0.0f), -1.0, 1.0);
        return std::clamp(int(std::lround((inside + 1) * 0.5 * size)) + offset, 0, size);
    };
    int const left = at(position.left, around.width, offsets.left);
    int const right = at(position.right, around.width, offsets.right);
    int const bottom = at(position.bottom, around.height, offsets.bottom);
    int const top = at(position.top, around.height, offsets.top);
    return {around.left + left, around.bottom + bottom, right - left, top - bottom};
}

void SubwindowPainter::drawBorder(Target const& target, Subwindow const& subwindow, Area const& area) const
{
    auto const border = subwindow.data.border.value_or(HPS::Subwindow::Border::None);
    if (border == HPS::Subwindow::Border::None) return;
    target.bind();
    glEnable(GL_SCISSOR_TEST);
    auto fill = [&](int left, int bottom, int width, int height, float shade) {
        glScissor(area.left + left, area.bottom + bottom, width, height);
        glClearColor(shade, shade, shade, 1);
        glClear(GL_COLOR_BUFFER_BIT);
    };
    // An inset one is dark above and left, light below and right, as if the picture lay deeper.
    bool const inset = border == HPS::Subwindow::Border::Inset;
    float const dark = inset ? 0.3f : 0, light = inset ? 0.9f : 0;
    fill(0, area.height - 1, area.width, 1, dark);
    fill(0, 0, 1, area.height, dark);
    fill(0, 0, area.width, 1, light);
    fill(area.width - 1, 0, 1, area.height, light);
    glDisable(GL_SCISSOR_TEST);
    glClearColor(0, 0, 0, 0);
}

} // namespace HPS::render
