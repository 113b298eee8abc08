#pragma once
#include "Quality.h"
#include "records.h"
#include <memory>
#include <string>
#include <vector>

namespace HPS::render
{
class Frame;
class SceneCompiler;
class SubwindowPainter;
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

    /// Empty, or one line that says why there is no picture, or not all of it. Fills the report.
    std::string update(CanvasRecord const& canvas, UpdateRequest const& request, UpdateReport& report);

    /// Lets go of all that lies on the graphics device, which the next update makes anew.
    void forget();

    /// The last update has drawn.
    bool isNew() const { return isNew_; }
    /// The picture shows less than one at rest would.
    bool restDue() const { return drawn_ && quality_ != render::Quality::Resting; }

    /// False before the first picture.
    bool read(Picture& picture) const;

private:
    struct Layer {
        View view;
        std::unique_ptr<render::SceneCompiler> compiler;
        std::unique_ptr<render::Frame> frame;
        std::unique_ptr<render::SubwindowPainter> subwindows;
    };
    std::string attempt(CanvasRecord const& canvas, UpdateRequest const& request, UpdateReport& report);
    void matchLayers(LayoutRecord const* layout);
    /// What an update found to be different.
    enum class Changed { Nothing, Highlights, Anything };
    Changed compile(CanvasRecord const& canvas, LayoutRecord const& layout, bool fromScratch,
                    UpdateReport& report);
    /// `highlightsOnly`: nothing else has changed since the last picture in this target. False if what lies
    /// under the highlights was not drawn but taken from there.
    bool draw(render::Target& target, bool highlightsOnly, UpdateReport& report);
    render::Quality qualityFor(UpdateRequest const& request) const;
    void learn(double milliseconds);
    std::string faults();

    std::unique_ptr<render::Target> target_;             ///< null before the first picture
    std::unique_ptr<render::Target> quick_;              ///< of one sample; null before the first interaction
    render::Target const* shown_ = nullptr;              ///< of these, the one drawn last
    render::Quality quality_ = render::Quality::Resting; ///< of the picture
    double restingMilliseconds_ = 0;                     ///< that the last picture at rest took
    double smallest_ = 0;                ///< pixels; what is smaller is left out while interacting
    std::vector<Layer> layers_;          ///< as in the layout
    bool drawn_ = false;                 ///< the target shows what was compiled
    Changed unseen_ = Changed::Anything; ///< since the last picture
    bool keepsGround_ = false;           ///< highlights have changed on their own, and may do so again
    bool isNew_ = false;
    bool memoryTold_ = false; ///< that graphics memory did not suffice
};

} // namespace HPS
