#pragma once
#include "records.h"
#include <memory>
#include <string>
#include <vector>

namespace HPS::render
{
class Frame;
class SceneCompiler;
class Target;
} // namespace HPS::render

namespace HPS
{

/// The graphics side of a canvas: its picture, and for each layer of its layout what is drawn there.
/// Asks for the graphics device at the first update, not before.
class CanvasPicture
{
public:
    CanvasPicture();
    ~CanvasPicture();
    CanvasPicture(CanvasPicture const&) = delete;
    CanvasPicture& operator=(CanvasPicture const&) = delete;

    /// Empty, or one line that says why there is no new picture. Fills the report.
    std::string update(CanvasRecord const& canvas, Window::UpdateType type, UpdateReport& report);

    /// False before the first picture.
    bool read(Picture& picture) const;

private:
    struct Layer {
        View view;
        Rendering::Mode mode = Rendering::Mode::Gouraud; ///< as last drawn
        std::unique_ptr<render::SceneCompiler> compiler;
        std::unique_ptr<render::Frame> frame;
    };
    void matchLayers(LayoutRecord const* layout);
    bool compile(CanvasRecord const& canvas, LayoutRecord const& layout, bool fromScratch,
                 UpdateReport& report);
    void draw(UpdateReport& report);

    std::unique_ptr<render::Target> target_; ///< null before the first picture
    std::vector<Layer> layers_;              ///< as in the layout
    bool drawn_ = false;                     ///< the target shows what was compiled
};

} // namespace HPS
